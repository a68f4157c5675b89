// SPDX-License-Identifier: Apache-2.0
#include "core/run/Run.h"

#include "core/EngineListing.h"
#include "core/form/FileCommands.h"
#include "core/form/Session.h"
#include "core/model/Numeric.h"

#include <cctype>
#include <filesystem>
#include <optional>

namespace tw {

namespace {

constexpr size_t kPaddedLength = 128;

std::string stripTrailingBlanks(std::string s) {
    while (!s.empty() && s.back() == ' ')
        s.pop_back();
    return s;
}

// The user sees what Run waits for, and may cancel it, for as long as it lasts.
class Waiting {
  public:
    Waiting(Session& s, const std::string& what) : s_(s) {
        s.user.waitBegins(what, [&s] { s.system.cancelWaits(); });
    }
    ~Waiting() { s_.user.waitEnds(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    Session& s_;
};

// A program that did not end by itself ends Run; one left behind by Exit ends it without a word.
void stopWhenEndedEarly(const Session& s, const WaitEnd& end, const std::string& program) {
    if (s.mainUnloaded()) throw RuntimeError(err::kCancel, "The program is ending");
    if (end.cancelled)
        throw RuntimeError(err::kUserInterrupt, "User interrupt occurred: Run was cancelled, and " + program +
                                                    " was ended before it finished");
    if (end.timedOutAfter > 0)
        throw RuntimeError(err::kTimeout, "Timeout occurred: " + program + " was still running after " +
                                              std::to_string(end.timedOutAfter) +
                                              (end.timedOutAfter == 1 ? " second" : " seconds") + " and was ended");
}

// When the drawing last changed, to tell a new drawing from an old one left by an earlier Run.
std::optional<std::filesystem::file_time_type> drawingStamp(const std::string& drawing) {
    std::error_code ec;
    const auto t = std::filesystem::last_write_time(drawing, ec);
    if (ec) return std::nullopt;
    return t;
}

enum class Drawing { New, Unchanged, Missing };

// What the user should know about a batch program that did not do its work; empty when it did.
std::string batchWarning(const ProcessResult& r, Drawing drawing, const std::string& path) {
    std::string said;
    if (r.crashed)
        said = "The drawing batch program stopped unexpectedly (it crashed)";
    else if (r.exitCode != 0)
        said = "The drawing batch program ended with exit status " + std::to_string(r.exitCode);
    if (drawing == Drawing::New) return said.empty() ? said : said + "; the drawing " + path + " may be incomplete";
    return (said.empty() ? "The drawing batch program" : said + " and") +
           (drawing == Drawing::Missing ? " left no drawing: " : " left no new drawing: ") + path;
}

namespace fs = std::filesystem;

fs::path whole(const std::string& path) {
    std::error_code ec;
    const fs::path p = fs::absolute(path, ec);
    return (ec ? fs::path(path) : p).lexically_normal();
}

// Two names of one file: the same file on disk, or the same path once made whole.
bool sameFile(const std::string& a, const std::string& b) {
    std::error_code ec;
    return fs::equivalent(a, b, ec) || whole(a) == whole(b);
}

// The engine takes each name without the blanks it is padded with, so a
// project whose name ends in one would be read from another file.
void refuseBlankEnd(const std::string& input) {
    if (input.empty() || input.back() != ' ') return;
    throw RuntimeError(err::kInvalidCall, "Invalid procedure call or argument (the file name \"" + input +
                                              "\" ends in a blank; the engine reads names without their trailing "
                                              "blanks and would compute \"" +
                                              stripTrailingBlanks(input) + "\" instead: rename the project)");
}

// Run would empty a file it reads: the project, or the engine's own files.
void refuseOutputsThatAreInputs(const Session& s, const std::array<std::string, 10>& names) {
    const std::pair<std::string, std::string> inputs[] = {
        {names[0], "the project itself"},
        {s.programDir + "/Ebent.ini", "the engine's settings"},
        {s.programDir + "/libcalbnt.so", "the engine"},
    };
    for (size_t i = 1; i < names.size(); ++i)
        for (const auto& [path, what] : inputs)
            if (sameFile(names[i], path))
                throw RuntimeError(err::kFileAccess, "Path/File access error: the output " + names[i] + " is " + what +
                                                         " (" + path + "), which Run reads; no output was emptied");
}

// Outputs that the name's first dot sends out of the project's folder may
// meet another project's files there: each is put aside before it is emptied.
// Where they went, said once they are emptied; empty when in the project's folder.
std::string putAsideOutsideFiles(Session& s, const std::array<std::string, 10>& names) {
    const fs::path folder = whole(runBaseName(names[0])).parent_path();
    if (folder == whole(names[0]).parent_path()) return {};
    std::string keptIn;
    for (size_t i = 1; i < names.size(); ++i) {
        const PutAside kept = s.system.putAsideFile(names[i]);
        if (!kept.error.empty())
            throw RuntimeError(err::kFileAccess, "Path/File access error: the output " + names[i] +
                                                     " lies outside the project's folder and could not be put aside "
                                                     "before Run empties it (" +
                                                     kept.error + "); no output was emptied");
        if (kept.kept) keptIn = fs::path(kept.path).parent_path().string();
    }
    return "The engine's outputs are in " + folder.string() + ", where the project's name is cut at its first \".\"" +
           (keptIn.empty() ? std::string() : "; the files there before were put aside in " + keptIn);
}

void steps(Session& s) {
    const std::string input = s.dialogFileName();
    refuseBlankEnd(input);
    const std::string base = runBaseName(input);
    s.setRunOutputBase(base);

    std::array<std::string, 10> names;
    names[0] = input;
    for (size_t i = 0; i < kOutputSuffixes.size(); ++i)
        names[i + 1] = base + kOutputSuffixes[i];
    refuseOutputsThatAreInputs(s, names);
    const std::string where = putAsideOutsideFiles(s, names);
    // All or none: an output that is no plain file of its own is refused before any is emptied.
    if (const WriteResult emptied = s.system.emptyFiles({names.begin() + 1, names.end()}); emptied.errorNumber)
        throw RuntimeError(emptied.errorNumber, emptied.error);
    // The engine takes the outputs in its own order: script, concrete, rebar,
    // general, bent, elevation, beam, pile, quantities -- the order above.
    for (auto& n : names)
        n = padName(n);

    s.notice(where);
    s.user.setBusyCursor(true);
    EngineResult engine;
    {
        Waiting w(s, "Running the engine\u2026");
        engine = s.system.callEngine(s.programDir, names);
    }
    stopWhenEndedEarly(s, engine.end, "the engine");
    if (!engine.ok) throw RuntimeError(engine.errorNumber ? engine.errorNumber : err::kDllNotFound, engine.error);

    const std::string ini = s.programDir + "/Ebent.ini";
    // A missing file reads as no setting, as a private-profile read has it; a
    // pipe, a device or a huge file is named for what it is.
    if (const ReadResult settings = s.system.readFile(ini, kMaxIniBytes);
        settings.errorNumber && settings.errorNumber != err::kFileNotFound)
        throw RuntimeError(settings.errorNumber, settings.error);
    const std::string batch = s.system.readIni(ini, "microstation", "dgnbatch", "");
    // Without it the command would begin with the drawing script's own name.
    if (trim(batch).empty())
        throw RuntimeError(err::kFileNotFound,
                           "The drawing batch program is not set: [microstation] dgnbatch in " + ini);
    const std::string drawingBase = runBaseName(s.project().currentFile.empty() ? input : s.project().currentFile);
    // The setting is the user's program and its options; the script's name is one word, whatever it holds.
    const ProgramCall command{batch, {drawingBase + "e.sif"}};
    const std::string drawing = drawingBase + "e.dgn";
    const auto before = drawingStamp(drawing);
    ProcessResult started;
    {
        Waiting w(s, "Waiting for the drawing batch program\u2026");
        started = s.system.startAndWait(command);
    }
    stopWhenEndedEarly(s, started.end, "the drawing batch program");
    if (!started.started)
        throw RuntimeError(err::kFileNotFound, "File not found: the drawing batch program could not be started (" +
                                                   (started.error.empty() ? command.commandLine() : started.error) +
                                                   ")");
    s.user.setBusyCursor(false);

    s.message("The program has finished running.\r\n\r\nClick the printer icon to preview or print the files.",
              kAppTitle, MsgButtons::OK, MsgIcon::None);
    const auto after = drawingStamp(drawing);
    const Drawing drew = !after ? Drawing::Missing : after == before ? Drawing::Unchanged : Drawing::New;
    std::string warning = batchWarning(started, drew, drawing);
    // The engine tells of input it could not use only in its concrete data listing:
    // the status bar says so first, then what the batch program left undone.
    const std::string listing = base + ".ebntc";
    if (!concreteDataIsClean(s.system, listing)) {
        const std::string engine = "The engine reported an error: see its listing " + listing;
        if (!warning.empty()) warning[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(warning[0])));
        warning = warning.empty() ? engine : engine + "; " + warning;
    }
    if (!warning.empty()) s.notice(where.empty() ? warning : warning + ". " + where);

    std::error_code ec;
    std::filesystem::remove(stripTrailingBlanks(names[1]), ec);
    if (ec)
        throw RuntimeError(err::kPermissionDenied, "Permission denied: cannot delete " + stripTrailingBlanks(names[1]));
}

} // namespace

std::string runBaseName(const std::string& inputPath) {
    const auto dot = inputPath.find('.');
    if (dot == std::string::npos)
        throw RuntimeError(err::kInvalidCall,
                           "Invalid procedure call or argument (the file name " + inputPath + " has no \".\")");
    return inputPath.substr(0, dot);
}

std::string padName(const std::string& name) {
    return name.size() >= kPaddedLength ? name : name + std::string(kPaddedLength - name.size(), ' ');
}

void runAfterSave(Session& s) {
    try {
        steps(s);
    } catch (const RuntimeError& e) {
        s.user.setBusyCursor(false);
        if (e.number() == err::kCancel) return;
        s.reportError(e, "Error Importing Input File");
    }
}

void runProject(Session& s) {
    if (!saveProject(s)) return;
    runAfterSave(s);
}

} // namespace tw
