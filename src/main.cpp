// SPDX-License-Identifier: Apache-2.0
// One executable: the window by default, the headless commands by name.
#include "cli/Cli.h"
#include "cli/Replay.h"
#include "gui/GuiMain.h"
#include "gui/ViewerMain.h"
#include "platform/Platform.h"
#include "tarnwick_version.h"

#include <QCoreApplication>
#include <QDir>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

const char* kUsage =
    "Usage:\n"
    "  tarnwick [FILE]                   the window (splash, then the main form, opening FILE)\n"
    "  tarnwick check FILE...            read each input file; exit 0 if all read\n"
    "  tarnwick dump FILE                read one input file and print every input and the bent table\n"
    "  tarnwick run FILE [--timeout S]   open FILE and run it, answering Yes to the save question;\n"
    "                                    with --timeout, a program still running after S seconds\n"
    "                                    is ended and the run fails\n"
    "  tarnwick table FILE               print FILE's bent table as CSV (RFC 4180), the heading row first\n"
    "  tarnwick table FILE --add ROWS.csv --output NEW.ebnt\n"
    "                                    FILE with the rows of ROWS.csv added through Add's checks,\n"
    "                                    written to NEW.ebnt; a refused row writes nothing\n"
    "  tarnwick table FILE --replace ROWS.csv --output NEW.ebnt\n"
    "                                    the same, but a row whose bent is in the table replaces it\n"
    "                                    through Replace's checks (the revision of a spreadsheet)\n"
    "  tarnwick diff A.ebnt B.ebnt [--names]\n"
    "                                    every input (by its prompt, both values in the units) and bent\n"
    "                                    that differs; --names adds the control names; exit 0 the same,\n"
    "                                    1 different, 2 a file that does not read\n"
    "  tarnwick recover --list           the unsaved work put aside before Open, New, Exit or a reload\n"
    "                                    discarded it, newest first: number, time, project, path, bents\n"
    "  tarnwick recover N --output FILE  copy N of that list written as a project file\n"
    "  tarnwick new --list               the templates: name, bent type, where it lies\n"
    "  tarnwick new --template NAME --output FILE\n"
    "                                    a new project from template NAME, its bent table empty\n"
    "  tarnwick replay SCRIPT            play a script of form events (\"-\" reads standard input)\n"
    "  tarnwick draw FILE [--bent N] OUT the bent drawn from FILE's inputs (row N of the bent table for the\n"
    "                                    elevation, default 1) as SVG, PDF or PNG by OUT's suffix\n"
    "  tarnwick report FILE OUT.pdf      the checker's report of FILE: title block, inputs, bent table\n"
    "                                    and drawings, on the locale's paper\n"
    "  tarnwick view DRAWING [--export OUT]\n"
    "                                    the engine's drawing (a DGN file) in a window, or written\n"
    "                                    without one as SVG, PDF or PNG by OUT's suffix\n"
    "  tarnwick DRAWING.dgn              the same window (how the desktop opens a drawing)\n"
    "  tarnwick --help | --version\n"
    "\n"
    "Options:\n"
    "  --units feet-inches|decimal-feet  how draw, report and diff show lengths; default: as the\n"
    "                                    window's View > Units shows them (feet and inches at first)\n"
    "  --program-dir DIR                 the program folder (Ebent.ini, the engine library,\n"
    "                                    Drawing/, help); default: EXEDIR/" TW_PROGRAM_DIR_FROM_BIN "\n"
    "                                    if it exists, else EXEDIR, the executable's folder\n";

// Installed, the program folder sits beside bin/; in the build tree it is the
// executable's own folder.
std::string defaultProgramDir() {
    const QString exeDir = QString::fromStdString(tw::executableDir());
    const QString installed = QDir::cleanPath(exeDir + QStringLiteral("/" TW_PROGRAM_DIR_FROM_BIN));
    return (QDir(installed).exists() ? installed : exeDir).toStdString();
}

bool isCommand(const std::string& arg) {
    return arg == "check" || arg == "dump" || arg == "run" || arg == "replay" || arg == "view" || arg == "draw" ||
           arg == "report" || arg == "table" || arg == "diff" || arg == "recover" || arg == "new" ||
           arg.rfind('-', 0) == 0;
}

// A whole, positive number of seconds; 0 for anything else.
int seconds(const std::string& text) {
    int value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size() && value > 0 ? value : 0;
}

struct Arguments {
    std::vector<std::string> words; // the command and its arguments, options taken out
    std::optional<std::string> programDir, timeout, units;
    bool names = false;
};

// Takes the options out of the command line; nothing when one lacks its value.
std::optional<Arguments> parse(int argc, char** argv) {
    Arguments a;
    struct Option {
        const char* name;
        const char* needs;
        std::optional<std::string>& value;
    };
    const Option options[] = {{"--program-dir", "a folder", a.programDir},
                              {"--timeout", "a number of seconds", a.timeout},
                              {"--units", "feet-inches or decimal-feet", a.units}};
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        bool taken = word == "--names";
        a.names = a.names || taken;
        for (const auto& o : options) {
            const std::string name = o.name;
            if (word == name) {
                if (i + 1 >= argc) {
                    std::cerr << "tarnwick: " << name << " needs " << o.needs << '\n' << kUsage;
                    return std::nullopt;
                }
                o.value = argv[++i];
                taken = true;
            } else if (word.rfind(name + "=", 0) == 0) {
                o.value = word.substr(name.size() + 1);
                taken = true;
            }
        }
        if (!taken) a.words.push_back(word);
    }
    return a;
}

