#include "core/form/FileCommands.h"

#include "core/App.h"
#include "core/form/Forms.h"
#include "core/form/MainForm.h"
#include "core/inputfile/InputFile.h"

namespace tw {

namespace {

// A cancelled file dialog ends its command quietly, as the old dialog's
// cancel error did.
std::string chooseFile(App& app, const FileDialogRequest& request) {
    auto path = app.user.fileDialog(request);
    if (!path) throw RuntimeError(err::kCancel, "Cancel was selected.");
    app.dialogFileName = *path;
    return *path;
}

FileDialogRequest saveDialog(const char* filter, const char* defaultExt, const std::string& fileName) {
    FileDialogRequest r;
    r.kind = FileDialogKind::Save;
    r.title = "Save As";
    r.filter = filter;
    r.defaultExt = defaultExt;
    r.overwritePrompt = true;
    r.fileName = fileName;
    return r;
}

bool writeAndCaption(App& app, const std::string& path) {
    if (!writeInputFile(app, path)) return false;
    setMainCaption(app, true);
    // A file the pile-box check cut short holds less than the form: the
    // project is still unsaved, and kept safe as such.
    if (app.saveFailed)
        app.markUnsaved();
    else
        app.markSaved();
    return true;
}

void newProject(App& app) {
    if (app.message("Do you want to clear the form and start over?", "Clear Form Confirmation", MsgButtons::YesNo,
                    MsgIcon::None) == MsgAnswer::Yes)
        resetForm(app);
}

void readProject(App& app, const std::string& path) {
    resetForm(app);
    if (readInputFile(app, path)) {
        setMainCaption(app, true);
        app.markSaved();
    } else
        resetForm(app); // never leave a half-read project on the form
}

void openProject(App& app) {
    FileDialogRequest r;
    r.kind = FileDialogKind::Open;
    r.title = "open";
    r.filter = "IBnt Files(*.ebnt)|*.ebnt";
    r.defaultExt = "ebnt";
    const std::string previous = app.dialogFileName;
    r.fileName = previous;
    const std::string path = chooseFile(app, r);
    if (!hasCurrentFile(app) || path != previous) {
        readProject(app, path);
        return;
    }
    if (app.message("File is already open.  Revert to last saved copy?", "Open Confirmation", MsgButtons::YesNo,
                    MsgIcon::None) == MsgAnswer::Yes)
        readProject(app, path);
}

// False when the file could not be written at all.
bool saveSteps(App& app) {
    if (!hasCurrentFile(app)) {
        const std::string path =
            chooseFile(app, saveDialog("Tarnwick Input Files (*.ebnt)|*.ebnt", "ibnt", app.dialogFileName));
        return writeAndCaption(app, path);
    }
    if (app.message("Save file as " + app.dialogFileName, "Confirm Save", MsgButtons::YesNo, MsgIcon::None) ==
        MsgAnswer::Yes)
        return writeAndCaption(app, app.dialogFileName);
    const std::string path =
        chooseFile(app, saveDialog("Concrete Bent Input Files (*.ebnt)|*.ebnt", "ebnt", app.dialogFileName));
    return writeAndCaption(app, path);
}

} // namespace

bool saveProject(App& app) {
    try {
        if (!saveSteps(app)) return false;
    } catch (const RuntimeError& e) {
        if (e.number() == err::kCancel) return false;
        app.reportError(e, "Error Importing Input File(save)");
        return false;
    }
    return !app.saveFailed;
}

void installFileCommands(App& app) {
    app.on(kFrmMain, Ctl::mnuNew, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { newProject(a); }); });
    app.on(kFrmMain, Ctl::mnuOpen, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { openProject(a); }); });
    for (Ctl save : {Ctl::mnuSave, Ctl::mnuSaveAs})
        app.on(kFrmMain, save, Event::Click, [](App& a, EventArgs&) { saveProject(a); });
}

} // namespace tw
