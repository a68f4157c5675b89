// SPDX-License-Identifier: Apache-2.0
// The drawing of a bent and the explanatory sketches, as scenes.
#include "core/drawing/BentDrawing.h"
#include "DrawingChecks.h"
#include "FakePorts.h"
#include "LargestProject.h"
#include "TestFiles.h"
#include "core/drawing/Sketches.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Numeric.h"
#include "core/output/Outputs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <random>
#include <tuple>

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
    // Dimensions carry their inputs' values in feet and inches, closing values computed as the
    // form computes them; elevations read as elevations, angles in one form.
    for (const char* t :
         {"36'-0\"", "6'-0\"", "12'-0\"", "EL. 100.25", "EL. 96.50", "EL. 105.75", "EL. 104.00", "EL. 101.50",
          "80\xC2\xB0"
          "00'00\"",
          "100\xC2\xB0"
          "00'00\""})
        EXPECT_FALSE(texts(s, t).empty()) << t;
    // Or in decimal feet.
    DrawOptions decimal;
    decimal.units = LengthUnits::DecimalFeet;
    const Scene d = drawBentToFit(in, decimal, 1200, 0);
    for (const char* t : {"36.00'", "6.00'", "12.00'", "EL. 100.25"})
        EXPECT_FALSE(texts(d, t).empty()) << t;
    EXPECT_TRUE(texts(d, "36'-0\"").empty());
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
    EXPECT_FALSE(texts(s, "-10'-0\"").empty());
    const bool said = std::any_of(s.shapes.begin(), s.shapes.end(), [](const Shape& sh) {
        return sh.mark == Mark::Error && sh.text.find("leave nothing of the cap length") != std::string::npos;
    });
    EXPECT_TRUE(said);
}

TEST(BentDrawing, TheLayoutFitsTheViewWithRoomForItsText) {
    const BentInputs in = typicalProject(BentType::EndWithoutBackwall);
    DrawOptions planOnly;
    planOnly.elevation = false;
    for (auto [w, h, o] : {std::tuple{720.0, 450.0, planOnly}, std::tuple{1200.0, 0.0, DrawOptions{}}}) {
        LayoutReport report;
        const Scene s = drawBentToFit(in, o, w, h, &report);
        // The scale the view gives is the scale the text's room was worked out for.
        EXPECT_NEAR(feetPerPointToFit(s.bounds(), w, h), report.feetPerPoint, 0.03 * report.feetPerPoint) << w;
        EXPECT_FALSE(report.cramped) << w;
    }
    // A view that cannot hold the text says so, rather than shrinking the bent to nothing or
    // its text below the smallest size that reads: the drawing takes the view's width and
    // runs on below it, its text at its own size.
    LayoutReport tiny;
    const Scene small = drawBentToFit(in, {}, 120, 120, &tiny);
    EXPECT_TRUE(tiny.cramped);
    EXPECT_TRUE(tiny.tooSmall);
    EXPECT_EQ(tiny.textPt, 9);
    EXPECT_GT(small.bounds().height() / tiny.feetPerPoint, 120);
    // Its text wider than the view even so, the cap takes half the view's width and the labels run past it.
    EXPECT_NEAR(36 / tiny.feetPerPoint, 60, 0.5);
    // A narrow view lists what would crowd the plan's sides under the drawing.
    const Scene narrow = drawBentToFit(in, {}, 200, 400);
    EXPECT_FALSE(texts(narrow, "Cap width 3'-0\"").empty());
    EXPECT_TRUE(texts(drawBentToFit(in, {}, 1200, 0), "Cap width 3'-0\"").empty());
    // Plan or elevation alone.
    EXPECT_FALSE(hasSource(drawBent(in, planOnly, 0.05), "txtEStepPI(0)"));
    EXPECT_TRUE(hasSource(drawBent(in, planOnly, 0.05), "txtCenterline(0)"));
}

