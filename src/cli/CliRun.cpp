#include "cli/Cli.h"
#include "cli/Quoting.h"
#include "cli/Replay.h"
#include "core/form/MainForm.h"

#include <filesystem>
#include <iostream>

namespace tw {

int cliRun(const CliOptions& opt, const std::string& file) {
    ReplayPorts ports(std::cout, std::filesystem::current_path().string());
    App app(ports, opt.programDir);
    loadMainForm(app);
    Replay replay(app, ports, std::cout, std::cerr);
    const std::string script[] = {"file " + quote(file), "click mnuOpen", "answer Yes", "click mnuRun"};
    int n = 0;
    for (const auto& line : script)
        if (!replay.runLine(line, ++n)) return 2;
    std::cout.flush();
    return ports.sawMessageStartingWith("The program has finished running.") ? 0 : 1;
}

} // namespace tw
