// SPDX-License-Identifier: Apache-2.0
// The headless commands: check, dump, run, replay, draw, report.
#pragma once

#include "core/model/Measures.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QCoreApplication;

namespace tw {

struct CliOptions {
    std::string programDir;
    int timeLimit = 0; // seconds a program Run waits for may run (`run --timeout`); 0: no limit
    // How lengths read in draw, report and diff (`--units`); none: as the window reads them (View > Units).
    std::optional<LengthUnits> units;
    bool names = false; // diff --names: the control names beside the prompts, for scripts
};

// The units a command shows lengths in: those asked for, else the window's choice.
LengthUnits unitsOf(const CliOptions& opt);

int cliReplay(const CliOptions& opt, const std::string& script);
int cliCheck(const CliOptions& opt, const std::vector<std::string>& files);
int cliDump(const CliOptions& opt, const std::string& file);
int cliRun(const CliOptions& opt, const std::string& file);
// table FILE [--add|--replace ROWS --output NEW]: the bent table as CSV, or a new project with rows added
// (or, pasted over, replacing the bents they name).
int cliTable(const CliOptions& opt, const std::vector<std::string>& args);
// new --list | new --template NAME --output FILE: the templates, and a new project from one.
int cliNew(const CliOptions& opt, const std::vector<std::string>& args);
// diff A B: the inputs and bents that differ; 0 the same, 1 different, 2 an error.
int cliDiff(const CliOptions& opt, const std::string& a, const std::string& b);
// recover --list | recover N --output FILE: the put-aside copies of unsaved work.
int cliRecover(const CliOptions& opt, const std::vector<std::string>& args);
// draw FILE [--bent N] OUT; needs the application of paintingApplication().
int cliDraw(const CliOptions& opt, const std::vector<std::string>& args);
// report FILE OUT: the checker's report as a PDF; needs the application of paintingApplication().
int cliReport(const CliOptions& opt, const std::string& file, const std::string& out);

// An application that can paint without a window, offscreen when there is no display.
std::unique_ptr<QCoreApplication> paintingApplication(int& argc, char** argv);

} // namespace tw
