#include "cli/Cli.h"
#include "cli/Printing.h"
#include "core/App.h"
#include "core/QuietPorts.h"
#include "core/Quoting.h"
#include "core/benttable/Layout.h"
#include "core/form/MainForm.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Inputs.h"

#include <iostream>

namespace tw {

int cliCheck(const CliOptions& opt, const std::vector<std::string>& files) {
    int status = 0;
    for (const auto& file : files) {
        QuietPorts ports;
        App app(ports, ports, opt.programDir);
        std::vector<std::string> notes;
        bool read = false;
        // Whatever one file does, the next is checked.
        app.guarded([&] {
            loadMainForm(app);
            read = readInputFile(app, file, &notes);
        });
        if (read) {
            std::cout << file << ": ok (" << app.grid.rows() - 1 << " bents, " << beamCount(app) << " beams, "
                      << app.text(Ctl::cboTybent) << ")\n";
            for (const auto& note : notes)
                std::cout << file << ": warning: " << oneLine(note) << '\n';
        } else {
            std::cout << file << ": " << oneLine(ports.lastMessage) << '\n';
            status = 1;
        }
    }
    return status;
}

int cliDump(const CliOptions& opt, const std::string& file) {
    QuietPorts ports;
    App app(ports, ports, opt.programDir);
    loadMainForm(app);
    if (!readInputFile(app, file)) {
        std::cerr << file << ": " << oneLine(ports.lastMessage) << '\n';
        return 1;
    }
    for (const auto& id : projectInputs())
        printShow(std::cout, toString(id), app.text(id));
    printGrid(std::cout, app.grid);
    return 0;
}

} // namespace tw
