// SPDX-License-Identifier: Apache-2.0
#include "core/form/MainForm.h"
#include "core/form/StandingNotes.h"

#include "core/form/Events.h"
#include "core/form/Forms.h"
#include "core/form/PutAside.h"
#include "core/form/RecentFiles.h"
#include "core/form/Session.h"
#include "core/model/Columns.h"
#include "core/model/Inputs.h"

#include <cmath>

namespace tw {

namespace {

void defaults(Session& s, std::initializer_list<CtlId> ids) {
    for (const auto& id : ids)
        applyDefault(s, id);
}

void defaultItems(Session& s, Ctl c, int from, int to) {
    for (int i = from; i <= to; ++i)
        applyDefault(s, CtlId(c, i));
}

void setWingLabels(Session& s, Ctl labels) {
    s.setCaption(CtlId(labels, 0), kDegreeMark);
    s.setCaption(CtlId(labels, 1), kMinuteMark);
    s.setCaption(CtlId(labels, 2), kSecondMark);
}

void clearBentTable(Session& s) {
    s.changeTable([](BentTable& t) {
        for (int r = 1; r < t.rows(); ++r)
            for (int c = 0; c < t.cols(); ++c)
                t.setCell(r, c, "");
        t.setRows(1);
        t.setCols(7);
    });
}

// Empties the cap steps, step elevations and centerline distances of all 20 beams.
void clearBeamRows(Session& s) {
    for (int i = 0; i < 20; ++i) {
        defaults(s, {CtlId(Ctl::txtCapStep, i), CtlId(Ctl::txtEStepPI, i), CtlId(Ctl::txtCenterline, i)});
        s.setColor(CtlId(Ctl::txtCapStep, i), BackColor::Normal);
    }
}

// Scroll ranges of the four row panes, from their heights.
void setupPanes(Session& s) {
    const std::pair<Ctl, std::pair<Ctl, Ctl>> panes[] = {
        {Ctl::vbarscrollerCapStep, {Ctl::picOutterCap, Ctl::picInnerCap}},
        {Ctl::vbarscrollerStepElevation, {Ctl::picOutterStep, Ctl::picInnerStep}},
        {Ctl::vbarscrollerWingwall, {Ctl::picOutterWingwall, Ctl::picInnerWingWall}},
        {Ctl::vbarscrollerBeamAngle, {Ctl::picOutterBeamAngle, Ctl::picInnerBeamAngle}},
    };
    for (const auto& [bar, boxes] : panes) {
        const int outer = s.ctl(boxes.first).height;
        const int inner = s.ctl(boxes.second).height;
        s.setScrollRange(bar, 0, static_cast<std::int16_t>(std::lround(static_cast<double>(outer - inner))), outer,
                         outer / 5);
    }
}

} // namespace

void applyDefault(Session& s, const CtlId& id) {
    const InputRule& r = inputRule(id);
    if (r.kind == InputKind::Choice)
        s.setListIndex(id, r.defaultIndex);
    else
        s.setText(id, r.defaultText);
}

// The order of the steps is the old form's: the bent type and the number of
// beams run their handlers early, and several inputs are set twice.
void resetForm(Session& s) {
    clearBentTable(s);
    s.setSaveFailed(false);
    s.setBentRegister({});
    s.setBentCounter(0);
    defaultItems(s, Ctl::txtProjectInfo, 0, 2);

    defaults(s, {Ctl::cboDrScale, Ctl::cboNoBeam, Ctl::cboTybent});
    setWingLabels(s, Ctl::lblWingLAngle);
    setWingLabels(s, Ctl::lblWingRAngle);

    defaults(s, {Ctl::txtCapLength, Ctl::cboBtomCalPI, Ctl::cboBSkew, Ctl::cboAngleType, Ctl::cboBentDrawn,
                 Ctl::cboTPLwinwall, Ctl::cboTPRwingwall, Ctl::cboWingParallel, Ctl::cboWingwallPileBox,
                 Ctl::cboBatterPile});
    defaults(s, {Ctl::txtCapDepth, Ctl::txtCapWidth, Ctl::txtLongWidth, Ctl::txtTransWidth, Ctl::txtWingwallLength,
                 Ctl::txtPileBoxDistance1, Ctl::txtPileBoxDistance2, Ctl::txtLengthEndPost, Ctl::txtWidthEndPost});
    defaultItems(s, Ctl::txtWinLAngle, 0, 2);
    defaultItems(s, Ctl::txtWinRAngle, 0, 2);

    defaults(s, {Ctl::txtBentNoPI, Ctl::cboBtomCalPI, Ctl::txtBtLCapPI, Ctl::txtBtRCapPI, Ctl::txtLwingwallElevation,
                 Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd, Ctl::txtRwingwallElevation,
                 Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd, Ctl::txtTopLeftEndPost,
                 Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall});
    s.setTop(Ctl::picInnerStep, 0);

    applyDefault(s, Ctl::cboBearingHole);
    s.setColor(CtlId(Ctl::txtCenterline, 20), BackColor::Normal);
    applyDefault(s, CtlId(Ctl::txtCenterline, 20));
    for (Ctl c : {Ctl::txtBeamangleH, Ctl::txtBeamangleM, Ctl::txtBeamangleS})
        defaultItems(s, c, 0, 19);

    s.setVisible(Ctl::Frame18, false);
    defaults(s, {Ctl::cboBatteredPile, Ctl::cboTypeOfPile, Ctl::cboStrirrups});
    defaultItems(s, Ctl::txtBatterPile, 0, 5);
    s.setColor(CtlId(Ctl::txtBatterPile, 6), BackColor::Normal);

    clearBeamRows(s);
    setMainCaption(s, false);
    selectTab(s, 0);
    s.markSaved();
    s.startAfresh();
}

void loadMainForm(Session& s) {
    const Form& f = s.main();
    s.placeForm(FormId::Main, (s.user.screenWidthTwips() - f.width) / 2, (s.user.screenHeightTwips() - f.height) / 2);
    s.load(FormId::Main);
    resetForm(s);
    setupPanes(s);
    showRecentFiles(s);
}

void setMainCaption(Session& s, bool fileCurrent) {
    if (fileCurrent && !s.dialogFileName().empty()) {
        s.setCurrentFile(s.dialogFileName());
        const std::string& path = s.project().currentFile;
        const auto slash = path.find_last_of("/\\");
        const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
        s.setFormCaption(FormId::Main, std::string(kAppTitle) + " - [" + name + "]");
    } else {
        s.setFormCaption(FormId::Main, kAppTitle);
    }
}

bool hasCurrentFile(const Session& s) { return s.main().caption != kAppTitle; }

std::string statusBarText(const Session& s) {
    if (!s.statusText().empty()) return s.statusText();
    if (const auto notes = standingNotes(s); !notes.empty()) {
        std::string text = notes.front();
        for (size_t i = 1; i < notes.size(); ++i)
            text += "; " + notes[i];
        return text;
    }
    return s.project().currentFile.empty() ? "Not saved yet" : s.project().currentFile;
}

void selectTab(Session& s, int tab) {
    s.setValue(Ctl::SSTab1, tab);
    onTabChanged(s, tab);
}

void relayoutColumns(Session& s) {
    const auto type = bentTypeOf(s.text(Ctl::cboTybent));
    if (!type) return;
    s.setVisible(Ctl::MSFlexGrid1, true);
    const auto beams = static_cast<std::int16_t>(s.project().beams());
    s.changeTable([&](BentTable& t) { layoutColumns(t, *type, beams); });
}

bool unloadMainForm(Session& s) {
    if (s.message("Are you sure you want to exit?", "Confirm Exit", MsgButtons::YesNo, MsgIcon::None) != MsgAnswer::Yes)
        return false;
    putAsideUnsaved(s, "Exit");
    // The other windows close in their names' order, as they always have.
    for (FormId f : {FormId::About, FormId::Printer, FormId::Picture, FormId::Splash, FormId::Preview})
        s.closeForm(f);
    s.setMainUnloaded();
    // A program Run waits for ends with the program, not after it.
    s.system.cancelWaits();
    s.closeForm(FormId::Main);
    return true;
}

} // namespace tw
