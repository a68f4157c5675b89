// SPDX-License-Identifier: Apache-2.0
// The project model: names, defaults, reset and the bent-table layouts.
#include "FakePorts.h"

#include "core/form/MainForm.h"
#include "core/model/Choices.h"
#include "core/model/Columns.h"
#include "core/model/Inputs.h"

#include <gtest/gtest.h>

#include <set>

namespace tw {
namespace {

using test::Loaded;

TEST(ControlNames, ParseWhatTheScriptsWrite) {
    for (const char* good :
         {"txtCapLength", "txtCapStep(0)", "txtCapStep(19)", "txtCenterline(20)", "cmdQuantity(5)"}) {
        auto id = parseCtlId(good);
        ASSERT_TRUE(id) << good;
        EXPECT_EQ(toString(*id), good);
    }
    for (const char* bad : {"txtCapStep", "txtCapStep(20)", "txtCapLength(0)", "txtcaplength", "cmdQuantity(-1)",
                            "cmdQuantity(1", "", "txtCapStep(x)"})
        EXPECT_FALSE(parseCtlId(bad)) << bad;
}

TEST(ProjectModel, EveryInputIsAControlOfTheMainForm) {
    Loaded app;
    std::set<CtlId> seen;
    for (const auto& id : projectInputs()) {
        EXPECT_TRUE(app->main().has(id)) << toString(id);
        EXPECT_TRUE(seen.insert(id).second) << "twice: " << toString(id);
    }
    // Control arrays: 3 + 20 + 21 + 3*20 + 7 + 3 + 3 + 20, then 41 single inputs.
    EXPECT_EQ(projectInputs().size(), 137u + 41u);
}

TEST(ProjectModel, ChoiceListsKeepTheirOrder) {
    EXPECT_EQ(choiceTexts(Ctl::cboTybent),
              (std::vector<std::string>{kEndWithoutBackwall, kEndWithBackwall, kIntermediate}));
    EXPECT_EQ(choiceTexts(Ctl::cboTypeOfPile).at(3), "STEEL H, HP 10X42");
    EXPECT_EQ(choiceTexts(Ctl::cboNoBeam).size(), 20u);
    EXPECT_EQ(choiceTexts(Ctl::cboWingwallPileBox).front(), "0");
}

struct Default {
    CtlId id;
    const char* text;
};

const Default kDefaults[] = {
    {Ctl::cboDrScale, "3/8 in/ft"},
    {Ctl::cboNoBeam, "4"},
    {Ctl::cboTybent, "Pile End Bent without Backwall"},
    {Ctl::cboBtomCalPI, "Yes"},
    {Ctl::cboBSkew, "None"},
    {Ctl::cboAngleType, "Yes"},
    {Ctl::cboBentDrawn, "Yes"},
    {Ctl::cboTPLwinwall, "Yes"},
    {Ctl::cboTPRwingwall, "Yes"},
    {Ctl::cboWingParallel, "Yes"},
    {Ctl::cboWingwallPileBox, "0"},
    {Ctl::cboBatterPile, "No"},
    {Ctl::cboBearingHole, "Dowel Bar"},
    {Ctl::cboBatteredPile, "4"},
    {Ctl::cboTypeOfPile, "PSC, 12 IN SQ"},
    {Ctl::cboStrirrups, "4"},
    {Ctl::txtCapDepth, "2.0000"},
    {Ctl::txtCapWidth, "3.0000"},
    {Ctl::txtLongWidth, "2.0000"},
    {Ctl::txtTransWidth, "2.0000"},
    {Ctl::txtWingwallLength, "10.0000"},
    {Ctl::txtPileBoxDistance1, "10.0000"},
    {Ctl::txtPileBoxDistance2, "10.0000"},
    {Ctl::txtLengthEndPost, "4.0000"},
    {Ctl::txtWidthEndPost, "1.0000"},
    {{Ctl::txtWinLAngle, 0}, "90"},
    {{Ctl::txtWinLAngle, 1}, "0"},
    {{Ctl::txtWinLAngle, 2}, "00.0"},
    {{Ctl::txtWinRAngle, 0}, "90"},
    {{Ctl::txtWinRAngle, 1}, "0"},
    {{Ctl::txtWinRAngle, 2}, "00.0"},
    {{Ctl::txtBeamangleH, 0}, "90"},
    {{Ctl::txtBeamangleM, 0}, "0"},
    {{Ctl::txtBeamangleS, 0}, "0.0"},
    {Ctl::txtCapLength, ""},
    {Ctl::txtCenterlineDistance, "1.5000"},
    {{Ctl::txtCenterline, 20}, ""},
    {{Ctl::lblWingLAngle, 0}, "\u00B0 "},
    {{Ctl::lblWingRAngle, 1}, "' "},
    {{Ctl::lblWingRAngle, 2}, "'' "},
};

void expectDefaults(Session& app) {
    for (const auto& d : kDefaults)
        EXPECT_EQ(app.text(d.id), d.text) << toString(d.id);
    const std::set<CtlId> set = [] {
        std::set<CtlId> s;
        for (const auto& d : kDefaults)
            s.insert(d.id);
        return s;
    }();
    // Every other text input of the project starts empty; the closing
    // battered-pile field only gets its colour back, it keeps its text.
    for (const auto& id : projectInputs())
        if (!set.count(id) && !app.ctl(id).isCombo() && id != CtlId(Ctl::txtBatterPile, 6)) {
            EXPECT_EQ(app.text(id), "") << toString(id);
        }
    EXPECT_EQ(app.main().caption, "Norvale-Tarnwick");
    EXPECT_EQ(app.table().rows(), 1);
    EXPECT_EQ(app.table().cols(), 11);
    EXPECT_EQ(app.project().bentCounter, 0);
    EXPECT_TRUE(app.project().bentRegister.empty());
    EXPECT_FALSE(app.project().saveFailed);
    EXPECT_EQ(app.currentTab(), 0);
}

TEST(Reset, FormLoadGivesTheDefaults) {
    Loaded app;
    expectDefaults(*app);
    // Centred on a 1366 x 768 screen.
    EXPECT_EQ(app->main().left, (1366 * 15 - app->main().width) / 2);
    EXPECT_EQ(app->main().top, (768 * 15 - app->main().height) / 2);
}

TEST(Reset, ReturnsAnEditedProjectToTheDefaults) {
    Loaded app;
    Session& a = *app;
    choose(a, Ctl::cboNoBeam, 19);
    choose(a, Ctl::cboTybent, 1);
    for (const auto& id : projectInputs())
        if (!a.ctl(id).isCombo()) a.setText(id, "7");
    a.changeTable([&](BentTable& t) { t.addItem("1\t2\t3"); });
    a.setBentCounter(5);
    a.setBentRegister({"1", "2"});
    a.setSaveFailed(true);
    a.setColor(CtlId(Ctl::txtCapStep, 19), BackColor::Red);
    a.setColor(CtlId(Ctl::txtCenterline, 20), BackColor::Yellow);
    a.setFormCaption(FormId::Main, "Norvale-Tarnwick - [x.ebnt]");
    resetForm(a);
    expectDefaults(a);
    EXPECT_EQ(a.text(CtlId(Ctl::txtBatterPile, 6)), "7");
    EXPECT_EQ(a.ctl(CtlId(Ctl::txtCapStep, 19)).color, BackColor::Normal);
    EXPECT_EQ(a.ctl(CtlId(Ctl::txtCenterline, 20)).color, BackColor::Normal);
    EXPECT_EQ(a.text(CtlId(Ctl::txtBeamangleH, 1)), "");
}

TEST(Reset, PaneScrollRangesComeFromThePaneHeights) {
    Loaded app;
    for (Ctl bar : {Ctl::vbarscrollerCapStep, Ctl::vbarscrollerStepElevation, Ctl::vbarscrollerBeamAngle,
                    Ctl::vbarscrollerWingwall}) {
        const Control& b = app->ctl(bar);
        EXPECT_EQ(b.min, 0);
        EXPECT_LT(b.max, 0) << "the inner box is taller, so the bar runs from 0 down";
        EXPECT_EQ(b.smallChange, b.largeChange / 5);
    }
}

TEST(Unload, AsksAndClosesOnlyOnYes) {
    Loaded app;
    app.ports.answers = {MsgAnswer::No, MsgAnswer::Yes};
    EXPECT_FALSE(unloadMainForm(*app));
    EXPECT_FALSE(app->mainUnloaded());
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].text, "Are you sure you want to exit?");
    EXPECT_EQ(app.ports.messages[0].title, "Confirm Exit");
    EXPECT_EQ(app.ports.messages[0].buttons, MsgButtons::YesNo);
    EXPECT_EQ(app.ports.messages[0].icon, MsgIcon::None);
    app->load(FormId::About);
    EXPECT_TRUE(unloadMainForm(*app));
    EXPECT_TRUE(app->mainUnloaded());
    EXPECT_EQ(app.ports.log, (std::vector<std::string>{"close frmAbout", "close frmMain"}));
}

