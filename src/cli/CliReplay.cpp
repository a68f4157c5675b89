// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"
#include "cli/Replay.h"
#include "cli/ScriptReader.h"

#include <filesystem>
#include <iostream>

namespace tw {

int cliReplay(const CliOptions& opt, const std::string& script) {
    std::string dir = std::filesystem::current_path().string();
    ScriptSource source(script);
    if (!source.why().empty()) {
        std::cerr << "replay: cannot read " << script << ": " << source.why() << '\n';
        return 2;
    }
    if (script != "-") dir = std::filesystem::absolute(script).parent_path().string();
    ReplaySession session(std::cout, std::cerr, dir, opt.programDir);
    const int status = session.replay.run(source.stream());
    if (status == 0 && !source.readError().empty()) {
        std::cerr << "replay: " << script << " could not be read to its end (" << source.readError() << ")\n";
        return 2;
    }
    return status;
}

} // namespace tw
