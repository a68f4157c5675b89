// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"
#include "cli/Replay.h"
#include "core/EngineListing.h"
#include "core/Quoting.h"

#include <filesystem>
#include <iostream>

namespace tw {

int cliRun(const CliOptions& opt, const std::string& file) {
    ReplaySession session(std::cout, std::cerr, std::filesystem::current_path().string(), opt.programDir);
    session.platform.setTimeLimit(opt.timeLimit);
    const std::string script[] = {"file " + quote(file), "click mnuOpen", "answer Yes", "click mnuRun"};
    int n = 0;
    for (const auto& line : script)
        if (!session.replay.runLine(line, ++n)) return 2;
    std::cout.flush();
    if (!session.user.sawMessageStartingWith("The program has finished running.")) return 1;
    // Finished, but the engine's listing tells of an error in what it was given.
    return concreteDataIsClean(session.platform, session.app.session().runOutputBase() + ".ebntc") ? 0 : 3;
}

} // namespace tw