std::vector<std::string> headings(const BentTable& g) { return g.rowCells(0); }

TEST(Layout, ColumnsPerBentType) {
    BentTable g;
    layoutColumns(g, BentType::Intermediate, 2);
    EXPECT_EQ(headings(g),
              (std::vector<std::string>{"Bent Number", "Bottom Left Cap", "Bottom Right Cap", "1Step", "2Step"}));
    EXPECT_EQ(g.colWidth(0), 1000);
    EXPECT_EQ(g.colWidth(1), 1400);
    EXPECT_EQ(g.colWidth(4), 700);

    layoutColumns(g, BentType::EndWithoutBackwall, 1);
    EXPECT_EQ(headings(g),
              (std::vector<std::string>{"Bent Number", "Bottom Left Cap", "Bottom Right Cap", "1Step",
                                        "Top Left Wingwall (Front Face)", "Top Right Wingwall (Front Face)",
                                        "Top Left Wingwall (End)", "Top Right Wingwall (End)"}));
    EXPECT_EQ(g.colWidth(5), 2300);

    layoutColumns(g, BentType::EndWithBackwall, 20);
    ASSERT_EQ(g.cols(), 32);
    EXPECT_EQ(g.cell(0, 22), "20Step");
    EXPECT_EQ(g.cell(0, 24), "Top Right Wingwall (Front Face)");
    EXPECT_EQ(g.colWidth(24), 2400) << "the one wider column of the backwall layout";
    EXPECT_EQ(g.cell(0, 31), "Inside Face Right Endpost");
    EXPECT_EQ(g.colWidth(28), 2000);
    for (int c = 0; c < g.cols(); ++c)
        EXPECT_TRUE(g.colCentred(c)) << c;
}

