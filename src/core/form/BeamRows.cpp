// SPDX-License-Identifier: Apache-2.0
#include "core/form/MainForm.h"

#include "core/form/Forms.h"
#include "core/form/Session.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

constexpr int kRows = 20;
constexpr int kRowsWithoutScrolling = 10;

void layoutStepRows(Session& s, int n) {
    // The last count is remembered only to free the cap step that was the
    // closing field under it.
    const int previous = static_cast<int>(leadingNumber(s.system.readSetting("Usage", "UsageInfo", "LastTime")));
    s.system.writeSetting("Usage", "UsageInfo", "LastTime", std::to_string(n));
    for (Ctl c : {Ctl::txtCapStep, Ctl::lblCapStep, Ctl::txtEStepPI, Ctl::lblEStepPI})
        for (int i = 0; i < kRows; ++i)
            s.setVisible(CtlId(c, i), false);
    if (previous >= 1 && previous <= kRows) {
        const CtlId old(Ctl::txtCapStep, previous - 1);
        s.setLocked(old, false);
        s.setColor(old, BackColor::Normal);
    }
    for (int i = 0; i < n && i < kRows; ++i) {
        for (Ctl c : {Ctl::txtCapStep, Ctl::lblCapStep, Ctl::txtEStepPI, Ctl::lblEStepPI})
            s.setVisible(CtlId(c, i), true);
        s.setCaption(CtlId(Ctl::lblCapStep, i), std::to_string(i + 1));
        s.setCaption(CtlId(Ctl::lblEStepPI, i), std::to_string(i + 1));
    }
}

void showAngleRow(Session& s, int i, bool visible) {
    for (Ctl c : {Ctl::lblBeamAngleIndex, Ctl::txtBeamangleH, Ctl::lblBeamAngleH, Ctl::txtBeamangleM,
                  Ctl::lblBeamAngleM, Ctl::txtBeamangleS, Ctl::lblBeamAngleS})
        s.setVisible(CtlId(c, i), visible);
    if (!visible) return;
    s.setCaption(CtlId(Ctl::lblBeamAngleIndex, i), std::to_string(i + 1));
    s.setCaption(CtlId(Ctl::lblBeamAngleH, i), kDegreeMark);
    s.setCaption(CtlId(Ctl::lblBeamAngleM, i), kMinuteMark);
    s.setCaption(CtlId(Ctl::lblBeamAngleS, i), kSecondMark);
}

void layoutAngleRows(Session& s, const std::string& sameAngle, int n) {
    if (sameAngle == "No") {
        s.setVisible(Ctl::vbarscrollerBeamAngle, true);
        for (int i = 0; i < kRows; ++i)
            showAngleRow(s, i, false);
        for (int i = 0; i < n && i < kRows; ++i)
            showAngleRow(s, i, true);
    } else if (sameAngle == "Yes") {
        s.setVisible(Ctl::vbarscrollerBeamAngle, false);
        s.setTop(Ctl::picInnerBeamAngle, 0);
        for (int i = 1; i < kRows; ++i)
            showAngleRow(s, i, false);
        showAngleRow(s, 0, true);
    }
}

void layoutCenterlineRows(Session& s, int n) {
    for (int i = 1; i <= 19; ++i)
        s.setVisible(CtlId(Ctl::txtCenterline, i), false);
    for (int i = 1; i <= 18; ++i)
        s.setVisible(CtlId(Ctl::lblCenterline, i), false);
    for (int i = 1; i <= n - 1 && i <= 19; ++i)
        s.setVisible(CtlId(Ctl::txtCenterline, i), true);
    for (int i = 0; i <= n - 2 && i <= 18; ++i) {
        s.setVisible(CtlId(Ctl::lblCenterline, i), true);
        s.setCaption(CtlId(Ctl::lblCenterline, i), std::to_string(i + 1));
    }
}

} // namespace

void applyBeamAngleRows(Session& s) { layoutAngleRows(s, s.text(Ctl::cboAngleType), s.project().beams()); }

void applyBeamCount(Session& s) {
    const int n = s.project().beams();
    const bool scrolling = n > kRowsWithoutScrolling;
    if (!scrolling) {
        s.setTop(Ctl::picInnerCap, 0);
        s.setTop(Ctl::picInnerStep, 0);
        s.setValue(Ctl::vbarscrollerCapStep, 0);
        s.setValue(Ctl::vbarscrollerStepElevation, 0);
    }
    s.setVisible(Ctl::vbarscrollerCapStep, scrolling);
    s.setVisible(Ctl::vbarscrollerStepElevation, scrolling);
    layoutStepRows(s, n);
    applyBeamAngleRows(s);
    layoutCenterlineRows(s, n);
    relayoutColumns(s);
}

} // namespace tw
