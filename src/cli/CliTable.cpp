// SPDX-License-Identifier: Apache-2.0
// tarnwick table: the bent table to and from a spreadsheet.
#include "cli/Cli.h"
#include "cli/QuietProject.h"
#include "core/benttable/BentRows.h"
#include "platform/FileRead.h"

#include <iostream>

namespace tw {

namespace {

// Rows to add: a spreadsheet's export is small; more than this is not a table of bents.
constexpr std::uintmax_t kMaxRowsBytes = 4 * 1024 * 1024;

int addRows(QuietProject& project, const std::string& rowsFile, const std::string& output) {
    const ReadResult rows = readRegularFile(rowsFile, kMaxRowsBytes);
    if (rows.errorNumber) {
        std::cerr << rowsFile << ": " << oneLine(rows.error) << '\n';
        return 1;
    }
    // The rows come as a spreadsheet writes them, commas unless the first line holds a tab.
    project.ports.lastMessage.clear();
    const PasteOutcome outcome = project.app.actions.pasteBents(rows.bytes);
    if (outcome.refusedLine) {
        std::cerr << rowsFile << ':' << *outcome.refusedLine << ": "
                  << (outcome.refusal.empty() ? project.why() : outcome.refusal) << '\n';
        return 1;
    }
    return project.writeTo(output);
}

} // namespace

int cliTable(const CliOptions& opt, const std::vector<std::string>& args) {
    std::vector<std::string> files;
    std::string rowsFile, output;
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string* value = args[i] == "--add" ? &rowsFile : args[i] == "--output" ? &output : nullptr;
        if (!value) {
            files.push_back(args[i]);
            continue;
        }
        if (i + 1 >= args.size()) {
            std::cerr << "tarnwick: " << args[i] << " needs a file\n";
            return 2;
        }
        *value = args[++i];
    }
    if (files.size() != 1 || rowsFile.empty() != output.empty()) {
        std::cerr << "tarnwick: table takes FILE, or FILE --add ROWS.csv --output NEW.ebnt\n";
        return 2;
    }
    QuietProject project(opt.programDir);
    if (!project.read(files[0])) {
        std::cerr << files[0] << ": " << project.why() << '\n';
        return 1;
    }
    if (!rowsFile.empty()) return addRows(project, rowsFile, output);
    const BentTable& table = project.app.project().table();
    std::cout << tableCsv(table, 1, table.rows() - 1);
    return 0;
}

} // namespace tw
