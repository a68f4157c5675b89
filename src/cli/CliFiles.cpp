// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"
#include "cli/Printing.h"
#include "core/Quoting.h"
#include "core/model/Closing.h"
#include "core/model/Inputs.h"
#include "platform/ProjectFile.h"

#include <iostream>

namespace tw {

int cliCheck(const CliOptions&, const std::vector<std::string>& files) {
    int status = 0;
    for (const auto& file : files) {
        ProjectRead read = readProjectFile(file);
        if (read.ok()) {
            const Project& project = read.project;
            std::cout << file << ": ok (" << project.bents() << " bents, " << project.beams() << " beams, "
                      << project.text(Ctl::cboTybent) << ")\n";
            for (auto& line : closingMismatches(project))
                read.notes.push_back(std::move(line));
            for (const auto& note : read.notes)
                std::cout << file << ": warning: " << oneLine(note) << '\n';
        } else {
            std::cout << file << ": " << whyUnread(read) << '\n';
            status = 1;
        }
    }
    return status;
}

int cliDump(const CliOptions&, const std::string& file) {
    const ProjectRead read = readProjectFile(file);
    if (!read.ok()) {
        std::cerr << file << ": " << whyUnread(read) << '\n';
        return 1;
    }
    for (const auto& id : projectInputs())
        printShow(std::cout, toString(id), read.project.text(id));
    // A file opens with the grid's first row selected.
    printGrid(std::cout, read.project.table(), GridSelection{});
    return 0;
}

} // namespace tw
