#include "core/form/ShellCommands.h"

#include "core/App.h"
#include "core/form/Forms.h"
#include "core/form/MainForm.h"

namespace tw {

namespace {

// How far the About box sits inside the main window's top left corner.
constexpr int kAboutOffset = 1200;

} // namespace

void showSplash(App& app) {
    Form& f = app.form(kFrmSplash);
    f.left = (app.user.screenWidthTwips() - f.width) / 2;
    f.top = (app.user.screenHeightTwips() - f.height) / 2;
    app.showForm(kFrmSplash);
}

void installShellCommands(App& app) {
    app.on(kFrmSplash, Ctl::cmdOK, Event::Click, [](App& a, EventArgs&) {
        a.closeForm(kFrmSplash);
        loadMainForm(a);
        a.showForm(kFrmMain);
    });
    app.on(kFrmMain, Ctl::mnuAbout, Event::Click, [](App& a, EventArgs&) {
        Form& about = a.form(kFrmAbout);
        about.left = a.main().left + kAboutOffset;
        about.top = a.main().top + kAboutOffset;
        a.showForm(kFrmAbout);
    });
    app.on(kFrmAbout, Ctl::cmdOK, Event::Click, [](App& a, EventArgs&) { a.closeForm(kFrmAbout); });
    app.on(kFrmMain, Ctl::mnuTarnwickHelp, Event::Click, [](App& a, EventArgs&) {
        const std::string guide = a.programDir + "/" + kHelpFile;
        // Where the desktop has no browser, the guide is shown inside the program.
        if (!a.system.shellOpen(guide, "", a.programDir)) a.user.showDocument(guide);
    });
}

} // namespace tw