TEST(BentDrawing, ADrawingForPaperSaysItsUnitsAndCarriesABarOfARoundLength) {
    const BentInputs in = typicalProject(BentType::EndWithBackwall);
    for (const LengthUnits units : {LengthUnits::FeetInches, LengthUnits::DecimalFeet}) {
        DrawOptions o;
        o.legend = true;
        o.units = units;
        for (const double width : {300.0, 600.0, 1200.0}) {
            LayoutReport report;
            const Scene s = drawBentToFit(in, o, width, 0, &report);
            const char* said =
                units == LengthUnits::FeetInches ? "Lengths in feet and inches" : "Lengths in decimal feet";
            ASSERT_EQ(texts(s, said).size(), 1u) << said;
            // The bar's black and white parts end to end, under everything else.
            Box bar;
            int parts = 0;
            for (const auto& shape : s.shapes)
                if (shape.kind == Shape::Kind::Polyline && shape.level == kNotes && shape.closed) {
                    ++parts;
                    for (const auto& p : shape.points)
                        bar.add(p);
                }
            ASSERT_EQ(parts, 4) << width;
            const double length = bar.width();
            EXPECT_GE(length / report.feetPerPoint, 72 * (1 - 1e-6)) << width;
            EXPECT_LE(length / report.feetPerPoint, 180 * (1 + 1e-6)) << width;
            const double decade = std::pow(10.0, std::floor(std::log10(length) + 1e-9));
            const double leading = length / decade;
            EXPECT_TRUE(std::abs(leading - 1) < 1e-6 || std::abs(leading - 2) < 1e-6 || std::abs(leading - 5) < 1e-6)
                << length;
            EXPECT_FALSE(texts(s, formatLength(length, units)).empty()) << length;
            EXPECT_FALSE(texts(s, formatLength(length / 2, units)).empty()) << length;
            for (const auto& shape : s.shapes) {
                if (shape.kind != Shape::Kind::Polyline || shape.level == kNotes) continue;
                for (const auto& p : shape.points)
                    EXPECT_GT(p.y, bar.maxY);
            }
            EXPECT_TRUE(test::clashesIn(s, report.feetPerPoint).empty()) << width;
        }
    }
    // The pane has none: the view's zoom is its scale.
    EXPECT_TRUE(texts(drawBentToFit(in, {}, 600, 0), "Lengths in feet and inches").empty());
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

// ---- labels clear of one another ----

// The views a bent is drawn for: the window's pane on the smallest screens it
// is made for, and the page of `tarnwick draw`.
struct View {
    double width, height, margin;
    bool pane;
    const char* name;
};
const View kViews[] = {{252.75, 454.5, kPaneMargin, true, "the pane at 1366 x 768"},
                       {252.75, 358.5, kPaneMargin, true, "the pane at 1024 x 640"},
                       {1200, 1800, 0.05, false, "the page of tarnwick draw"}};

struct Shown {
    const char* name;
    bool plan, elevation;
};
const Shown kShown[] = {{"plan and elevation", true, true}, {"plan", true, false}, {"elevation", false, true}};

void expectClear(const BentInputs& in, const std::string& what) {
    for (const View& view : kViews)
        for (const Shown& shown : kShown) {
            DrawOptions o;
            o.plan = shown.plan;
            o.elevation = shown.elevation;
            o.projectLines = !view.pane; // the pane stands beside the form that shows them
            o.legend = !view.pane;       // a page carries its units and a scale bar
            LayoutReport report;
            const Scene s = drawBentToFit(in, o, view.width, view.height, &report, view.margin);
            // Checked at the scale the view shows it at, which it fills when it can.
            const double fpp = s.feetPerPoint;
            EXPECT_EQ(fpp, report.feetPerPoint) << what;
            if (!report.tooSmall) {
                // At most a few labels that had to move may have it shown a little smaller.
                EXPECT_LE(feetPerPointToFit(s.bounds(), view.width, view.height, view.margin), fpp * 1.05)
                    << what << ", " << shown.name << " in " << view.name;
            }
            const auto clashes = test::clashesIn(s, fpp);
            for (std::size_t i = 0; i < std::min<std::size_t>(clashes.size(), 3); ++i)
                ADD_FAILURE() << what << ", " << shown.name << " in " << view.name << ": " << clashes[i]
                              << (clashes.size() > 3 ? " (and " + std::to_string(clashes.size() - 3) + " more)" : "");
        }
}

std::string feet(double v) { return formatField(4, 4, std::to_string(v)); }

// A project of `beams` beams with values drawn at random: distances near and far,
// closing distances that run negative, angles alike or not, long project titles.
BentInputs generated(BentType type, int beams, std::mt19937& rng) {
    auto real = [&](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(rng); };
    auto pick = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); };
    BentInputs in = typicalProject(type);
    in.beams = beams;
    double sum = 0;
    for (int i = 0; i < beams; ++i) {
        const double d = pick(5) == 0 ? real(0.1, 1.5) : real(2, 12);
        in.centerlines[static_cast<std::size_t>(i)].text = feet(d);
        in.capSteps[static_cast<std::size_t>(i)].text = feet(real(1, 10));
        in.stepElevations[static_cast<std::size_t>(i)].text = formatField(4, 2, std::to_string(real(95, 105)));
        sum += d;
    }
    // Now and then the centerlines run past the end of the cap.
    in.capLength.text = feet(pick(4) == 0 ? sum * real(0.6, 0.95) : sum + real(2, 12));
    in.skew = std::array{Skew::None, Skew::Right, Skew::Left}[static_cast<std::size_t>(pick(3))];
    in.anglesAlike = pick(2) == 0;
    for (auto& a : in.beamAngles) {
        a.degrees.text = std::to_string(60 + pick(61));
        a.minutes.text = std::to_string(pick(60));
        a.seconds.text = std::to_string(pick(60)) + ".5";
    }
    in.wingsParallel = pick(2) == 0;
    in.leftWing.degrees.text = std::to_string(60 + pick(61));
    in.rightWing.degrees.text = std::to_string(60 + pick(61));
    in.wingwallLength.text = feet(real(4, 20));
    in.pileBoxes = pick(4);
    in.batteredDrawn = pick(2) == 0;
    in.battered = 1 + pick(6);
    in.bottomComputed = pick(2) == 0;
    in.leftLevel = pick(2) == 0;
    in.rightLevel = pick(2) == 0;
    in.bentLabel = "Bent " + std::to_string(1 + pick(99));
    if (pick(2) == 0) {
        std::string title;
        while (title.size() < 400)
            title += "STATE ROUTE " + std::to_string(pick(1000)) + " OVER THE NORVALE RIVER ";
        in.projectInfo = {title, title.substr(0, 90), "PROJECT " + std::string(200, 'X')};
    }
    return in;
}

