// SPDX-License-Identifier: Apache-2.0
// Design-file records become shapes: colour, weight, line style, texts,
// levels; style strings read leniently; a cut-off element chain is found.
#include "core/drawing/DgnFile.h"
#include "core/drawing/FeatureStyle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace tw::drawing {
namespace {

using Kind = DgnElement::Kind;

DgnElement line(std::string style = {}) {
    DgnElement e;
    e.kind = Kind::LineString;
    e.paths = {{{0, 0}, {10, 5}}};
    e.styleString = std::move(style);
    return e;
}

DgnElement text(std::string style, std::string field = {}) {
    DgnElement e;
    e.kind = Kind::Text;
    e.paths = {{{2, 3}}};
    e.text = std::move(field);
    e.styleString = std::move(style);
    return e;
}

// What a scene draws, in the order it is painted: the polylines, then the shapes.
std::vector<Shape> drawn(const Scene& s) {
    std::vector<Shape> all;
    for (std::size_t i = 0; i < s.polylines.size(); ++i)
        all.push_back(s.polylines.shape(i));
    all.insert(all.end(), s.shapes.begin(), s.shapes.end());
    return all;
}

// The one shape of a scene.
Shape only(const Scene& s) {
    const auto all = drawn(s);
    EXPECT_EQ(all.size(), 1u);
    return all.empty() ? Shape{} : all.front();
}

TEST(FeatureStyle, ToolsAndParametersAsGdalWritesThem) {
    const auto tools =
        parseFeatureStyle(R"(PEN(id:"ogr-pen-2",c:#0000ff,w:2px);BRUSH(fc:#ff7f00, id:"ogr-brush-0");label(t:"A, B"))");
    ASSERT_EQ(tools.size(), 3u);
    EXPECT_EQ(tools[0].name, "PEN");
    EXPECT_EQ(tools[0].get("id"), "ogr-pen-2");
    EXPECT_EQ(tools[0].get("w"), "2px");
    EXPECT_EQ(tools[1].get("id"), "ogr-brush-0");
    EXPECT_EQ(tools[2].name, "LABEL");
    EXPECT_EQ(tools[2].get("t"), "A, B");
    EXPECT_FALSE(tools[2].get("s"));
    // GDAL's DGN reader leaves quotes inside a text unescaped.
    EXPECT_EQ(parseFeatureStyle(R"(LABEL(t:"BENT "A" 2",s:0.600g))")[0].get("t"), R"(BENT "A" 2)");
    EXPECT_EQ(parseFeatureStyle(R"(LABEL(t:"say \"hi\"",a:30))")[0].get("t"), R"(say "hi")");
}

TEST(FeatureStyle, WhatCannotBeReadYieldsWhatCould) {
    for (const char* style : {"", ";;", "@table-style", "PEN", "PEN(", "PEN(c", "PEN(c:\"#ff0000", "((((", "))",
                              "PEN(c:#ff0000,,w:)", "(c:#ff0000)"}) {
        SCOPED_TRACE(style);
        for (const auto& tool : parseFeatureStyle(style))
            EXPECT_FALSE(tool.name.empty());
    }
    EXPECT_EQ(parseFeatureStyle("@table;PEN(c:#ff0000)").size(), 1u);
}

TEST(FeatureStyle, ColoursAndSizes) {
    EXPECT_EQ(parseStyleColor("#00a5ff"), (Color{0, 165, 255}));
    EXPECT_EQ(parseStyleColor("#00A5FF80"), (Color{0, 165, 255}));
    for (const char* bad : {"", "#", "00a5ff", "#00a5f", "#00a5fg", "#00a5ff8", "red"}) {
        SCOPED_TRACE(bad);
        EXPECT_FALSE(parseStyleColor(bad));
    }
    EXPECT_EQ(parseStyleSize("0.6g")->unit, StyleSize::Unit::Ground);
    EXPECT_FALSE(parseStyleSize("0.6g")->millimetres());
    EXPECT_DOUBLE_EQ(*parseStyleSize("96px")->millimetres(), 25.4);
    EXPECT_DOUBLE_EQ(*parseStyleSize("72pt")->millimetres(), 25.4);
    EXPECT_DOUBLE_EQ(*parseStyleSize("2")->millimetres(), 2);
    EXPECT_DOUBLE_EQ(*parseStyleSize("1cm")->millimetres(), 10);
    for (const char* bad : {"", "px", "2furlongs", "nan", "inf", "1e999"}) {
        SCOPED_TRACE(bad);
        EXPECT_FALSE(parseStyleSize(bad));
    }
}

TEST(DgnScene, ColourFromTheElementThenItsStyleThenTheStandardTable) {
    DgnElement e = line("PEN(c:#00a500)");
    e.colorIndex = 3;
    e.rgb = Color{1, 2, 3};
    EXPECT_EQ(only(sceneFromDgn({e})).pen.color, (Color{1, 2, 3}));
    e.rgb.reset();
    EXPECT_EQ(only(sceneFromDgn({e})).pen.color, (Color{0, 165, 0})); // the file's own table
    e.styleString.clear();
    EXPECT_EQ(only(sceneFromDgn({e})).pen.color, (Color{255, 0, 0}));
    EXPECT_EQ(dgnColor(1), (Color{0, 0, 255}));
    EXPECT_EQ(dgnColor(98), (Color{0, 165, 0}));
    EXPECT_EQ(dgnColor(-1), (Color{}));
    EXPECT_EQ(dgnColor(256), (Color{}));
    // White, the usual colour on a CAD screen, is black on paper.
    e.colorIndex = 0;
    EXPECT_EQ(only(sceneFromDgn({e})).pen.color, (Color{0, 0, 0}));
}

TEST(DgnScene, WeightAndLineStyleFromTheElementOrItsPen) {
    const std::vector<std::pair<std::string, LineStyle>> pens = {
        {R"(PEN(id:"ogr-pen-0"))", LineStyle::Solid},  {R"(PEN(id:"ogr-pen-2"))", LineStyle::Dashed},
        {R"(PEN(id:"ogr-pen-5"))", LineStyle::Dotted}, {R"(PEN(id:"ogr-pen-6"))", LineStyle::Center},
        {R"(PEN(p:"10px 5px"))", LineStyle::Dashed},   {R"(PEN(p:"10px 5px 4px 5px"))", LineStyle::Center},
        {R"(PEN(c:#000000))", LineStyle::Solid},
    };
    for (const auto& [style, expected] : pens) {
        SCOPED_TRACE(style);
        EXPECT_EQ(only(sceneFromDgn({line(style)})).pen.style, expected);
    }
    DgnElement e = line(R"(PEN(id:"ogr-pen-0",w:4px))");
    EXPECT_NEAR(only(sceneFromDgn({e})).pen.width, 4 * 25.4 / 96, 1e-9);
    e.weight = 2;
    e.style = 7;
    const Shape s = only(sceneFromDgn({e}));
    EXPECT_GT(s.pen.width, 0);
    EXPECT_EQ(s.pen.style, LineStyle::Center);
    e.weight = 0;
    EXPECT_EQ(only(sceneFromDgn({e})).pen.width, 0);
}

TEST(DgnScene, ShapesAreClosedAndFilledWhereTheFileSaysSo) {
    DgnElement e;
    e.kind = Kind::Shape;
    e.paths = {{{0, 0}, {4, 0}, {4, 3}, {0, 0}}, {{1, 1}, {2, 1}, {2, 2}}};
    e.closed = true;
    e.styleString = "BRUSH(fc:#ff7f00);PEN(c:#0000ff)";
    e.level = 7;
    const Scene s = sceneFromDgn({e});
    ASSERT_EQ(drawn(s).size(), 2u); // a shape with a hole
    for (const auto& shape : drawn(s)) {
        EXPECT_TRUE(shape.closed);
        EXPECT_EQ(shape.fill, (Color{255, 127, 0}));
        EXPECT_EQ(shape.pen.color, (Color{0, 0, 255}));
        EXPECT_EQ(shape.level, 7);
    }
    EXPECT_EQ(s.levels(), std::vector<int>{7});
    // An open line string takes no fill.
    EXPECT_FALSE(only(sceneFromDgn({line("BRUSH(fc:#ff7f00)")})).fill);
}

TEST(DgnScene, TextsStandInDrawingUnitsOrOnThePage) {
    // The text field wins over the label's copy (which GDAL does not escape).
    const Shape t = only(sceneFromDgn({text(R"(LABEL(t:"BENT "2",c:#ff0000,s:0.500g,a:90))", R"(BENT "2")")}));
    EXPECT_EQ(t.kind, Shape::Kind::Text);
    EXPECT_EQ(t.text, R"(BENT "2")");
    EXPECT_EQ(t.points.front(), (Point{2, 3}));
    EXPECT_FALSE(t.screenSized);
    EXPECT_GT(t.height, 0.5); // a capital's height, drawn in a font whose em is larger
    EXPECT_LT(t.height, 1.0);
    EXPECT_EQ(t.angle, 90);
    EXPECT_EQ(t.pen.color, (Color{255, 0, 0}));

    const Shape label = only(sceneFromDgn({text(R"(LABEL(t:"NOTE",s:12pt,p:5))")}));
    EXPECT_EQ(label.text, "NOTE");
    EXPECT_TRUE(label.screenSized);
    EXPECT_NEAR(label.height, 12, 1e-9);
    EXPECT_EQ(label.halign, HAlign::Center);
    EXPECT_EQ(label.valign, VAlign::Middle);

    DgnElement given = text("", "SIZED");
    given.textSize = 2;
    given.textAngle = 450;
    const Shape sized = only(sceneFromDgn({given}));
    EXPECT_FALSE(sized.screenSized);
    EXPECT_EQ(sized.angle, 90);
    EXPECT_TRUE(drawn(sceneFromDgn({text("LABEL(s:1g)")})).empty()); // nothing to write
}

TEST(DgnScene, ArcsWhenTheReaderKnowsThemOtherwiseTheirStrokes) {
    DgnElement e;
    e.kind = Kind::Arc;
    e.paths = {{{1, 0}, {0, 1}, {-1, 0}}};
    EXPECT_EQ(only(sceneFromDgn({e})).kind, Shape::Kind::Polyline);
    e.arc = DgnArc{{0, 0}, 1, 1, 0, 0, 180};
    const Shape a = only(sceneFromDgn({e}));
    EXPECT_EQ(a.kind, Shape::Kind::Arc);
    EXPECT_EQ(a.sweep, 180);
}

// An arc's extent holds every point of the arc and no more: rotated
// ellipses, either way round, through or short of their extremes, whole.
TEST(DgnScene, AnArcsExtentIsTheArcsOwn) {
    struct Case {
        double rx, ry, rotation, start, sweep;
    };
    const Case cases[] = {{1, 1, 0, 0, 360},      {3, 1, 30, 0, 360},        {3, 1, 30, 10, 60}, {2, 5, -70, 350, 40},
                          {2, 5, 110, 200, -250}, {4, 1, 45, 720 + 80, 100}, {1, 2, 0, 90, 0.5}, {5, 3, 15, -30, -400}};
    for (const Case& c : cases) {
        Scene scene;
        Shape& arc = scene.arc({10, -4}, c.rx, c.ry, c.start, c.sweep);
        arc.rotation = c.rotation;
        const Box box = scene.bounds();
        Box dense;
        const double rot = c.rotation * std::numbers::pi / 180;
        for (int i = 0; i <= 20000; ++i) {
            const double a = (c.start + c.sweep * i / 20000) * std::numbers::pi / 180;
            const double x = c.rx * std::cos(a), y = c.ry * std::sin(a);
            dense.add(Point{10 + x * std::cos(rot) - y * std::sin(rot), -4 + x * std::sin(rot) + y * std::cos(rot)});
        }
        const double tight = 1e-6 * std::max(c.rx, c.ry);
        SCOPED_TRACE(testing::Message() << c.rx << " " << c.ry << " " << c.rotation << " " << c.start << " "
                                        << c.sweep);
        EXPECT_NEAR(box.minX, dense.minX, tight);
        EXPECT_NEAR(box.maxX, dense.maxX, tight);
        EXPECT_NEAR(box.minY, dense.minY, tight);
        EXPECT_NEAR(box.maxY, dense.maxY, tight);
    }
}

TEST(DgnScene, NumbersThatAreNoneAreLeftOut) {
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    DgnElement broken;
    broken.kind = Kind::LineString;
    broken.paths = {{{nan, 0}, {0, inf}}};
    DgnElement partly = line();
    partly.paths[0].push_back({nan, nan});
    DgnElement arc = line();
    arc.arc = DgnArc{{0, 0}, nan, 1, 0, 0, 360};
    DgnElement label = text("LABEL(s:1e308g,a:nan)", "HUGE");
    label.textSize = inf;
    const Scene s = sceneFromDgn({broken, partly, arc, label});
    const auto shapes = drawn(s);
    ASSERT_EQ(shapes.size(), 3u);
    EXPECT_EQ(shapes[0].points.size(), 2u);
    EXPECT_EQ(shapes[1].kind, Shape::Kind::Polyline); // the stroke stands in for the broken arc
    EXPECT_TRUE(std::isfinite(shapes[2].height));
    const Box box = s.bounds();
    EXPECT_TRUE(std::isfinite(box.width()) && std::isfinite(box.height()));
}

// A V7 element: level, type, words to follow, then the words.
std::string element(int type, int words) {
    std::string e = {char(1), char(type), char(words & 0xff), char(words >> 8)};
    return e + std::string(static_cast<size_t>(2 * words), '\0');
}

TEST(DgnChain, AWholeFileAndTheWaysOneBreaksOff) {
    const std::string end = "\xff\xff";
    const std::string whole = element(9, 766) + element(3, 20) + element(4, 300) + end;
    EXPECT_FALSE(dgnChainProblem(whole));
    EXPECT_FALSE(dgnChainProblem(whole + std::string(512, '\0'))); // padding after the end
    const auto cut = dgnChainProblem(whole.substr(0, whole.size() - 100));
    ASSERT_TRUE(cut);
    EXPECT_NE(cut->find("element 3"), std::string::npos);
    const auto noEnd = dgnChainProblem(whole.substr(0, whole.size() - 2));
    ASSERT_TRUE(noEnd);
    EXPECT_NE(noEnd->find("end-of-design"), std::string::npos);
    EXPECT_TRUE(dgnChainProblem(whole.substr(0, 3)));
}

} // namespace
} // namespace tw::drawing
