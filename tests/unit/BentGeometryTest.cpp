// SPDX-License-Identifier: Apache-2.0
// The bent worked out from its inputs, against coordinates worked out by hand.
#include "FakePorts.h"

#include "core/drawing/BentGeometry.h"
#include "core/form/MainForm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tw::drawing {
namespace {

constexpr double kEps = 1e-9;

// A project of `beams` beams: the first beam `first` from the left end, the
// others `spacing` apart; every cap step but the last `step` long.
BentInputs project(BentType type, int beams, const char* length, const char* first, const char* spacing,
                   const char* step) {
    BentInputs in;
    in.type = type;
    in.beams = beams;
    in.capLength.text = length;
    in.capWidth.text = "3.0000";
    in.capDepth.text = "2.0000";
    in.bearingDistance.text = "1.5000";
    in.centerlines[0].text = first;
    for (int i = 1; i < beams; ++i)
        in.centerlines[static_cast<std::size_t>(i)].text = spacing;
    for (int i = 0; i + 1 < beams; ++i)
        in.capSteps[static_cast<std::size_t>(i)].text = step;
    in.beamAngles[0] = {{in.beamAngles[0].degrees.id, "90"}, {}, {}};
    in.wingwallLength.text = "10.0000";
    in.leftWing.degrees.text = "90";
    in.rightWing.degrees.text = "90";
    return in;
}

struct BeamCase {
    int beams;
    const char *length, *first, *spacing, *step;
    double lastBeam, closing, lastStepStart, closingStep;
};

TEST(BentGeometry, BeamsAndStepsAlongTheCapForEachBentType) {
    // Beam k stands at first + (k-1) * spacing; the closing distance is what is left of the cap.
    const BeamCase cases[] = {
        {1, "20.0000", "8.0000", "", "", 8.0, 12.0, 0.0, 20.0},
        {10, "50.0000", "2.5000", "5.0000", "5.0000", 47.5, 2.5, 45.0, 5.0},
        {11, "56.0000", "3.0000", "5.0000", "5.0000", 53.0, 3.0, 50.0, 6.0},
        {20, "99.0000", "4.5000", "4.7000", "5.0000", 93.8, 5.2, 95.0, 4.0},
    };
    for (BentType type : {BentType::Intermediate, BentType::EndWithBackwall, BentType::EndWithoutBackwall}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(std::to_string(c.beams) + " beams, type " + std::to_string(static_cast<int>(type)));
            const BentGeometry g = bentGeometry(project(type, c.beams, c.length, c.first, c.spacing, c.step));
            ASSERT_EQ(g.beamX.size(), static_cast<std::size_t>(c.beams));
            ASSERT_EQ(g.spacing.size(), static_cast<std::size_t>(c.beams + 1));
            EXPECT_NEAR(g.beamX.front().v, std::stod(c.first), kEps);
            EXPECT_NEAR(g.beamX.back().v, c.lastBeam, 1e-9);
            EXPECT_NEAR(g.spacing.back().v, c.closing, 1e-9);
            EXPECT_EQ(g.spacing.back().mark, Mark::Normal);
            for (const auto& b : g.beamX)
                EXPECT_EQ(b.mark, Mark::Normal);
            ASSERT_EQ(g.stepX.size(), static_cast<std::size_t>(c.beams + 1));
            EXPECT_NEAR(g.stepX.front(), 0, kEps);
            EXPECT_NEAR(g.stepX[static_cast<std::size_t>(c.beams) - 1], c.lastStepStart, 1e-9);
            EXPECT_NEAR(g.stepX.back(), std::stod(c.length), kEps);
            EXPECT_NEAR(g.stepLength.back().v, c.closingStep, 1e-9);
            EXPECT_EQ(g.left.has_value(), type != BentType::Intermediate);
            EXPECT_EQ(g.endPosts, type == BentType::EndWithBackwall);
            EXPECT_TRUE(g.problems.empty()) << g.problems.front();
        }
    }
}

TEST(BentGeometry, BeamAnglesAndSkew) {
    BentInputs in = project(BentType::EndWithoutBackwall, 2, "20.0000", "5.0000", "10.0000", "10.0000");
    in.anglesAlike = false;
    in.beamAngles[0] = {{in.beamAngles[0].degrees.id, "60"}, {in.beamAngles[0].minutes.id, "0"}, {}};
    in.beamAngles[1] = {{in.beamAngles[1].degrees.id, "45"}, {in.beamAngles[1].minutes.id, "30"}, {}};
    in.skew = Skew::Right;
    BentGeometry g = bentGeometry(in);
    EXPECT_NEAR(g.beamDirection[0].x, 0.5, kEps);
    EXPECT_NEAR(g.beamDirection[0].y, std::sqrt(3.0) / 2, kEps);
    EXPECT_NEAR(g.beamAngle[1].v, 45.5, kEps);
    // A left skew mirrors the beams about the normal to the front face.
    in.skew = Skew::Left;
    g = bentGeometry(in);
    EXPECT_NEAR(g.beamDirection[0].x, -0.5, kEps);
    // One angle for every beam takes the first row.
    in.anglesAlike = true;
    g = bentGeometry(in);
    EXPECT_NEAR(g.beamAngle[1].v, 60, kEps);
    // A centerline along the front face cannot be drawn.
    in.beamAngles[0].degrees.text = "2";
    g = bentGeometry(in);
    EXPECT_EQ(g.beamAngle[0].mark, Mark::Error);
    ASSERT_FALSE(g.problems.empty());
    EXPECT_NE(g.problems.front().find("cannot be drawn"), std::string::npos);
}

