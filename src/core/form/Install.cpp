// The handler table: which routine answers which event of which control.
#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/form/Forms.h"
#include "core/form/MainForm.h"

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
}

} // namespace

void installHandlers(App& app) {
    app.on(kFrmMain, Ctl::cboTybent, Event::Change, [](App& a, EventArgs&) { relayoutColumns(a); });
    app.on(kFrmMain, Ctl::cboNoBeam, Event::Change, [](App& a, EventArgs&) { relayoutColumns(a); });
    installPanes(app);
    installShell(app);
}

} // namespace tw
