// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"
#include "cli/Printing.h"
#include "cli/QuietProject.h"
#include "core/Quoting.h"
#include "core/model/Inputs.h"

#include <iostream>

namespace tw {

int cliCheck(const CliOptions& opt, const std::vector<std::string>& files) {
    int status = 0;
    for (const auto& file : files) {
        QuietProject project(opt.programDir);
        const App& app = project.app;
        std::vector<std::string> notes;
        if (project.read(file, &notes)) {
            std::cout << file << ": ok (" << app.project().bents() << " bents, " << app.project().beams() << " beams, "
                      << app.text(Ctl::cboTybent) << ")\n";
            for (const auto& note : notes)
                std::cout << file << ": warning: " << oneLine(note) << '\n';
        } else {
            std::cout << file << ": " << project.why() << '\n';
            status = 1;
        }
    }
    return status;
}

int cliDump(const CliOptions& opt, const std::string& file) {
    QuietProject project(opt.programDir);
    const App& app = project.app;
    if (!project.read(file)) {
        std::cerr << file << ": " << project.why() << '\n';
        return 1;
    }
    for (const auto& id : projectInputs())
        printShow(std::cout, toString(id), app.text(id));
    printGrid(std::cout, app.project().table(), app.selection());
    return 0;
}

} // namespace tw
