// SPDX-License-Identifier: Apache-2.0
// Design-file elements to shapes: colour from the element (or its style
// string, which carries the file's own colour table), weight and line style
// from the element's symbology, texts at their origin in design units.
#include "core/drawing/DgnFile.h"
#include "core/drawing/FeatureStyle.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace tw::drawing {

namespace {

// A weight step is a quarter millimetre on paper: weight 0 is the thinnest line.
constexpr double kMmPerWeight = 0.25;
// A design file measures a text by its capitals; a font's size is its em,
// about 1.4 times as high.
constexpr double kEmPerCapital = 1.4;
// Screen-sized labels without a size of their own.
constexpr double kDefaultLabelPoints = 9;

const StyleTool* findTool(const std::vector<StyleTool>& tools, std::string_view name) {
    for (const auto& t : tools)
        if (t.name == name) return &t;
    return nullptr;
}

std::optional<Color> toolColor(const StyleTool* tool, std::string_view key) {
    if (!tool) return std::nullopt;
    const auto value = tool->get(key);
    return value ? parseStyleColor(*value) : std::nullopt;
}

// A plain number (no unit) of a tool.
std::optional<double> toolNumber(const StyleTool* tool, std::string_view key) {
    if (!tool) return std::nullopt;
    const auto value = tool->get(key);
    if (!value) return std::nullopt;
    const auto size = parseStyleSize(*value);
    if (!size || size->unit != StyleSize::Unit::Millimetre) return std::nullopt;
    return size->value;
}

// White (colour 0) is the usual colour on a CAD program's black screen; on
// our white paper it is drawn black, as a plotter does.
Color onPaper(Color c) {
    const int lightness = (c.r * 299 + c.g * 587 + c.b * 114) / 1000;
    return lightness > 235 ? Color{0, 0, 0} : c;
}

LineStyle lineStyleOfDgn(int style) {
    switch (style) {
    case 1: return LineStyle::Dotted;
    case 2:
    case 3:
    case 5: return LineStyle::Dashed;
    case 4:
    case 6:
    case 7: return LineStyle::Center;
    default: return LineStyle::Solid;
    }
}

// GDAL's standard pens: ogr-pen-0 solid, 2..4 dashes, 5 dots, 6 and 7 dash-dots.
LineStyle lineStyleOfPen(const StyleTool* pen) {
    if (!pen) return LineStyle::Solid;
    if (const auto id = pen->get("id")) {
        const auto at = id->find("ogr-pen-");
        if (at != std::string::npos) {
            int n = 0;
            std::from_chars(id->data() + at + 8, id->data() + id->size(), n);
            if (n >= 2 && n <= 4) return LineStyle::Dashed;
            if (n == 5) return LineStyle::Dotted;
            if (n == 6 || n == 7) return LineStyle::Center;
            return LineStyle::Solid;
        }
    }
    if (const auto pattern = pen->get("p")) {
        // "10px 5px" is a dash and a gap; more pairs make a dash-dot line.
        int lengths = 0;
        bool inNumber = false;
        for (const char c : *pattern) {
            const bool part = std::isdigit(static_cast<unsigned char>(c)) || c == '.';
            if (part && !inNumber) ++lengths;
            inNumber = part;
        }
        return lengths > 2 ? LineStyle::Center : lengths > 0 ? LineStyle::Dashed : LineStyle::Solid;
    }
    return LineStyle::Solid;
}

bool finite(const Point& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

std::optional<Point> firstPoint(const DgnElement& e) {
    for (const auto& path : e.paths)
        for (const auto& p : path)
            if (finite(p)) return p;
    return std::nullopt;
}

bool isClosedKind(DgnElement::Kind k) {
    return k == DgnElement::Kind::Shape || k == DgnElement::Kind::ComplexShape || k == DgnElement::Kind::Ellipse;
}

// The anchor of a label: 1-3 on the baseline, 4-6 in the middle, 7-9 at
// the top, 10-12 at the bottom; left, centre and right in each row.
void anchor(const StyleTool* label, Shape& s) {
    const auto p = toolNumber(label, "p");
    if (!p) return;
    const int n = static_cast<int>(*p);
    if (n < 1 || n > 12) return;
    static constexpr VAlign rows[] = {VAlign::Baseline, VAlign::Middle, VAlign::Top, VAlign::Bottom};
    static constexpr HAlign columns[] = {HAlign::Left, HAlign::Center, HAlign::Right};
    s.valign = rows[(n - 1) / 3];
    s.halign = columns[(n - 1) % 3];
}

void addText(Scene& scene, const DgnElement& e, const StyleTool* label, Color color) {
    const auto at = firstPoint(e);
    std::string text = e.text;
    if (text.empty() && label) text = label->get("t").value_or("");
    if (!at || text.empty()) return;
    Shape& s = scene.text(*at, std::move(text), kDefaultLabelPoints);
    s.pen.color = color;
    std::optional<StyleSize> size;
    if (e.textSize)
        size = StyleSize{*e.textSize, StyleSize::Unit::Ground};
    else if (const auto given = label ? label->get("s") : std::nullopt)
        size = parseStyleSize(*given);
    if (size) {
        const bool ground = size->unit == StyleSize::Unit::Ground;
        const double height =
            ground ? std::abs(size->value) * kEmPerCapital : std::abs(*size->millimetres()) * 72 / 25.4;
        if (std::isfinite(height) && height > 0) {
            s.height = height;
            s.screenSized = !ground;
        }
    }
    if (e.textAngle && std::isfinite(*e.textAngle))
        s.angle = *e.textAngle;
    else if (const auto a = toolNumber(label, "a"); a && std::isfinite(*a))
        s.angle = *a;
    s.angle = std::fmod(s.angle, 360.0);
    anchor(label, s);
    s.level = e.level;
}

bool usableArc(const DgnArc& a) {
    return finite(a.center) && std::isfinite(a.rx) && std::isfinite(a.ry) && std::isfinite(a.rotation) &&
           std::isfinite(a.start) && std::isfinite(a.sweep);
}

} // namespace

void DgnSceneBuilder::add(const DgnElement& e) {
    Scene& scene = scene_;
    const auto tools = parseFeatureStyle(e.styleString);
    const StyleTool* pen = findTool(tools, "PEN");
    const StyleTool* brush = findTool(tools, "BRUSH");
    const StyleTool* label = findTool(tools, "LABEL");

    const bool isText =
        e.kind == DgnElement::Kind::Text || (label && !pen) || (e.kind == DgnElement::Kind::Point && !e.text.empty());
    std::optional<Color> color = e.rgb;
    if (!color) color = toolColor(isText ? label : pen, "c");
    if (!color) color = toolColor(isText ? pen : label, "c");
    if (!color && e.colorIndex >= 0) color = dgnColor(e.colorIndex);
    const Color ink = onPaper(color.value_or(Color{}));

    if (isText) {
        addText(scene, e, label, ink);
        return;
    }

    Pen p;
    p.color = ink;
    if (e.weight >= 0)
        p.width = std::min(e.weight, 31) * kMmPerWeight;
    else if (const auto w = pen ? pen->get("w") : std::nullopt)
        if (const auto size = parseStyleSize(*w); size && size->millimetres())
            p.width = std::min(std::abs(*size->millimetres()), 31 * kMmPerWeight);
    p.style = e.style >= 0 ? lineStyleOfDgn(e.style) : lineStyleOfPen(pen);
    std::optional<Color> fill = e.fill;
    if (!fill) fill = toolColor(brush, "fc");
    const bool closed = e.closed || isClosedKind(e.kind);

    if (e.arc && usableArc(*e.arc)) {
        Shape& s = scene.arc(e.arc->center, e.arc->rx, e.arc->ry, e.arc->start, e.arc->sweep, p);
        s.rotation = e.arc->rotation;
        if (std::abs(e.arc->sweep) >= 360 && fill) s.fill = fill;
        s.level = e.level;
        return;
    }
    const Polylines::Style style{p, closed ? fill : std::nullopt, e.level, closed};
    for (const auto& path : e.paths) {
        points_.clear();
        for (const auto& pt : path)
            if (finite(pt)) points_.push_back(pt);
        if (points_.empty()) continue;
        if (points_.size() == 1) points_.push_back(points_.front()); // a point: a line of no length
        scene.polylines.add(points_, style);
    }
}

Scene sceneFromDgn(const std::vector<DgnElement>& elements) {
    DgnSceneBuilder builder;
    for (const auto& e : elements)
        builder.add(e);
    return builder.take();
}

} // namespace tw::drawing
