// SPDX-License-Identifier: Apache-2.0
// Key filters, and the handlers that ignore texts they do not know.
#include "FakePorts.h"

#include "core/drawing/SketchTable.h"
#include "core/form/BentCommands.h"
#include "core/form/MainForm.h"
#include "core/form/NumericEntry.h"
#include "core/output/Outputs.h"

#include <gtest/gtest.h>

namespace tw {
namespace {

struct KeyCase {
    const char* name;
    int key;
    const char* text;
    const char* selected;
    int caret;
    bool minus, point;
    bool accepted;
};

TEST(KeyFilter, NumericFields) {
    const KeyCase cases[] = {
        {"digit", '7', "12", "", 2, true, true, true},
        {"backspace", 8, "12", "", 2, true, true, true},
        {"enter", 13, "12", "", 2, true, true, false},
        {"letter", 'a', "", "", 0, true, true, false},
        {"blank", ' ', "", "", 0, true, true, false},
        {"plus", '+', "", "", 0, true, true, false},
        {"comma", ',', "1", "", 1, true, true, false},
        {"first point", '.', "12", "", 2, true, true, true},
        {"point before an existing one", '.', "1.5", "", 0, true, true, false},
        {"point replacing a selected point", '.', "1.5", "1.", 0, true, true, true},
        {"point where none is allowed", '.', "12", "", 2, true, false, false},
        {"minus at the start", '-', "5", "", 0, true, true, true},
        {"minus into an empty field", '-', "", "", 0, true, true, true},
        {"minus after a digit", '-', "5", "", 1, true, true, false},
        {"second minus", '-', "-5", "", 0, true, true, false},
        {"minus replacing a selected minus", '-', "-5", "-5", 0, true, true, true},
        {"minus where none is allowed", '-', "", "", 0, false, true, false},
    };
    for (const auto& c : cases) {
        const int got = filterNumericKey(c.key, c.text, c.selected, c.caret, c.minus, c.point);
        EXPECT_EQ(got, c.accepted ? c.key : 0) << c.name;
    }
}

TEST(KeyFilter, BentNumberTakesOneToNineOnly) {
    for (int k = '1'; k <= '9'; ++k)
        EXPECT_EQ(filterBentNumberKey(k), k);
    for (int k : {int('0'), 8, int('.'), int('-'), int('a'), 13})
        EXPECT_EQ(filterBentNumberKey(k), 0) << k;
}

TEST(Sections, AnUnknownBentTypeChangesNothing) {
    test::Loaded app;
    app->setText(Ctl::txtCenterlineDistance, "2.0000");
    const auto before = app->main().controls().at(Ctl::Frame5).visible;
    app->showComboText(Ctl::cboTybent, "Pile Bent");
    applyBentType(*app);
    EXPECT_EQ(app->text(Ctl::txtCenterlineDistance), "2.0000");
    EXPECT_EQ(app->ctl(Ctl::Frame5).visible, before);
    EXPECT_EQ(app->table().cols(), 11);
}

TEST(ClosingValues, SinglePrecisionAndOnlyWithACapLength) {
    test::Loaded app;
    Session& a = *app;
    a.setText(CtlId(Ctl::txtCenterline, 0), "10.1000");
    updateCenterlineClosing(a);
    EXPECT_EQ(a.text(CtlId(Ctl::txtCenterline, 20)), "");
    EXPECT_FALSE(a.ctl(CtlId(Ctl::txtCenterline, 20)).locked);
    a.setText(Ctl::txtCapLength, "40.3000");
    for (int i = 1; i < 4; ++i)
        a.setText(CtlId(Ctl::txtCenterline, i), "10.1000");
    updateCenterlineClosing(a);
    // Four distances of 10.1 overrun a 40.3 cap: less than nothing is left, in red.
    EXPECT_EQ(a.text(CtlId(Ctl::txtCenterline, 20)), "-0.1000");
    EXPECT_EQ(a.ctl(CtlId(Ctl::txtCenterline, 20)).color, BackColor::Red);
    // Text after the number is ignored; letters alone count as nothing.
    a.setText(CtlId(Ctl::txtCenterline, 0), "abc");
    updateCenterlineClosing(a);
    EXPECT_EQ(a.text(CtlId(Ctl::txtCenterline, 20)), "10.0000");
    EXPECT_EQ(a.ctl(CtlId(Ctl::txtCenterline, 20)).color, BackColor::Yellow);
}

} // namespace
} // namespace tw

namespace tw {
namespace {

TEST(BentCounter, OverflowIsARunTimeErrorAfterTheRowIsIn) {
    test::Loaded app;
    Session& a = *app;
    a.setBentCounter(INT16_MAX);
    a.setText(Ctl::txtBentNoPI, "1");
    for (int i = 0; i < 4; ++i)
        a.setText(CtlId(Ctl::txtEStepPI, i), "1");
    a.setText(Ctl::txtLwingwallElevation, "2");
    a.setText(Ctl::txtRwingwallElevation, "2");
    a.guarded([&] { bentCommand(a, 0); });
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error");
    EXPECT_NE(app.ports.messages[0].text.find("Overflow"), std::string::npos);
    EXPECT_EQ(a.project().bentCounter, INT16_MAX);
}

} // namespace
} // namespace tw

#include "core/EngineListing.h"

#include <fstream>

namespace tw {
namespace {

TEST(Outputs, TheErrorLineScanReadsCommaSeparatedItems) {
    const std::string file = ::testing::TempDir() + "/tarnwick-scan.ebntc";
    const std::pair<const char*, bool> cases[] = {
        {"CONCRETE DATA\r\nALL WELL\r\n", true},
        {"ERROR LINE: NO CAP LENGTH\r\n", false},
        {"A,B,xxERROR LINExx,C\r\n", false},
        {"ERROR,LINE\r\n", true},
        {"ERROR\r\nLINE\r\n", true},
        {"error line\r\n", true},
    };
    test::FakePorts ports;
    for (const auto& [text, clean] : cases) {
        std::ofstream(file, std::ios::binary) << text;
        EXPECT_EQ(concreteDataIsClean(ports, file), clean) << text;
    }
    EXPECT_TRUE(concreteDataIsClean(ports, file + ".missing"));
}

// A listing's lines as the printer and the preview take them.
TEST(Outputs, ListingLinesEndByLineFeedOrCarriageReturnLineFeed) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(listingLines(""), Lines{});
    EXPECT_EQ(listingLines("A\r\nB\nC"), (Lines{"A", "B", "C"}));
    EXPECT_EQ(listingLines("A\r\n\r\n"), (Lines{"A", ""}));
    EXPECT_EQ(listingLines("\n\n"), (Lines{"", ""}));
    EXPECT_EQ(listingLines("A\rB\n"), Lines{"A\rB"}); // a CR inside a line stays
}

TEST(Outputs, SketchTitlesTakeTheFirstMatchingKey) {
    EXPECT_EQ(sketchTitle("cwbw"), "Pile End Bent with Backwall Centerlines Sketch");
    EXPECT_EQ(sketchTitle("cpb"), "Pile Intermediate Bent Centerlines Sketch");
    EXPECT_EQ(sketchTitle("bdwobw"), "Tarnwick without Backwall Dimension Sketch ");
    EXPECT_EQ(sketchTitle("epb"), "");
    EXPECT_EQ(sketchTitle("ewbw"), "");
}

} // namespace
} // namespace tw
