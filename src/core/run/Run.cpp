#include "core/run/Run.h"

#include "core/App.h"
#include "core/form/FileCommands.h"
#include "core/form/Forms.h"

#include <filesystem>
#include <fstream>

namespace tw {

namespace {

constexpr size_t kPaddedLength = 128;

std::string stripTrailingBlanks(std::string s) {
    while (!s.empty() && s.back() == ' ')
        s.pop_back();
    return s;
}

void emptyFile(const std::string& name) {
    std::ofstream out(name, std::ios::binary | std::ios::trunc);
    if (!out) throw RuntimeError(err::kFileAccess, "Path/File access error: cannot write " + name);
}

void steps(App& app) {
    const std::string input = app.dialogFileName;
    const std::string base = runBaseName(input);
    app.runOutputBase = base;

    std::array<std::string, 10> names;
    names[0] = input;
    for (size_t i = 0; i < kOutputSuffixes.size(); ++i) {
        const std::string out = base + kOutputSuffixes[i];
        emptyFile(out);
        names[i + 1] = out;
    }
    // The engine takes the outputs in its own order: script, concrete, rebar,
    // general, bent, elevation, beam, pile, quantities -- the order above.
    for (auto& n : names)
        n = padName(n);

    app.user.setBusyCursor(true);
    const EngineResult engine = app.system.callEngine(app.programDir, names);
    if (!engine.ok) throw RuntimeError(engine.errorNumber ? engine.errorNumber : err::kDllNotFound, engine.error);

    const std::string batch = app.system.readIni(app.programDir + "/Ebent.ini", "microstation", "dgnbatch", "");
    const std::string command =
        batch + " \"" + runBaseName(app.currentFile.empty() ? input : app.currentFile) + "e.sif\"";
    const ProcessResult started = app.system.startAndWait(command);
    if (!started.started)
        throw RuntimeError(err::kFileNotFound, "File not found: the drawing batch program could not be started (" +
                                                   (started.error.empty() ? command : started.error) + ")");
    app.user.setBusyCursor(false);

    app.message("The program has finished running.\r\n\r\nClick the printer icon to preview or print the files.",
                kAppTitle, MsgButtons::OK, MsgIcon::None);

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
        if (e.number() == err::kCancel) return;
        app.user.setBusyCursor(false);
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