// The samples and the largest project the program allows, each bent of them.
std::vector<std::pair<std::string, BentInputs>> projectBents() {
    std::vector<std::pair<std::string, BentInputs>> out;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(TW_SOURCE_DIR) + "/samples")) {
        test::Loaded app;
        parseProject(*app, test::slurp(entry.path()));
        for (int row = 1; row < app->project().table().rows(); ++row)
            out.emplace_back(entry.path().filename().string() + " bent " + std::to_string(row),
                             readBentInputs(app->project(), row, {}));
    }
    test::Loaded largest;
    test::fillLargestProject(*largest);
    out.emplace_back("the largest project", readBentInputs(largest->project(), 1, {}));
    return out;
}

TEST(BentDrawingLabels, NothingTouchesALabelInTheSamplesAndTheLargestProject) {
    for (const auto& [name, in] : projectBents())
        expectClear(in, name);
}

// Every number of beams and every skew, with values drawn at random.
void expectClearForEveryBeamCount(BentType type, unsigned seed) {
    std::mt19937 rng(seed);
    for (int beams = 1; beams <= 20; ++beams)
        for (Skew skew : {Skew::None, Skew::Right, Skew::Left}) {
            BentInputs in = generated(type, beams, rng);
            in.skew = skew;
            expectClear(in, typicalProject(type).typeText + ", " + std::to_string(beams) + " beams, skew " +
                                std::to_string(static_cast<int>(skew)));
        }
}

TEST(BentDrawingLabels, NothingTouchesALabelOfGeneratedIntermediateBents) {
    expectClearForEveryBeamCount(BentType::Intermediate, 20240611);
}
TEST(BentDrawingLabels, NothingTouchesALabelOfGeneratedEndBentsWithBackwall) {
    expectClearForEveryBeamCount(BentType::EndWithBackwall, 20240612);
}
TEST(BentDrawingLabels, NothingTouchesALabelOfGeneratedEndBentsWithoutBackwall) {
    expectClearForEveryBeamCount(BentType::EndWithoutBackwall, 20240613);
}

// The width the cap is drawn at, in points: its outline in the plan or the elevation.
double capWidthPt(const Scene& s, double feetPerPoint) {
    for (const auto& shape : s.shapes)
        if (shape.kind == Shape::Kind::Polyline && shape.fill && shape.source == "txtCapLength") {
            Box b;
            for (const auto& p : shape.points)
                b.add(p);
            return b.width() / feetPerPoint;
        }
    return 0;
}

