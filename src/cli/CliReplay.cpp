#include "cli/Cli.h"
#include "cli/Replay.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace tw {

int cliReplay(const CliOptions& opt, const std::string& script) {
    std::string dir = std::filesystem::current_path().string();
    std::ifstream file;
    std::istream* in = &std::cin;
    if (script != "-") {
        file.open(script, std::ios::binary);
        if (!file) {
            std::cerr << "replay: cannot read " << script << '\n';
            return 2;
        }
        in = &file;
        dir = std::filesystem::absolute(script).parent_path().string();
    }
    ReplaySession session(std::cout, std::cerr, dir, opt.programDir);
    return session.replay.run(*in);
}

} // namespace tw
