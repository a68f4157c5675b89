// The headless commands: check, dump, run, replay.
#pragma once

#include <string>
#include <vector>

namespace tw {

struct CliOptions {
    std::string programDir;
    int timeLimit = 0; // seconds a program Run waits for may run (`run --timeout`); 0: no limit
};

int cliReplay(const CliOptions& opt, const std::string& script);
int cliCheck(const CliOptions& opt, const std::vector<std::string>& files);
int cliDump(const CliOptions& opt, const std::string& file);
int cliRun(const CliOptions& opt, const std::string& file);

} // namespace tw