TEST(BentGeometry, WingwallEndsAtAnAngleAndTheirPileBoxes) {
    BentInputs in = project(BentType::EndWithoutBackwall, 2, "40.0000", "10.0000", "20.0000", "20.0000");
    in.wingsParallel = false;
    in.leftWing = {{in.leftWing.degrees.id, "60"}, {in.leftWing.minutes.id, "0"}, {in.leftWing.seconds.id, "00.0"}};
    in.rightWing.degrees.text = "120";
    in.pileBoxes = 3;
    in.pileBoxDistance1.text = "8.0000";
    in.pileBoxDistance2.text = "5.0000";
    const double h = 10 * std::sqrt(3.0) / 2; // 8.660254...
    BentGeometry g = bentGeometry(in);
    // The left one leans in by 10 cos 60; the right one, its angle taken from the right, leans out.
    EXPECT_NEAR(g.left->end.x, 5.0, kEps);
    EXPECT_NEAR(g.left->end.y, 3 + h, kEps);
    EXPECT_NEAR(g.right->end.x, 45.0, kEps);
    EXPECT_NEAR(g.right->end.y, 3 + h, kEps);
    // Pile boxes: the first at the end, the others where the wingwall is 8 and 5 from the front face.
    ASSERT_EQ(g.left->pileBoxes.size(), 3u);
    EXPECT_NEAR(g.left->pileBoxes[1].y, 8, kEps);
    EXPECT_NEAR(g.left->pileBoxes[1].x, 5 / std::sqrt(3.0), kEps);
    EXPECT_NEAR(g.left->pileBoxes[2].y, 5, kEps);
    // The fillet: 2 along the back face, up the wingwall to 2 behind it.
    in.transWidth.text = in.longWidth.text = "2.0000";
    g = bentGeometry(in);
    EXPECT_NEAR(g.left->fillet[1].x, 2, kEps);
    EXPECT_NEAR(g.left->fillet[2].y, 5, kEps);
    EXPECT_NEAR(g.right->fillet[1].x, 38, kEps);
    // Parallel wingwalls both take the left angle.
    in.wingsParallel = true;
    g = bentGeometry(in);
    EXPECT_NEAR(g.right->end.x, 45.0, kEps);
    EXPECT_NEAR(g.right->direction.x, g.left->direction.x, kEps);
    // A pile box nearer the front face than the wingwall's start is off the wingwall.
    in.pileBoxDistance2.text = "1.0000";
    g = bentGeometry(in);
    EXPECT_EQ(g.left->pileBoxMarks[2], Mark::Error);
    EXPECT_EQ(g.problems, std::vector<std::string>{"The third pile box is off the wingwall."});
    // Wingwalls at angles of their own are each told of.
    in.wingsParallel = false;
    g = bentGeometry(in);
    EXPECT_EQ(g.problems, (std::vector<std::string>{"The third pile box is off the left wingwall.",
                                                    "The third pile box is off the right wingwall."}));
}

TEST(BentGeometry, ImpossibleCombinationsAreFlagged) {
    // Centerline distances longer than the cap: the closing distance is negative.
    BentInputs in = project(BentType::Intermediate, 4, "30.0000", "5.0000", "10.0000", "12.0000");
    BentGeometry g = bentGeometry(in);
    EXPECT_NEAR(g.spacing.back().v, -5, kEps);
    EXPECT_EQ(g.spacing.back().mark, Mark::Error);
    // Steps longer than the cap.
    EXPECT_NEAR(g.stepLength.back().v, -6, kEps);
    EXPECT_EQ(g.stepLength.back().mark, Mark::Error);
    ASSERT_EQ(g.problems.size(), 2u);
    EXPECT_EQ(g.problems[1], "The cap steps are longer than the cap.");
    // A bottom of cap that leaves the cap thinner than its minimum depth.
    in = project(BentType::Intermediate, 2, "20.0000", "5.0000", "10.0000", "10.0000");
    in.bottomComputed = false;
    in.bottomLeft.text = "98.50";
    in.bottomRight.text = "97.00";
    in.stepElevations[0].text = "100.00";
    in.stepElevations[1].text = "100.50";
    g = bentGeometry(in);
    EXPECT_EQ(g.stepTop[0].mark, Mark::Error);
    EXPECT_EQ(g.stepTop[1].mark, Mark::Normal);
}