TEST(BentDrawingLabels, TheCapFillsMostOfThePanesWidth) {
    for (const auto& [name, in] : projectBents())
        for (const View& view : {kViews[0], kViews[1]})
            for (const Shown& shown : {kShown[1], kShown[2]}) {
                DrawOptions o;
                o.plan = shown.plan;
                o.elevation = shown.elevation;
                o.projectLines = false;
                LayoutReport report;
                const Scene s = drawBentToFit(in, o, view.width, view.height, &report, view.margin);
                EXPECT_GE(capWidthPt(s, report.feetPerPoint), 0.8 * view.width)
                    << name << ", " << shown.name << " in " << view.name;
                EXPECT_GE(report.textPt, kSmallestTextPt) << name;
            }
}

TEST(BentDrawingLabels, TheNamedCrowdsAreResolved) {
    // A closing distance that runs backwards keeps its label in the row, under the cap.
    BentInputs in = typicalProject(BentType::Intermediate);
    in.beams = 12;
    for (int i = 0; i < 12; ++i)
        in.centerlines[static_cast<std::size_t>(i)].text = "3.0000";
    in.capLength.text = "30.0000";
    LayoutReport report;
    Scene s = drawBentToFit(in, {}, 1200, 1800, &report);
    const auto closing = texts(s, "-6'-0\"");
    ASSERT_EQ(closing.size(), 1u);
    const auto box = labelBox(*closing.front(), report.feetPerPoint);
    EXPECT_LT(std::max({box->corner(0).y, box->corner(1).y, box->corner(2).y, box->corner(3).y}), 0);
    // The wingwalls' elevations stand above the walls, not on them.
    in = typicalProject(BentType::EndWithoutBackwall);
    s = drawBentToFit(in, {}, 1200, 1800, &report);
    for (const char* top : {"EL. 104.25", "EL. 104.00", "EL. 101.50"}) {
        const auto shown = texts(s, top);
        ASSERT_EQ(shown.size(), 1u) << top;
        const auto b = labelBox(*shown.front(), report.feetPerPoint);
        for (const auto& wall : s.shapes) {
            if (wall.kind != Shape::Kind::Polyline || !wall.fill || wall.source != "txtWingwallLength") continue;
            for (std::size_t k = 0; k < wall.points.size(); ++k)
                EXPECT_FALSE(crosses(*b, wall.points[k], wall.points[(k + 1) % wall.points.size()])) << top;
        }
    }
    // Beams' angles clear of the beams' lines, every beam labelled.
    in = typicalProject(BentType::Intermediate);
    in.anglesAlike = false;
    in.beams = 6;
    for (int i = 0; i < 6; ++i) {
        in.centerlines[static_cast<std::size_t>(i)].text = "2.0000";
        in.beamAngles[static_cast<std::size_t>(i)].degrees.text = std::to_string(70 + 4 * i);
    }
    s = drawBentToFit(in, {}, 720, 450, &report);
    int angles = 0;
    for (const auto& label : s.shapes) {
        if (label.source.rfind("txtBeamangleH", 0) != 0 || label.text.empty()) continue;
        ++angles;
        const auto b = labelBox(label, report.feetPerPoint);
        for (const auto& line : s.shapes) {
            if (line.kind != Shape::Kind::Polyline || line.source.rfind("txtCenterline(", 0) != 0) continue;
            EXPECT_FALSE(crosses(*b, line.points[0], line.points[1])) << label.text << " on " << line.source;
        }
    }
    EXPECT_EQ(angles, 6);
}

