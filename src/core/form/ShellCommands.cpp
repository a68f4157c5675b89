#include "core/form/ShellCommands.h"

#include "core/App.h"
#include "core/form/MainForm.h"

namespace tw {

namespace {

// How far the About box sits inside the main window's top left corner.
constexpr int kAboutOffset = 1200;

void show(App& app, const char* name) {
    Form& f = app.form(name);
    f.loaded = true;
    app.ports.windowShow(name, f.caption);
}

void close(App& app, const char* name) {
    Form& f = app.form(name);
    if (!f.loaded) return;
    f.loaded = false;
    app.ports.windowClose(name);
}

} // namespace

void showSplash(App& app) {
    Form& f = app.form(kFrmSplash);
    f.left = (app.ports.screenWidthTwips() - f.width) / 2;
    f.top = (app.ports.screenHeightTwips() - f.height) / 2;
    show(app, kFrmSplash);
}

void installShellCommands(App& app) {
    app.on(kFrmSplash, Ctl::cmdOK, Event::Click, [](App& a, EventArgs&) {
        close(a, kFrmSplash);
        loadMainForm(a);
        show(a, kFrmMain);
    });
    app.on(kFrmMain, Ctl::mnuAbout, Event::Click, [](App& a, EventArgs&) {
        Form& about = a.form(kFrmAbout);
        about.left = a.main().left + kAboutOffset;
        about.top = a.main().top + kAboutOffset;
        show(a, kFrmAbout);
    });
    app.on(kFrmAbout, Ctl::cmdOK, Event::Click, [](App& a, EventArgs&) { close(a, kFrmAbout); });
    app.on(kFrmMain, Ctl::mnuTarnwickHelp, Event::Click,
           [](App& a, EventArgs&) { a.ports.shellOpen(a.programDir + "/" + kHelpFile, "", a.programDir); });
}

} // namespace tw