TEST(BentGeometry, MissingValuesArePlaceholdersNotGuesses) {
    BentInputs in = project(BentType::EndWithBackwall, 3, "", "5.0000", "", "");
    in.capWidth.text = "";
    const BentGeometry g = bentGeometry(in);
    EXPECT_EQ(g.length.mark, Mark::Placeholder);
    EXPECT_EQ(g.width.mark, Mark::Placeholder);
    EXPECT_EQ(g.spacing[0].mark, Mark::Normal);
    EXPECT_EQ(g.spacing[1].mark, Mark::Placeholder);
    EXPECT_EQ(g.spacing.back().mark, Mark::Placeholder);
    // Beams after a missing distance stand where a placeholder puts them.
    EXPECT_EQ(g.beamX[0].mark, Mark::Normal);
    EXPECT_EQ(g.beamX[1].mark, Mark::Placeholder);
    // Without elevations the engine's bottom and every top are placeholders.
    EXPECT_EQ(g.stepTop[0].mark, Mark::Placeholder);
    EXPECT_EQ(g.bottomLeft.mark, Mark::Placeholder);
    EXPECT_EQ(g.leftPostTop.mark, Mark::Placeholder);
    EXPECT_TRUE(g.problems.empty());
}

TEST(BentInputs, TheBentShownIsTheOneBeingEnteredOrTheSelectedRow) {
    test::Loaded app;
    chooseText(*app, Ctl::cboTybent, "Pile End Bent without Backwall");
    chooseText(*app, Ctl::cboNoBeam, "2");
    app->changeTable([&](BentTable& t) { t.addItem("3\t\t\t100.00\t100.50\t104.00\t103.00\t104.00\t101.00\t"); });
    app->changeTable(
        [&](BentTable& t) { t.addItem("4\t96.00\t96.50\t101.00\t101.50\t105.00\t105.00\t105.00\t105.00\t"); });
    // Nothing selected, nothing entered: the last bent.
    BentInputs in = readBentInputs(app->project(), std::nullopt, {app->focus(), app->selection().row});
    EXPECT_EQ(in.bentLabel, "Bent 4");
    EXPECT_FALSE(in.bottomComputed);
    EXPECT_EQ(in.bottomLeft.text, "96.00");
    EXPECT_EQ(in.stepElevations[1].text, "101.50");
    EXPECT_TRUE(in.leftLevel);
    EXPECT_EQ(in.leftTop.text, "105.00");
    // A selected row; its two different wingwall tops make a sloped wingwall.
    app->select(1, 1);
    in = readBentInputs(app->project(), std::nullopt, {app->focus(), app->selection().row});
    EXPECT_EQ(in.bentLabel, "Bent 3");
    EXPECT_TRUE(in.bottomComputed);
    EXPECT_FALSE(in.rightLevel);
    EXPECT_EQ(in.rightFrontTop.text, "103.00");
    EXPECT_EQ(in.rightEndTop.text, "101.00");
    EXPECT_EQ(in.rightFrontTop.id, CtlId(Ctl::txtElevationTopRighFront));
    // Typing a bent: the entry fields.
    app->setText(CtlId(Ctl::txtEStepPI, 0), "99.00");
    in = readBentInputs(app->project(), std::nullopt, {app->focus(), app->selection().row});
    EXPECT_EQ(in.bentLabel, "Bent being entered");
    EXPECT_EQ(in.stepElevations[0].text, "99.00");
    // A row asked for by number.
    in = readBentInputs(app->project(), 2);
    EXPECT_EQ(in.bentLabel, "Bent 4");
}

TEST(BentInputs, FocusedFieldsMapToWhatTheDrawingShows) {
    EXPECT_EQ(drawnControl(CtlId(Ctl::txtBeamangleS, 4)), CtlId(Ctl::txtBeamangleH, 4));
    EXPECT_EQ(drawnControl(CtlId(Ctl::txtWinRAngle, 2)), CtlId(Ctl::txtWinRAngle, 0));
    EXPECT_EQ(drawnControl(CtlId(Ctl::txtCapLength)), CtlId(Ctl::txtCapLength));
    EXPECT_EQ(inElevation(CtlId(Ctl::txtEStepPI, 3)), true);
    EXPECT_EQ(inElevation(CtlId(Ctl::txtCapStep, 0)), true);
    EXPECT_EQ(inElevation(CtlId(Ctl::txtCenterline, 3)), false);
    EXPECT_EQ(inElevation(CtlId(Ctl::cmdQuantity, 0)), std::nullopt);
    AngleInput a{{CtlId(Ctl::txtWinLAngle, 0), "-10"}, {CtlId(Ctl::txtWinLAngle, 1), "30"}, {}};
    EXPECT_NEAR(*a.value(), -10.5, kEps);
    EXPECT_EQ(a.text(), "-10\xC2\xB0"
                        "30'00\"");
}

} // namespace
} // namespace tw::drawing
