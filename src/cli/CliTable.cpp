// SPDX-License-Identifier: Apache-2.0
// tarnwick table: the bent table to and from a spreadsheet, rows added or pasted over.
#include "cli/Cli.h"
#include "cli/QuietProject.h"
#include "core/benttable/BentRows.h"
#include "platform/FileRead.h"
#include "platform/ProjectFile.h"

#include <iostream>

namespace tw {

namespace {

// Rows to add: a spreadsheet's export is small; more than this is not a table of bents.
constexpr std::uintmax_t kMaxRowsBytes = 4 * 1024 * 1024;

// A refusal names the rows' file and line, as a compiler names a source line; nothing is written then.
int refused(const std::string& rowsFile, int line, const std::string& why, const std::string& output) {
    std::cerr << rowsFile << ':' << line << ": " << why << '\n';
    std::cerr << "tarnwick: nothing was written to " << output << '\n';
    return 1;
}

int pasteRows(QuietProject& project, const std::string& rowsFile, const std::string& output, bool over) {
    const ReadResult rows = readRegularFile(rowsFile, kMaxRowsBytes);
    if (rows.errorNumber) {
        std::cerr << rowsFile << ": " << oneLine(rows.error) << "; nothing was written\n";
        return 1;
    }
    // The rows come as a spreadsheet writes them, commas unless the first line holds a tab.
    project.ports.lastMessage.clear();
    const PasteOutcome outcome = project.app.actions.pasteBents(rows.bytes, over);
    if (outcome.offerOver) {
        std::cerr << rowsFile << ": " << oneLine(project.app.session().statusText()) << '\n'
                  << "tarnwick: --replace instead of --add replaces them; nothing was written to " << output << '\n';
        return 1;
    }
    if (outcome.refusedLine)
        return refused(rowsFile, *outcome.refusedLine, outcome.refusal.empty() ? project.why() : outcome.refusal,
                       output);
    return project.writeTo(output);
}

} // namespace

int cliTable(const CliOptions& opt, const std::vector<std::string>& args) {
    std::vector<std::string> files;
    std::string rowsFile, output;
    bool over = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string* value = args[i] == "--add" || args[i] == "--replace" ? &rowsFile
                             : args[i] == "--output"                      ? &output
                                                                          : nullptr;
        if (args[i] == "--add" || args[i] == "--replace") {
            if (!rowsFile.empty()) {
                std::cerr << "tarnwick: table takes one of --add and --replace, once\n";
                return 2;
            }
            over = args[i] == "--replace";
        }
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
        std::cerr << "tarnwick: table takes FILE, or FILE --add ROWS.csv --output NEW.ebnt, or FILE --replace "
                     "ROWS.csv --output NEW.ebnt\n";
        return 2;
    }
    if (!rowsFile.empty()) {
        // Rows go in through Add's and Replace's checks, which are the form's.
        QuietProject project(opt.programDir);
        if (!project.read(files[0])) {
            std::cerr << files[0] << ": " << project.why() << "; nothing was written" << '\n';
            return 1;
        }
        return pasteRows(project, rowsFile, output, over);
    }
    const ProjectRead read = readProjectFile(files[0]);
    if (!read.ok()) {
        std::cerr << files[0] << ": " << whyUnread(read) << '\n';
        return 1;
    }
    const BentTable& table = read.project.table();
    std::cout << tableCsv(table, 1, table.rows() - 1);
    return 0;
}

} // namespace tw
