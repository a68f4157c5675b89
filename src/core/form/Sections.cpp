// SPDX-License-Identifier: Apache-2.0
#include "core/form/MainForm.h"

#include "core/form/Forms.h"
#include "core/form/NumericEntry.h"
#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

void setVisible(Session& s, std::initializer_list<CtlId> ids, bool visible) {
    for (const auto& id : ids)
        s.setVisible(id, visible);
}

// The five questions that only end bents ask, each a label with its combo box.
const std::initializer_list<CtlId> kEndBentQuestions = {
    Ctl::lblCCWingPwall, Ctl::cboWingParallel, Ctl::lblCCNoWinwall, Ctl::cboWingwallPileBox,
    Ctl::lblCCBatPile,   Ctl::cboBatterPile,   Ctl::Label10,        Ctl::cboTPLwinwall,
    Ctl::Label11,        Ctl::cboTPRwingwall};

struct TypeLayout {
    const char* capPrompt;
    bool endBent;
    bool backwall;
    const char* bentDrawn;
    int capLengthTop, capPromptTop, feetTop;
    const char* centerlineDistance;
    int capStepsTop, capStepBarTop;
    int gridTop;
    int buttonsTop;
};

// One column per bent type: prompts, type defaults and the tops (twips) of
// what moves with the type.
const TypeLayout& layoutFor(BentType t) {
    // clang-format off
    static const TypeLayout intermediate = {"Enter the length of the cap", false, false, "No",
                                            3600, 3660, 3660, "0.7500", 1680, 1800, 3180, 2700};
    static const TypeLayout withBackwall = {"Enter the length of the cap measured along", true, true, "Yes",
                                            4560, 4500, 4620, "1.5000", 2880, 3000, 6480, 6000};
    static const TypeLayout withoutBackwall = {"Enter the length of the cap measured along", true, false, "Yes",
                                               4560, 4500, 4620, "1.5000", 2880, 3000, 4200, 3720};
    // clang-format on
    switch (t) {
    case BentType::Intermediate: return intermediate;
    case BentType::EndWithBackwall: return withBackwall;
    case BentType::EndWithoutBackwall: break;
    }
    return withoutBackwall;
}

// Exactly one of the two wingwall-top panels shows, and it always carries
// the "... Level" caption; the hidden one's caption is never seen.
void applyWingwallTop(Session& s, Ctl choice, Ctl single, Ctl twoLevels, const char* side) {
    const std::string level = std::string("Top ") + side + " Wingwall Level";
    const std::string hidden = std::string("Is top ") + (side[0] == 'L' ? "left" : "right") + " wingwall level - Yes";
    if (s.text(choice) == "Yes") {
        s.setVisible(single, true);
        s.setCaption(single, level);
        s.setVisible(twoLevels, false);
        s.setCaption(twoLevels, hidden);
    } else {
        s.setVisible(single, false);
        s.setCaption(single, hidden);
        s.setVisible(twoLevels, true);
        s.setLeft(twoLevels, 0);
        s.setCaption(twoLevels, level);
    }
}

void applyBottomOfCap(Session& s) {
    const std::string t = s.text(Ctl::cboBtomCalPI);
    if (t != "Yes" && t != "No") return;
    setVisible(s, {Ctl::txtBtLCapPI, Ctl::txtBtRCapPI, Ctl::Label35, Ctl::Label36, Ctl::Label37}, t == "No");
}

void applyParallelWingwalls(Session& s) {
    const int pos = s.listIndex(Ctl::cboWingParallel);
    if (pos != 0 && pos != 1) return;
    const bool separate = pos == 1;
    s.setCaption(Ctl::lblWingWallLAngle, separate ? "Enter the left wingwall angle" : "Enter the wingwall angle");
    s.setVisible(Ctl::lblWingWallRAngle, separate);
    for (int i = 0; i < 3; ++i) {
        s.setVisible(CtlId(Ctl::txtWinRAngle, i), separate);
        s.setVisible(CtlId(Ctl::lblWingRAngle, i), separate);
    }
    if (separate) {
        s.setCaption(CtlId(Ctl::lblWingRAngle, 0), kDegreeMark);
        s.setCaption(CtlId(Ctl::lblWingRAngle, 1), kMinuteMark);
        s.setCaption(CtlId(Ctl::lblWingRAngle, 2), kSecondMark);
    }
}