// The folder given, or the default, which needs the application's path.
std::string programDirOf(int& argc, char** argv, const Arguments& a) {
    if (a.programDir) return *a.programDir;
    QCoreApplication probe(argc, argv);
    return defaultProgramDir();
}

int help() {
    std::cout << kUsage << "\nReplay script lines (one event a line):\n ";
    for (const auto& verb : tw::Replay::verbNames())
        std::cout << ' ' << verb;
    std::cout << '\n';
    return 0;
}

// The window, opening `words[0]` when one is given (the desktop's way to open a project).
int window(int& argc, char** argv, Arguments& a) {
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") && !std::getenv("QT_QPA_PLATFORM")) {
        std::cerr << "tarnwick: no display found, so the window cannot open. The headless commands work:\n" << kUsage;
        return 1;
    }
    const std::string programDir = programDirOf(argc, argv, a);
    std::string file;
    if (!a.words.empty()) {
        // Absolute and without "./": Run derives its file names from the whole path.
        std::error_code error;
        const auto path = std::filesystem::absolute(a.words[0], error);
        file = error ? a.words[0] : path.lexically_normal().string();
    }
    return tw::runGui(argc, argv, programDir, file);
}

// The headless commands.
int command(int& argc, char** argv, const Arguments& a) {
    const std::string& cmd = a.words[0];
    const std::vector<std::string> rest(a.words.begin() + 1, a.words.end());
    const auto qapp = cmd == "draw" || cmd == "report" ? tw::paintingApplication(argc, argv)
                                                       : std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Norvale"));
    tw::CliOptions opt;
    opt.programDir = a.programDir ? *a.programDir : defaultProgramDir();
    if (a.timeout) {
        opt.timeLimit = seconds(*a.timeout);
        if (cmd != "run" || opt.timeLimit <= 0) {
            std::cerr << "tarnwick: --timeout takes a whole number of seconds, and goes with run only\n" << kUsage;
            return 2;
        }
    }
    if (a.units) {
        opt.units = tw::unitsNamed(*a.units);
        if (!opt.units || (cmd != "draw" && cmd != "report" && cmd != "diff")) {
            std::cerr << "tarnwick: --units is feet-inches or decimal-feet, and goes with draw, report and diff\n"
                      << kUsage;
            return 2;
        }
    }
    opt.names = a.names;
    if (a.names && cmd != "diff") {
        std::cerr << "tarnwick: --names goes with diff only\n" << kUsage;
        return 2;
    }
    // The commands end their own failures in messages; this is the last resort.
    try {
        if (cmd == "replay" && rest.size() == 1) return tw::cliReplay(opt, rest[0]);
        if (cmd == "check" && !rest.empty()) return tw::cliCheck(opt, rest);
        if (cmd == "dump" && rest.size() == 1) return tw::cliDump(opt, rest[0]);
        if (cmd == "run" && rest.size() == 1) return tw::cliRun(opt, rest[0]);
        if (cmd == "table" && !rest.empty()) return tw::cliTable(opt, rest);
        if (cmd == "diff" && rest.size() == 2) return tw::cliDiff(opt, rest[0], rest[1]);
        if (cmd == "recover" && !rest.empty()) return tw::cliRecover(opt, rest);
        if (cmd == "new" && !rest.empty()) return tw::cliNew(opt, rest);
        if (cmd == "draw" && (rest.size() == 2 || rest.size() == 4)) return tw::cliDraw(opt, rest);
        if (cmd == "report" && rest.size() == 2) return tw::cliReport(opt, rest[0], rest[1]);
    } catch (const std::bad_alloc&) {
        std::cerr << "tarnwick: " << cmd << " needs more memory than the program may use.\n";
        return 1;
    } catch (const std::exception& e) {
        std::cerr << "tarnwick: internal error: " << e.what() << '\n';
        return 1;
    }
    std::cerr << "tarnwick: unknown command or wrong arguments: " << cmd << '\n' << kUsage;
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    // The engine runs in a child of ours so that a failing engine cannot take the program with it.
    if (const auto engine = tw::engineCall(argc, argv)) return *engine;
    auto parsed = parse(argc, argv);
    if (!parsed) return 2;
    Arguments& a = *parsed;
    const std::vector<std::string>& words = a.words;
    if (!words.empty() && (words[0] == "--help" || words[0] == "-h")) return help();
    if (!words.empty() && words[0] == "--version") {
        std::cout << "tarnwick " << TW_VERSION_STRING << '\n' << TW_LICENSE_LINE << '\n';
        return 0;
    }
    if (!words.empty() && words[0] == "view")
        return tw::runView(argc, argv, programDirOf(argc, argv, a), {words.begin() + 1, words.end()});
    if (words.size() == 1 && tw::isDrawingFileName(words[0]))
        return tw::runView(argc, argv, programDirOf(argc, argv, a), words);
    if (words.empty() || (words.size() == 1 && !isCommand(words[0]))) return window(argc, argv, a);
    return command(argc, argv, a);
}
