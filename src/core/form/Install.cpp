// The handler table: which routine answers which event of which control.
#include "core/App.h"
#include "core/form/Forms.h"
#include "core/form/MainForm.h"
#include "core/form/Toolbar.h"

namespace tw {

namespace {

void installPanes(App& app) {
    const std::pair<Ctl, Ctl> panes[] = {{Ctl::vbarscrollerCapStep, Ctl::picInnerCap},
                                         {Ctl::vbarscrollerStepElevation, Ctl::picInnerStep},
                                         {Ctl::vbarscrollerWingwall, Ctl::picInnerWingWall},
                                         {Ctl::vbarscrollerBeamAngle, Ctl::picInnerBeamAngle}};
    for (const auto& [bar, inner] : panes) {
        // The bar runs from 0 down to a negative Max, so its value is the inner top as it stands.
        auto follow = [bar = bar, inner = inner](App& a, EventArgs&) { a.setTop(inner, a.ctl(bar).value); };
        app.on(kFrmMain, bar, Event::Change, follow);
        app.on(kFrmMain, bar, Event::Scroll, follow);
    }
}

void installShell(App& app) {
    app.on(kFrmMain, Ctl::mnuExit, Event::Click, [](App& a, EventArgs&) { unloadMainForm(a); });
    // Each toolbar button does what the menu item of the same name does.
    app.on(kFrmMain, Ctl::Toolbar1, Event::Click, [](App& a, EventArgs& e) {
        for (const auto& [key, menu] : kToolbarButtons) {
            if (e.text != key) continue;
            a.fire(menu, Event::Click);
            return;
        }
    });
}

} // namespace

void installHandlers(App& app) {
    installNumericEntry(app);
    installSections(app);
    installBeamRows(app);
    installPanes(app);
    installShell(app);
    installFileCommands(app);
    installBentTable(app);
    installRun(app);
    installOutputs(app);
    installShellCommands(app);
}

} // namespace tw