void applyPileBoxes(Session& s) {
    const std::string t = trim(s.text(Ctl::cboWingwallPileBox));
    const std::initializer_list<CtlId> first = {Ctl::lblPileD1, Ctl::txtPileBoxDistance1, Ctl::Label26};
    const std::initializer_list<CtlId> second = {Ctl::lblPileD2, Ctl::txtPileBoxDistance2, Ctl::Label27};
    if (t == "0" || t == "1") {
        setVisible(s, first, false);
        setVisible(s, second, false);
        s.setVisible(Ctl::Frame6, false);
        s.setTop(Ctl::Frame7, 5760); // into the place of the hidden pile-box frame
    } else if (t == "2" || t == "3") {
        setVisible(s, first, true);
        setVisible(s, second, t == "3");
        s.setVisible(Ctl::Frame6, true);
        s.setTop(Ctl::Frame7, 7080);
    }
}

void applyBatteredPileCount(Session& s) {
    const std::string t = s.text(Ctl::cboBatteredPile);
    if (t.size() != 1 || t[0] < '1' || t[0] > '6') return;
    const int count = t[0] - '0';
    s.setVisible(Ctl::Label80, count > 1);
    s.setVisible(Ctl::Label81, count > 1);
    for (int i = 0; i < 6; ++i) {
        s.setVisible(CtlId(Ctl::txtBatterPile, i), false);
        s.setVisible(CtlId(Ctl::lblBatterPile, i), false);
    }
    for (int i = 0; i < count; ++i) {
        s.setVisible(CtlId(Ctl::txtBatterPile, i), true);
        s.setVisible(CtlId(Ctl::lblBatterPile, i), true);
        s.setCaption(CtlId(Ctl::lblBatterPile, i), std::to_string(i + 1));
    }
}

} // namespace

void applyBentType(Session& s) {
    const auto type = bentTypeOf(s.text(Ctl::cboTybent));
    if (!type) return;
    const TypeLayout& l = layoutFor(*type);
    s.setCaption(Ctl::lblCCapLength, l.capPrompt);
    s.setCaption(Ctl::lblCCapLength1, "the front face of the cap");
    s.setVisible(Ctl::lblCCapLength1, l.endBent);
    setVisible(s, kEndBentQuestions, l.endBent);
    chooseText(s, Ctl::cboBentDrawn, l.bentDrawn);
    s.setTop(Ctl::txtCapLength, l.capLengthTop);
    s.setTop(Ctl::lblCCapLength, l.capPromptTop);
    s.setTop(Ctl::Label12, l.feetTop);
    s.setText(Ctl::txtCenterlineDistance, l.centerlineDistance);
    setVisible(s,
               {Ctl::Frame3, Ctl::Frame5, Ctl::Frame6, Ctl::Frame18, Ctl::picOutterWingwall, Ctl::vbarscrollerWingwall},
               l.endBent);
    setVisible(s, {Ctl::Frame7, Ctl::Frame13}, l.backwall);
    s.setTop(Ctl::Frame4, l.capStepsTop);
    s.setTop(Ctl::vbarscrollerCapStep, l.capStepBarTop);
    s.setTop(Ctl::MSFlexGrid1, l.gridTop);
    s.setTop(Ctl::cmdMoveUp, l.gridTop);
    s.setTop(Ctl::cmdMoveDown, l.gridTop + 720);
    for (int i = 0; i < 6; ++i)
        s.setTop(CtlId(Ctl::cmdQuantity, i), l.buttonsTop);
    relayoutColumns(s);
}

void applyTab(Session& s, int tab) {
    for (int i = 0; i < 3; ++i)
        s.setVisible(CtlId(Ctl::txtProjectInfo, i), tab == 0);
    updateAllClosing(s);
}

void choose(Session& s, const Target& t, int index) {
    s.setListIndex(t, index);
    if (holdsInput(t)) applyChoice(s, t.id.ctl);
}

void chooseText(Session& s, const Target& t, const std::string& text) {
    s.setComboText(t, text);
    if (holdsInput(t)) applyChoice(s, t.id.ctl);
}

void applyChoice(Session& s, Ctl c) {
    switch (c) {
    case Ctl::cboTybent: applyBentType(s); break;
    case Ctl::cboBtomCalPI: applyBottomOfCap(s); break;
    case Ctl::cboTPLwinwall: applyWingwallTop(s, Ctl::cboTPLwinwall, Ctl::Frame12, Ctl::Frame11, "Left"); break;
    case Ctl::cboTPRwingwall: applyWingwallTop(s, Ctl::cboTPRwingwall, Ctl::Frame10, Ctl::Frame9, "Right"); break;
    case Ctl::cboWingParallel: applyParallelWingwalls(s); break;
    case Ctl::cboWingwallPileBox: applyPileBoxes(s); break;
    case Ctl::cboBatterPile: s.setVisible(Ctl::Frame18, s.text(Ctl::cboBatterPile) == "Yes"); break;
    case Ctl::cboBatteredPile: applyBatteredPileCount(s); break;
    case Ctl::cboNoBeam: applyBeamCount(s); break;
    case Ctl::cboAngleType: applyBeamAngleRows(s); break;
    default: break;
    }
}

} // namespace tw