TEST(Layout, NoBeamsGivesNoStepColumns) {
    BentTable g;
    layoutColumns(g, BentType::Intermediate, 0);
    EXPECT_EQ(g.cols(), 3);
    layoutColumns(g, BentType::EndWithoutBackwall, 0);
    EXPECT_EQ(g.cols(), 7);
    EXPECT_EQ(g.cell(0, 3), "Top Left Wingwall (Front Face)");
    layoutColumns(g, BentType::EndWithBackwall, 0);
    EXPECT_EQ(g.cols(), 12);
}

TEST(Layout, RowsSurviveARelayoutAndAreNotRepaired) {
    BentTable g;
    layoutColumns(g, BentType::EndWithoutBackwall, 4);
    g.addItem("1\t\t\t10\t11\t12\t13\t20\t21\t22\t23\t");
    layoutColumns(g, BentType::EndWithoutBackwall, 2);
    ASSERT_EQ(g.rows(), 2);
    EXPECT_EQ(g.rowCells(1), (std::vector<std::string>{"1", "", "", "10", "11", "12", "13", "20", "21"}));
    layoutColumns(g, BentType::EndWithBackwall, 2);
    EXPECT_EQ(g.rowCells(1).size(), 14u);
    EXPECT_EQ(g.cell(1, 13), "");
    layoutColumns(g, BentType::Intermediate, 2);
    EXPECT_EQ(g.rowCells(1), (std::vector<std::string>{"1", "", "", "10", "11"}));
    // Laying out twice gives the same grid.
    BentTable again = g;
    layoutColumns(again, BentType::Intermediate, 2);
    EXPECT_EQ(again.rowCells(0), g.rowCells(0));
}

TEST(Layout, ColumnCountOverflowIsARunTimeError) {
    BentTable g;
    try {
        layoutColumns(g, BentType::EndWithBackwall, 32760);
        FAIL() << "expected an overflow";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), err::kOverflow);
    }
}

TEST(Layout, FollowsTheFormsChoices) {
    Loaded app;
    choose(*app, Ctl::cboTybent, 2);
    EXPECT_EQ(app->table().cols(), 7);
    choose(*app, Ctl::cboNoBeam, 10);
    EXPECT_EQ(app->table().cols(), 14);
    choose(*app, Ctl::cboTybent, 1);
    EXPECT_EQ(app->table().cols(), 23);
}

TEST(ErrorBox, StandardTextAndTheCancelNumberPassedOver) {
    Loaded app;
    app->reportError(RuntimeError(err::kCancel, "Cancel was selected."));
    EXPECT_TRUE(app.ports.messages.empty());
    app->reportError(RuntimeError(53, "File not found"), "Error Importing Input File");
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].text,
              "Error Number:\t53\r\nDescription:\tFile not found\r\nPlease notify administrator.");
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
    EXPECT_EQ(app.ports.messages[0].icon, MsgIcon::Critical);
}

} // namespace
} // namespace tw