TEST(BentDrawingLabels, BoxesAreWhereThePainterSetsTheText) {
    Scene s;
    s.text({10, 20}, "100.00", 10, HAlign::Center, VAlign::Bottom);
    const auto b = labelBox(s.shapes.back(), 0.1); // 10 points of 0.1 foot: an em is a foot
    ASSERT_TRUE(b);
    EXPECT_NEAR(b->width, textWidthEm("100.00"), 1e-9);
    EXPECT_NEAR(b->origin.x, 10 - b->width / 2, 1e-9);
    EXPECT_NEAR(b->origin.y, 20, 1e-9);
    EXPECT_NEAR(b->height, kAscent + kDescent, 1e-9);
    // A dimension's label sits on the side of its line away from what it measures.
    s.dimension({0, 0}, {10, 0}, -3, "10.0000").height = 10;
    const auto d = labelBox(s.shapes.back(), 0.1);
    ASSERT_TRUE(d);
    EXPECT_NEAR(std::max({d->corner(0).y, d->corner(1).y, d->corner(2).y, d->corner(3).y}), -3 - kLabelGapPt * 0.1,
                1e-9);
    EXPECT_FALSE(labelBox(s.text({0, 0}, "", 10), 0.1));
    // Turned boxes overlap where they truly do, not where their extents would.
    LabelBox a{{0, 0}, {1, 0}, {0, 1}, 4, 1},
        turned{{3, 3}, {std::sqrt(0.5), -std::sqrt(0.5)}, {std::sqrt(0.5), std::sqrt(0.5)}, 4, 1};
    EXPECT_FALSE(overlaps(a, turned));
    turned.origin = {2, 0.5};
    EXPECT_TRUE(overlaps(a, turned));
    EXPECT_TRUE(crosses(a, {2, -1}, {2, 2}));
    EXPECT_FALSE(crosses(a, {5, -1}, {5, 2}));
}

// ---- titles of any length ----

TEST(BentDrawingTitle, LongLinesAreBrokenToTheViewAndCutShort) {
    // Within the room, at blanks where there are any, inside a word too long for a line.
    for (const std::string& text : {std::string("SR 12 OVER CEDAR CREEK AND THE NORVALE RAILROAD YARD"),
                                    std::string(300, 'W'), std::string("A  B   C")}) {
        const std::string fitted = fitText(text, 12);
        std::string joined;
        std::size_t start = 0;
        while (start <= fitted.size()) {
            const std::size_t end = std::min(fitted.find('\n', start), fitted.size());
            const std::string line = fitted.substr(start, end - start);
            EXPECT_LE(textWidthEm(line), 12 + 1e-9) << line;
            joined += line;
            start = end + 1;
        }
        std::string letters = text;
        letters.erase(std::remove(letters.begin(), letters.end(), ' '), letters.end());
        joined.erase(std::remove(joined.begin(), joined.end(), ' '), joined.end());
        EXPECT_EQ(joined, letters);
    }
    EXPECT_EQ(fitText("A  B   C", 40), "A  B   C"); // blanks as typed where the words share a line
    // At most so many lines, the last one saying that the text goes on.
    const std::string cut = fitText(std::string(300, 'W'), 12, 3);
    EXPECT_EQ(std::count(cut.begin(), cut.end(), '\n'), 2);
    EXPECT_EQ(cut.substr(cut.size() - 3), "\xE2\x80\xA6");
    EXPECT_LE(textWidthEm(cut.substr(cut.rfind('\n') + 1)), 12 + 1e-9);
    EXPECT_EQ(fitText("\xC3\x89T\xC3\x89", 0.7), "\xC3\x89\nT\n\xC3\x89"); // never inside a character
}

TEST(BentDrawingTitle, ATitleOfTwoHundredThousandCharactersDraws) {
    BentInputs in = typicalProject(BentType::EndWithBackwall);
    std::string title;
    while (title.size() < 200000)
        title += "SR 12 OVER CEDAR CREEK ";
    in.projectInfo = {title, std::string(200000, 'X'), "PROJECT 4471"};
    LayoutReport report, plain;
    const Scene s = drawBentToFit(in, {}, 720, 450, &report);
    drawBentToFit(typicalProject(BentType::EndWithBackwall), {}, 720, 450, &plain);
    // The bent keeps its scale; the title block shows the start of each line within the view.
    EXPECT_LT(report.feetPerPoint, 1.5 * plain.feetPerPoint);
    const auto block = std::find_if(s.shapes.begin(), s.shapes.end(),
                                    [](const Shape& sh) { return sh.text.rfind("SR 12 OVER CEDAR CREEK", 0) == 0; });
    ASSERT_NE(block, s.shapes.end());
    EXPECT_LE(std::count(block->text.begin(), block->text.end(), '\n'), 7);
    EXPECT_NE(block->text.find("PROJECT 4471"), std::string::npos);
    EXPECT_NE(block->text.find("\xE2\x80\xA6"), std::string::npos);
    for (const auto& b : labelBoxes(s, report.feetPerPoint))
        EXPECT_LE(b.width / report.feetPerPoint, 720 * 0.9 + 1) << "a line wider than the view";
}

} // namespace
} // namespace tw::drawing
