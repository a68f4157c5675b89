// The drawing of a bent and the explanatory sketches, as scenes.
#include "core/drawing/BentDrawing.h"
#include "core/drawing/Sketches.h"
#include "core/output/Outputs.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tw::drawing {
namespace {

std::vector<const Shape*> texts(const Scene& s, const std::string& text) {
    std::vector<const Shape*> found;
    for (const auto& shape : s.shapes)
        if ((shape.kind == Shape::Kind::Text || shape.kind == Shape::Kind::Dimension) && !text.empty() &&
            shape.text == text)
            found.push_back(&shape);
    return found;
}

bool hasSource(const Scene& s, const std::string& source) {
    return std::any_of(s.shapes.begin(), s.shapes.end(), [&](const Shape& sh) { return sh.source == source; });
}

TEST(BentDrawing, LabelsShowTheValuesAsTheFormShowsThem) {
    BentInputs in = typicalProject(BentType::EndWithBackwall);
    in.projectInfo = {"SR 12 OVER CEDAR CREEK", "", "PROJECT 4471"};
    in.bentLabel = "Bent 7";
    const Scene s = drawBentToFit(in, {}, 1200, 0);
    // Dimensions carry the texts of their inputs, closing values computed as the form computes them.
    for (const char* t : {"36.0000", "6.0000", "12.0000", "100.25", "96.50", "105.75", "104.00", "101.50"})
        EXPECT_FALSE(texts(s, t).empty()) << t;
    EXPECT_FALSE(texts(s, "80\xC2\xB0 0' 0.0\"").empty());
    for (const char* n : {"1", "2", "3"})
        EXPECT_FALSE(texts(s, n).empty()) << "beam " << n;
    // Every input the plan and elevation show is tagged with its control.
    for (const char* source :
         {"txtCapLength",           "txtCapWidth",           "txtCenterline(0)",    "txtCenterline(20)",
          "txtBeamangleH(0)",       "txtCenterlineDistance", "txtWingwallLength",   "txtWinLAngle(0)",
          "txtWinRAngle(0)",        "txtPileBoxDistance1",   "txtPileBoxDistance2", "txtTransWidth",
          "txtLongWidth",           "txtWidthEndPost",       "txtLengthEndPost",    "txtCapStep(2)",
          "txtEStepPI(1)",          "txtBtLCapPI",           "txtBtRCapPI",         "txtElevationTopLeftfront",
          "txtElevationTopLeftEnd", "txtRwingwallElevation", "txtTopLeftEndPost",   "txtTopCentBackwall",
          "txtBatterPile(1)"})
        EXPECT_TRUE(hasSource(s, source)) << source;
    // The title block: the bent type, the bent and the project lines.
    EXPECT_FALSE(texts(s, "Pile End Bent with Backwall  \xE2\x80\x94  Bent 7").empty());
    EXPECT_FALSE(texts(s, "SR 12 OVER CEDAR CREEK\nPROJECT 4471").empty());
}

TEST(BentDrawing, PlaceholdersAndErrorsAreMarked) {
    BentInputs in = typicalProject(BentType::Intermediate);
    in.capLength.text = "";
    in.stepElevations[1].text = "";
    Scene s = drawBent(in, {}, 0.05);
    auto marked = [&](const std::string& source, Mark m) {
        return std::any_of(s.shapes.begin(), s.shapes.end(),
                           [&](const Shape& sh) { return sh.source == source && sh.mark == m; });
    };
    EXPECT_TRUE(marked("txtCapLength", Mark::Placeholder));
    EXPECT_TRUE(marked("txtEStepPI(1)", Mark::Placeholder));
    EXPECT_FALSE(texts(s, "?").empty());
    // Distances that overrun the cap: the closing distance is red and the drawing says why.
    in = typicalProject(BentType::Intermediate);
    in.capLength.text = "20.0000";
    s = drawBent(in, {}, 0.05);
    EXPECT_TRUE(marked("txtCenterline(20)", Mark::Error));
    EXPECT_FALSE(texts(s, "-10.0000").empty());
    const bool said = std::any_of(s.shapes.begin(), s.shapes.end(), [](const Shape& sh) {
        return sh.mark == Mark::Error && sh.text.find("leave nothing of the cap length") != std::string::npos;
    });
    EXPECT_TRUE(said);
}

TEST(BentDrawing, TheLayoutFitsTheViewWithRoomForItsText) {
    const BentInputs in = typicalProject(BentType::EndWithoutBackwall);
    for (auto [w, h] : {std::pair{720.0, 450.0}, std::pair{1200.0, 0.0}}) {
        LayoutReport report;
        const Scene s = drawBentToFit(in, {}, w, h, &report);
        // The scale the view gives is the scale the text's room was worked out for.
        EXPECT_NEAR(feetPerPointToFit(s.bounds(), w, h), report.feetPerPoint, 0.03 * report.feetPerPoint) << w;
        EXPECT_FALSE(report.cramped) << w;
    }
    // A view that cannot hold the text says so, rather than shrinking the bent to nothing.
    LayoutReport tiny;
    drawBentToFit(in, {}, 120, 120, &tiny);
    EXPECT_TRUE(tiny.cramped);
    // A narrow view lists what would crowd the plan's sides under the drawing.
    const Scene narrow = drawBentToFit(in, {}, 200, 400);
    EXPECT_FALSE(texts(narrow, "Cap width 3.0000").empty());
    EXPECT_TRUE(texts(drawBentToFit(in, {}, 1200, 0), "Cap width 3.0000").empty());
    // Plan or elevation alone.
    DrawOptions planOnly;
    planOnly.elevation = false;
    EXPECT_FALSE(hasSource(drawBent(in, planOnly, 0.05), "txtEStepPI(0)"));
    EXPECT_TRUE(hasSource(drawBent(in, planOnly, 0.05), "txtCenterline(0)"));
}

TEST(Sketches, EachPictureNameIsASketchLabelledWithPrompts) {
    const char* small[] = {"bdapb", "bdawbw", "bdawobw", "cbpb",  "cbwbw", "cbwobw", "epb",   "ewbw",
                           "ewobw", "cpb",    "cwbw",    "cwobw", "bdpb",  "bdwbw",  "bdwobw"};
    for (const char* name : small) {
        const auto sketch = sketchNamed(name);
        ASSERT_TRUE(sketch) << name;
        const Scene s = drawBentToFit(sketch->inputs, sketch->options, kSketchWidthPt, kSketchHeightPt);
        bool prompt = false;
        for (const auto& shape : s.shapes) {
            if (shape.kind != Shape::Kind::Text && shape.kind != Shape::Kind::Dimension) continue;
            if (shape.text.empty()) continue;
            // No value is shown, and nothing is smaller than 9 points at the sketch's size.
            EXPECT_EQ(shape.text.find(".0000"), std::string::npos) << name << ": " << shape.text;
            EXPECT_GE(shape.height, 9) << name << ": " << shape.text;
            prompt = prompt || shape.text.rfind("Enter ", 0) == 0 ||
                     shape.text.find("Locations") != std::string::npos ||
                     shape.text.find("Step Elevations") != std::string::npos;
        }
        EXPECT_TRUE(prompt) << name;
    }
    // The full-size keys are names too; "cwbw" is the centerlines sketch of the bent with backwall.
    for (const char* key : {"cwbw", "bdapb", "epb"})
        EXPECT_TRUE(sketchNamed(key)) << key;
    EXPECT_EQ(sketchNamed("cwbw")->options.heading, "Centerlines");
    EXPECT_EQ(sketchNamed("cbwbw")->options.heading, "Centerline of Beams");
    EXPECT_FALSE(sketchNamed("xyz"));
    EXPECT_FALSE(sketchNamed(""));
}

TEST(Sketches, TheirLabelsAreTheFormsPrompts) {
    const auto elevation = sketchNamed("ewbw");
    const Scene s = drawBentToFit(elevation->inputs, elevation->options, kSketchWidthPt, kSketchHeightPt);
    EXPECT_FALSE(texts(s, "Enter the bottom left\ncap elevation").empty());
    EXPECT_FALSE(texts(s, "Top of the left end post").empty());
    const auto plan = sketchNamed("cbwobw");
    const Scene p = drawBentToFit(plan->inputs, plan->options, kSketchWidthPt, kSketchHeightPt);
    EXPECT_FALSE(texts(p, "Enter the length of the\ncap measured along the\nfront face of the cap").empty());
    EXPECT_FALSE(texts(p, "Centerline Locations 2").empty());
}

} // namespace
} // namespace tw::drawing
