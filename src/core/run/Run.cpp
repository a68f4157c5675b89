#include "core/run/Run.h"

#include "core/App.h"
#include "core/form/FileCommands.h"
#include "core/form/Forms.h"
#include "core/model/Numeric.h"

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
    Waiting(App& app, const std::string& what) : app_(app) {
        app.user.waitBegins(what, [&app] { app.system.cancelWaits(); });
    }
    ~Waiting() { app_.user.waitEnds(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    App& app_;
};

// A program that did not end by itself ends Run; one left behind by Exit ends it without a word.
void stopWhenEndedEarly(const App& app, const WaitEnd& end, const std::string& program) {
    if (app.mainUnloaded) throw RuntimeError(err::kCancel, "The program is ending");
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

void steps(App& app) {
    const std::string input = app.dialogFileName;
    const std::string base = runBaseName(input);
    app.runOutputBase = base;

    std::array<std::string, 10> names;
    names[0] = input;
    for (size_t i = 0; i < kOutputSuffixes.size(); ++i)
        names[i + 1] = base + kOutputSuffixes[i];
    // All or none: an output that is no plain file of its own is refused before any is emptied.
    if (const WriteResult emptied = app.system.emptyFiles({names.begin() + 1, names.end()}); emptied.errorNumber)
        throw RuntimeError(emptied.errorNumber, emptied.error);
    // The engine takes the outputs in its own order: script, concrete, rebar,
    // general, bent, elevation, beam, pile, quantities -- the order above.
    for (auto& n : names)
        n = padName(n);

    app.user.notice("");
    app.user.setBusyCursor(true);
    EngineResult engine;
    {
        Waiting w(app, "Running the engine\u2026");
        engine = app.system.callEngine(app.programDir, names);
    }
    stopWhenEndedEarly(app, engine.end, "the engine");
    if (!engine.ok) throw RuntimeError(engine.errorNumber ? engine.errorNumber : err::kDllNotFound, engine.error);

    const std::string ini = app.programDir + "/Ebent.ini";
    const std::string batch = app.system.readIni(ini, "microstation", "dgnbatch", "");
    // Without it the command would begin with the drawing script's own name.
    if (trim(batch).empty())
        throw RuntimeError(err::kFileNotFound,
                           "The drawing batch program is not set: [microstation] dgnbatch in " + ini);
    const std::string drawingBase = runBaseName(app.currentFile.empty() ? input : app.currentFile);
    // The setting is the user's program and its options; the script's name is one word, whatever it holds.
    const ProgramCall command{batch, {drawingBase + "e.sif"}};
    const std::string drawing = drawingBase + "e.dgn";
    const auto before = drawingStamp(drawing);
    ProcessResult started;
    {
        Waiting w(app, "Waiting for the drawing batch program\u2026");
        started = app.system.startAndWait(command);
    }
    stopWhenEndedEarly(app, started.end, "the drawing batch program");
    if (!started.started)
        throw RuntimeError(err::kFileNotFound, "File not found: the drawing batch program could not be started (" +
                                                   (started.error.empty() ? command.commandLine() : started.error) +
                                                   ")");
    app.user.setBusyCursor(false);

    app.message("The program has finished running.\r\n\r\nClick the printer icon to preview or print the files.",
                kAppTitle, MsgButtons::OK, MsgIcon::None);
    const auto after = drawingStamp(drawing);
    const Drawing drew = !after ? Drawing::Missing : after == before ? Drawing::Unchanged : Drawing::New;
    const std::string warning = batchWarning(started, drew, drawing);
    if (!warning.empty()) app.user.notice(warning);

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

void runAfterSave(App& app) {
    try {
        steps(app);
    } catch (const RuntimeError& e) {
        app.user.setBusyCursor(false);
        if (e.number() == err::kCancel) return;
        app.reportError(e, "Error Importing Input File");
    }
}

void runProject(App& app) {
    if (!saveProject(app)) return;
    runAfterSave(app);
}

void installRun(App& app) {
    app.on(kFrmMain, Ctl::mnuRun, Event::Click, [](App& a, EventArgs&) { runProject(a); });
}

} // namespace tw
