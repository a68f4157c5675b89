// SPDX-License-Identifier: Apache-2.0
// Labels, texts and dimensions as the builder places them.
#include "core/drawing/DrawingBuilder.h"

#include "core/drawing/Prompts.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing::build {

Mark worse(Mark a, Mark b) {
    if (a == Mark::Error || b == Mark::Error) return Mark::Error;
    if (a == Mark::Placeholder || b == Mark::Placeholder) return Mark::Placeholder;
    return Mark::Normal;
}

// Greedy word wrap; a prompt reads better on a few short lines.
std::string wrap(const std::string& text, std::size_t width) {
    std::string out, line;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t blank = text.find(' ', start);
        if (blank == std::string::npos) blank = text.size();
        const std::string word = text.substr(start, blank - start);
        if (!line.empty() && line.size() + 1 + word.size() > width) {
            out += (out.empty() ? "" : "\n") + line;
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
        start = blank + 1;
    }
    if (!line.empty()) out += (out.empty() ? "" : "\n") + line;
    return out;
}

std::string Builder::say(const Input& input, const Value& v) const {
    if (prompts()) return wrap(promptOf(input.id, in_), kWrap);
    if (v.mark == Mark::Placeholder) return "?";
    return trim(input.text);
}

std::string Builder::sayAngle(const AngleInput& a, const Value& v) const {
    if (prompts()) return wrap(promptOf(a.degrees.id, in_), kWrap);
    return v.mark == Mark::Placeholder ? "?" : a.text();
}

std::string Builder::sayClosing(const CtlId& id, const Value& v) const {
    if (prompts()) return wrap(promptOf(id, in_), kWrap);
    if (v.mark == Mark::Placeholder) return "?";
    return formatField(4, 4, singleToText(static_cast<float>(v.v)));
}

Shape& Builder::text(Scene& s, Point at, const std::string& t, const Src& source, Mark mark, HAlign h, VAlign v,
                     double angle, double sizePt) {
    if (sizePt <= 0) sizePt = o_.textPt;
    // The painter stacks further lines below the first; a block meant to
    // end at the anchor, or to centre on it, starts higher.
    const double extra = (lineCount(t) - 1) * kLineSpacing * sizePt * pt_;
    const double rise = v == VAlign::Bottom ? extra : v == VAlign::Middle ? extra / 2 : 0;
    const double a = angle * std::numbers::pi / 180;
    at = at + Point{-std::sin(a), std::cos(a)} * rise;
    Shape& shape = s.text(at, t, sizePt, h, v);
    shape.angle = angle;
    shape.source = source.name;
    shape.mark = mark;
    shape.level = kDimensions;
    shape.pen.color = kInk;
    return shape;
}

Shape& Builder::tagged(Shape& s, const Src& source, Mark mark, int level) {
    s.source = source.name;
    s.mark = mark;
    s.level = level;
    return s;
}

void Builder::labelBeside(Scene& s, Point at, Point u, Point away, double gap, const std::string& t, const Src& source,
                          Mark mark, bool along) {
    double angle = degreesOf(u);
    if (!along) angle += 90;
    while (angle > 90.5)
        angle -= 180;
    while (angle <= -89.5)
        angle += 180;
    const double a = angle * std::numbers::pi / 180;
    const Point dir{std::cos(a), std::sin(a)}, up = leftNormal(dir);
    const Point base = at + away * gap;
    if (along) {
        const bool upwards = up.x * away.x + up.y * away.y > 0;
        text(s, base, t, source, mark, HAlign::Center, upwards ? VAlign::Bottom : VAlign::Top, angle);
    } else {
        const bool forwards = dir.x * away.x + dir.y * away.y > 0;
        text(s, base, t, source, mark, forwards ? HAlign::Left : HAlign::Right, VAlign::Middle, angle);
    }
}

double Builder::dimension(Scene& s, Point a, Point b, double offset, const std::string& label, const Src& source,
                          Mark mark, bool across) {
    const Point u = unitOf(b - a), n = leftNormal(u) * (offset < 0 ? -1.0 : 1.0);
    const double len = length(b - a);
    const bool oneLine = label.find('\n') == std::string::npos;
    const bool fits = widthOf(label) + 2 * ems(kArrowPt) <= len;
    Shape& d = s.dimension(a, b, offset, "");
    tagged(d, source, mark, kDimensions);
    d.pen = thin();
    d.height = o_.textPt;
    const Point mid = (a + b) * 0.5 + leftNormal(u) * offset;
    const double gap = ems(kLabelGapPt);
    if (fits && !across && oneLine) {
        d.text = label;
        return gap + heightOf(label);
    }
    if (fits && !across) {
        labelBeside(s, mid, u, n, gap, label, source, mark, true);
        return gap + heightOf(label);
    }
    // Clear of the extension lines' overshoot.
    const double clear = gap + ems(4);
    labelBeside(s, mid, u, n, clear, label, source, mark, false);
    return clear + widthOf(label);
}

double Builder::chain(Scene& s, const std::vector<double>& xs, double at, double row,
                      const std::vector<std::string>& labels, const std::vector<CtlId>& sources,
                      const std::vector<Mark>& marks) {
    bool across = false;
    for (std::size_t i = 0; i + 1 < xs.size(); ++i)
        across = across ||
                 (lineCount(labels[i]) == 1 && widthOf(labels[i]) + 2 * ems(kArrowPt) > std::abs(xs[i + 1] - xs[i]));
    double reach = 0;
    for (std::size_t i = 0; i + 1 < xs.size(); ++i) {
        // The offset is to the left of the direction measured: a distance that runs
        // backwards (a negative closing distance) keeps its line in the row all the same.
        const double offset = (row - at) * (xs[i + 1] < xs[i] ? -1 : 1);
        reach = std::max(reach,
                         dimension(s, {xs[i], at}, {xs[i + 1], at}, offset, labels[i], sources[i], marks[i], across));
    }
    return row - reach;
}

bool Builder::noted(const std::string& what, const Input& input, const Value& v, bool crowded) {
    if (!crowded) return false;
    notes_.push_back({prompts() ? promptOf(input.id, in_) : what + " " + say(input, v), input.id, v.mark});
    return true;
}

} // namespace tw::drawing::build
