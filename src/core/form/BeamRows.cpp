#include "core/form/MainForm.h"

#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/form/Forms.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

constexpr int kRows = 20;
constexpr int kRowsWithoutScrolling = 10;

void layoutStepRows(App& app, int n) {
    // The last count is remembered only to free the cap step that was the
    // closing field under it.
    const int previous = static_cast<int>(leadingNumber(app.system.readSetting("Usage", "UsageInfo", "LastTime")));
    app.system.writeSetting("Usage", "UsageInfo", "LastTime", std::to_string(n));
    for (Ctl c : {Ctl::txtCapStep, Ctl::lblCapStep, Ctl::txtEStepPI, Ctl::lblEStepPI})
        for (int i = 0; i < kRows; ++i)
            app.setVisible(CtlId(c, i), false);
    if (previous >= 1 && previous <= kRows) {
        Control& old = app.ctl(CtlId(Ctl::txtCapStep, previous - 1));
        old.locked = false;
        old.color = BackColor::Normal;
    }
    for (int i = 0; i < n && i < kRows; ++i) {
        for (Ctl c : {Ctl::txtCapStep, Ctl::lblCapStep, Ctl::txtEStepPI, Ctl::lblEStepPI})
            app.setVisible(CtlId(c, i), true);
        app.setCaption(CtlId(Ctl::lblCapStep, i), std::to_string(i + 1));
        app.setCaption(CtlId(Ctl::lblEStepPI, i), std::to_string(i + 1));
    }
}

void showAngleRow(App& app, int i, bool visible) {
    for (Ctl c : {Ctl::lblBeamAngleIndex, Ctl::txtBeamangleH, Ctl::lblBeamAngleH, Ctl::txtBeamangleM,
                  Ctl::lblBeamAngleM, Ctl::txtBeamangleS, Ctl::lblBeamAngleS})
        app.setVisible(CtlId(c, i), visible);
    if (!visible) return;
    app.setCaption(CtlId(Ctl::lblBeamAngleIndex, i), std::to_string(i + 1));
    app.setCaption(CtlId(Ctl::lblBeamAngleH, i), kDegreeMark);
    app.setCaption(CtlId(Ctl::lblBeamAngleM, i), kMinuteMark);
    app.setCaption(CtlId(Ctl::lblBeamAngleS, i), kSecondMark);
}

void layoutAngleRows(App& app, const std::string& sameAngle, int n) {
    if (sameAngle == "No") {
        app.setVisible(Ctl::vbarscrollerBeamAngle, true);
        for (int i = 0; i < kRows; ++i)
            showAngleRow(app, i, false);
        for (int i = 0; i < n && i < kRows; ++i)
            showAngleRow(app, i, true);
    } else if (sameAngle == "Yes") {
        app.setVisible(Ctl::vbarscrollerBeamAngle, false);
        app.setTop(Ctl::picInnerBeamAngle, 0);
        for (int i = 1; i < kRows; ++i)
            showAngleRow(app, i, false);
        showAngleRow(app, 0, true);
    }
}

void layoutCenterlineRows(App& app, int n) {
    for (int i = 1; i <= 19; ++i)
        app.setVisible(CtlId(Ctl::txtCenterline, i), false);
    for (int i = 1; i <= 18; ++i)
        app.setVisible(CtlId(Ctl::lblCenterline, i), false);
    for (int i = 1; i <= n - 1 && i <= 19; ++i)
        app.setVisible(CtlId(Ctl::txtCenterline, i), true);
    for (int i = 0; i <= n - 2 && i <= 18; ++i) {
        app.setVisible(CtlId(Ctl::lblCenterline, i), true);
        app.setCaption(CtlId(Ctl::lblCenterline, i), std::to_string(i + 1));
    }
}

} // namespace

void applyBeamAngleRows(App& app) { layoutAngleRows(app, app.text(Ctl::cboAngleType), beamCount(app)); }

void applyBeamCount(App& app) {
    const int n = beamCount(app);
    const bool scrolling = n > kRowsWithoutScrolling;
    if (!scrolling) {
        app.setTop(Ctl::picInnerCap, 0);
        app.setTop(Ctl::picInnerStep, 0);
        app.ctl(Ctl::vbarscrollerCapStep).value = 0;
        app.ctl(Ctl::vbarscrollerStepElevation).value = 0;
    }
    app.setVisible(Ctl::vbarscrollerCapStep, scrolling);
    app.setVisible(Ctl::vbarscrollerStepElevation, scrolling);
    layoutStepRows(app, n);
    applyBeamAngleRows(app);
    layoutCenterlineRows(app, n);
    relayoutColumns(app);
}

void installBeamRows(App& app) {
    app.on(kFrmMain, Ctl::cboNoBeam, Event::Change, [](App& a, EventArgs&) { applyBeamCount(a); });
    app.on(kFrmMain, Ctl::cboAngleType, Event::Change, [](App& a, EventArgs&) { applyBeamAngleRows(a); });
}

} // namespace tw
