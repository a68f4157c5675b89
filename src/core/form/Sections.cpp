#include "core/form/MainForm.h"

#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/form/Forms.h"
#include "core/form/NumericEntry.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

void setVisible(App& app, std::initializer_list<CtlId> ids, bool visible) {
    for (const auto& id : ids)
        app.setVisible(id, visible);
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
void applyWingwallTop(App& app, Ctl choice, Ctl single, Ctl twoLevels, const char* side) {
    const std::string level = std::string("Top ") + side + " Wingwall Level";
    const std::string hidden = std::string("Is top ") + (side[0] == 'L' ? "left" : "right") + " wingwall level - Yes";
    if (app.text(choice) == "Yes") {
        app.setVisible(single, true);
        app.setCaption(single, level);
        app.setVisible(twoLevels, false);
        app.setCaption(twoLevels, hidden);
    } else {
        app.setVisible(single, false);
        app.setCaption(single, hidden);
        app.setVisible(twoLevels, true);
        app.ctl(twoLevels).left = 0;
        app.setCaption(twoLevels, level);
    }
}

void applyBottomOfCap(App& app) {
    const std::string t = app.text(Ctl::cboBtomCalPI);
    if (t != "Yes" && t != "No") return;
    setVisible(app, {Ctl::txtBtLCapPI, Ctl::txtBtRCapPI, Ctl::Label35, Ctl::Label36, Ctl::Label37}, t == "No");
}

void applyParallelWingwalls(App& app) {
    const int pos = app.listIndex(Ctl::cboWingParallel);
    if (pos != 0 && pos != 1) return;
    const bool separate = pos == 1;
    app.setCaption(Ctl::lblWingWallLAngle, separate ? "Enter the left wingwall angle" : "Enter the wingwall angle");
    app.setVisible(Ctl::lblWingWallRAngle, separate);
    for (int i = 0; i < 3; ++i) {
        app.setVisible(CtlId(Ctl::txtWinRAngle, i), separate);
        app.setVisible(CtlId(Ctl::lblWingRAngle, i), separate);
    }
    if (separate) {
        app.setCaption(CtlId(Ctl::lblWingRAngle, 0), kDegreeMark);
        app.setCaption(CtlId(Ctl::lblWingRAngle, 1), kMinuteMark);
        app.setCaption(CtlId(Ctl::lblWingRAngle, 2), kSecondMark);
    }
}

void applyPileBoxes(App& app) {
    const std::string t = trim(app.text(Ctl::cboWingwallPileBox));
    const std::initializer_list<CtlId> first = {Ctl::lblPileD1, Ctl::txtPileBoxDistance1, Ctl::Label26};
    const std::initializer_list<CtlId> second = {Ctl::lblPileD2, Ctl::txtPileBoxDistance2, Ctl::Label27};
    if (t == "0" || t == "1") {
        setVisible(app, first, false);
        setVisible(app, second, false);
        app.setVisible(Ctl::Frame6, false);
        app.setTop(Ctl::Frame7, 5760); // into the place of the hidden pile-box frame
    } else if (t == "2" || t == "3") {
        setVisible(app, first, true);
        setVisible(app, second, t == "3");
        app.setVisible(Ctl::Frame6, true);
        app.setTop(Ctl::Frame7, 7080);
    }
}

void applyBatteredPileCount(App& app) {
    const std::string t = app.text(Ctl::cboBatteredPile);
    if (t.size() != 1 || t[0] < '1' || t[0] > '6') return;
    const int count = t[0] - '0';
    app.setVisible(Ctl::Label80, count > 1);
    app.setVisible(Ctl::Label81, count > 1);
    for (int i = 0; i < 6; ++i) {
        app.setVisible(CtlId(Ctl::txtBatterPile, i), false);
        app.setVisible(CtlId(Ctl::lblBatterPile, i), false);
    }
    for (int i = 0; i < count; ++i) {
        app.setVisible(CtlId(Ctl::txtBatterPile, i), true);
        app.setVisible(CtlId(Ctl::lblBatterPile, i), true);
        app.setCaption(CtlId(Ctl::lblBatterPile, i), std::to_string(i + 1));
    }
}

void applyTab(App& app, int tab) {
    for (int i = 0; i < 3; ++i)
        app.setVisible(CtlId(Ctl::txtProjectInfo, i), tab == 0);
    updateAllClosing(app);
}

} // namespace

void applyBentType(App& app) {
    const auto type = bentTypeOf(app.text(Ctl::cboTybent));
    if (!type) return;
    const TypeLayout& l = layoutFor(*type);
    app.setCaption(Ctl::lblCCapLength, l.capPrompt);
    app.setCaption(Ctl::lblCCapLength1, "the front face of the cap");
    app.setVisible(Ctl::lblCCapLength1, l.endBent);
    setVisible(app, kEndBentQuestions, l.endBent);
    app.setComboText(Ctl::cboBentDrawn, l.bentDrawn);
    app.setTop(Ctl::txtCapLength, l.capLengthTop);
    app.setTop(Ctl::lblCCapLength, l.capPromptTop);
    app.setTop(Ctl::Label12, l.feetTop);
    app.setText(Ctl::txtCenterlineDistance, l.centerlineDistance);
    setVisible(app,
               {Ctl::Frame3, Ctl::Frame5, Ctl::Frame6, Ctl::Frame18, Ctl::picOutterWingwall, Ctl::vbarscrollerWingwall},
               l.endBent);
    setVisible(app, {Ctl::Frame7, Ctl::Frame13}, l.backwall);
    app.setTop(Ctl::Frame4, l.capStepsTop);
    app.setTop(Ctl::vbarscrollerCapStep, l.capStepBarTop);
    app.setTop(Ctl::MSFlexGrid1, l.gridTop);
    app.setTop(Ctl::cmdMoveUp, l.gridTop);
    app.setTop(Ctl::cmdMoveDown, l.gridTop + 720);
    for (int i = 0; i < 6; ++i)
        app.setTop(CtlId(Ctl::cmdQuantity, i), l.buttonsTop);
    relayoutColumns(app);
}

void installSections(App& app) {
    auto on = [&app](Ctl c, void (*f)(App&)) { app.on(kFrmMain, c, Event::Change, [f](App& a, EventArgs&) { f(a); }); };
    on(Ctl::cboTybent, applyBentType);
    on(Ctl::cboBtomCalPI, applyBottomOfCap);
    on(Ctl::cboTPLwinwall, [](App& a) { applyWingwallTop(a, Ctl::cboTPLwinwall, Ctl::Frame12, Ctl::Frame11, "Left"); });
    on(Ctl::cboTPRwingwall,
       [](App& a) { applyWingwallTop(a, Ctl::cboTPRwingwall, Ctl::Frame10, Ctl::Frame9, "Right"); });
    on(Ctl::cboWingParallel, applyParallelWingwalls);
    on(Ctl::cboWingwallPileBox, applyPileBoxes);
    on(Ctl::cboBatterPile, [](App& a) { a.setVisible(Ctl::Frame18, a.text(Ctl::cboBatterPile) == "Yes"); });
    on(Ctl::cboBatteredPile, applyBatteredPileCount);
    app.on(kFrmMain, Ctl::SSTab1, Event::Click, [](App& a, EventArgs& e) { applyTab(a, e.index); });
}

} // namespace tw
