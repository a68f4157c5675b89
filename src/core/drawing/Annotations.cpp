// SPDX-License-Identifier: Apache-2.0
// Labels, texts and dimensions as the builder places them.
#include "core/drawing/DrawingBuilder.h"

#include "core/drawing/Prompts.h"
#include "core/model/Inputs.h"
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
    return isBentEntry(input.id) ? elevationText(input.text) : lengthText(input.text, o_.units);
}

std::string Builder::sayAngle(const AngleInput& a, const Value& v) const {
    if (prompts()) return wrap(promptOf(a.degrees.id, in_), kWrap);
    return v.mark == Mark::Placeholder ? "?" : a.text();
}

std::string Builder::sayClosing(const CtlId& id, const Value& v) const {
    if (prompts()) return wrap(promptOf(id, in_), kWrap);
    if (v.mark == Mark::Placeholder) return "?";
    // Rounded as the form rounds the value it works out, then read as any other length.
    return lengthText(formatField(4, 4, singleToText(static_cast<float>(v.v))), o_.units);
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

Shape& Builder::labelBeside(Scene& s, Point at, Point u, Point away, double gap, const std::string& t,
                            const Src& source, Mark mark, bool along) {
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
        return text(s, base, t, source, mark, HAlign::Center, upwards ? VAlign::Bottom : VAlign::Top, angle);
    }
    const bool forwards = dir.x * away.x + dir.y * away.y > 0;
    return text(s, base, t, source, mark, forwards ? HAlign::Left : HAlign::Right, VAlign::Middle, angle);
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
    bool along = true;
    for (std::size_t i = 0; i + 1 < xs.size(); ++i)
        along =
            along && lineCount(labels[i]) == 1 && widthOf(labels[i]) + 2 * ems(kArrowPt) <= std::abs(xs[i + 1] - xs[i]);
    std::vector<Callout> items;
    for (std::size_t i = 0; i + 1 < xs.size(); ++i) {
        // The offset is to the left of the direction measured: a distance that runs
        // backwards (a negative closing distance) keeps its line in the row all the same.
        const double offset = (row - at) * (xs[i + 1] < xs[i] ? -1 : 1);
        Shape& d = s.dimension({xs[i], at}, {xs[i + 1], at}, offset, along ? labels[i] : "");
        tagged(d, sources[i], marks[i], kDimensions);
        d.pen = thin();
        d.height = o_.textPt;
        const double lo = std::min(xs[i], xs[i + 1]), hi = std::max(xs[i], xs[i + 1]);
        items.push_back({{(lo + hi) / 2, row}, labels[i], sources[i], marks[i], lo, hi});
    }
    if (along) return row - ems(kLabelGapPt) - line_;
    // Across the row, clear of the extension lines' overshoot.
    return callouts(s, std::move(items), row - ems(4), -1, false);
}

// The least squares' answer, by pooling neighbours that crowd into blocks
// centred where they want to be.
std::vector<double> spreadOut(const std::vector<double>& wanted, double pitch) {
    struct Block {
        double sum;
        std::size_t count;
        double mean() const { return sum / static_cast<double>(count); }
    };
    std::vector<Block> blocks;
    for (std::size_t k = 0; k < wanted.size(); ++k) {
        blocks.push_back({wanted[k] - static_cast<double>(k) * pitch, 1});
        while (blocks.size() > 1 && blocks[blocks.size() - 2].mean() > blocks.back().mean()) {
            blocks[blocks.size() - 2].sum += blocks.back().sum;
            blocks[blocks.size() - 2].count += blocks.back().count;
            blocks.pop_back();
        }
    }
    std::vector<double> out;
    for (const Block& b : blocks)
        for (std::size_t i = 0; i < b.count; ++i)
            out.push_back(b.mean() + static_cast<double>(out.size()) * pitch);
    return out;
}

double Builder::callouts(Scene& s, std::vector<Callout> items, double base, double dir, bool level) {
    if (items.empty()) return base;
    const double gap = 0.25 * line_;
    double reach = base;
    auto further = [&](double y) { reach = dir > 0 ? std::max(reach, y) : std::min(reach, y); };
    // Level, each at what it names, where every one fits its room.
    bool fit = level;
    for (const auto& c : items)
        fit = fit && widthOf(c.text) + 0.4 * line_ <= c.slotHi - c.slotLo;
    if (fit) {
        for (const auto& c : items) {
            const double half = widthOf(c.text) / 2;
            const double x = std::clamp(c.target.x, c.slotLo + half, c.slotHi - half);
            text(s, {x, c.target.y + dir * gap}, c.text, c.source, c.mark, HAlign::Center,
                 dir > 0 ? VAlign::Bottom : VAlign::Top)
                .names = c.target;
            further(c.target.y + dir * (gap + heightOf(c.text)));
        }
        return reach;
    }
    // Upright, side by side: where they are where they belong, standing on the row;
    // else spread out along it, each tied to what it names.
    std::stable_sort(items.begin(), items.end(),
                     [](const Callout& a, const Callout& b) { return a.target.x < b.target.x; });
    double thickest = 0, longest = 0;
    for (const auto& c : items) {
        thickest = std::max(thickest, heightOf(c.text));
        longest = std::max(longest, widthOf(c.text));
    }
    // Wide enough that the tie of a label on the second level passes those of the first clear.
    const double pitch = thickest + ems(4);
    std::vector<double> wanted;
    for (const auto& c : items)
        wanted.push_back(c.target.x);
    // A row longer than what it names stands on two or three levels, taking turns.
    const double span = std::max(wanted.back() - wanted.front(), 0.0) + 2 * line_;
    const int levels = std::clamp(static_cast<int>(std::ceil(pitch * static_cast<double>(items.size()) / span)), 1, 3);
    std::vector<double> at = spreadOut(wanted, pitch / levels);
    // Within the room of the whole row where it holds them.
    double lo = items.front().slotLo, hi = items.front().slotHi;
    for (const auto& c : items) {
        lo = std::min(lo, c.slotLo);
        hi = std::max(hi, c.slotHi);
    }
    const std::size_t n = items.size();
    if (pitch / levels * static_cast<double>(n - 1) <= hi - lo) {
        for (std::size_t k = 0; k < n; ++k)
            at[k] = std::max(at[k], lo + static_cast<double>(k) * pitch / levels);
        for (std::size_t k = n; k-- > 0;)
            at[k] = std::min(at[k], hi - static_cast<double>(n - 1 - k) * pitch / levels);
    }
    bool tied = levels > 1;
    for (std::size_t k = 0; k < items.size(); ++k)
        tied = tied || std::abs(at[k] - wanted[k]) > 0.5 * pt_ || std::abs(items[k].target.y - base) > 0.5 * pt_;
    double rise = gap;
    if (tied) {
        double moved = 0;
        for (std::size_t k = 0; k < items.size(); ++k)
            moved = std::max(moved, std::abs(at[k] - wanted[k]));
        rise = std::max(0.8 * line_, 0.6 * moved);
    }
    for (std::size_t k = 0; k < items.size(); ++k) {
        const Callout& c = items[k];
        const double level = static_cast<double>(k % static_cast<std::size_t>(levels)) * (longest + ems(3));
        const Point end{at[k], base + dir * (rise + level)};
        if (tied) {
            // Aslant only between the row's level and the labels, where nothing else stands.
            const Point turn{at[k], base + dir * rise * 0.5};
            std::vector<Point> tie = {c.target, turn, end - Point{0, dir * ems(1)}};
            if (std::abs(turn.x - c.target.x) < pt_ && std::abs(c.target.y - base) < pt_) tie.erase(tie.begin() + 1);
            tagged(s.polyline(std::move(tie), false, thin()), c.source, c.mark, kDimensions).leader = true;
        }
        text(s, end, c.text, c.source, c.mark, dir > 0 ? HAlign::Left : HAlign::Right, VAlign::Middle, 90).names =
            c.target;
    }
    further(base + dir * (rise + (levels - 1) * (longest + ems(3)) + longest));
    return reach;
}

bool Builder::noted(const std::string& what, const Input& input, const Value& v, bool crowded) {
    if (!crowded) return false;
    notes_.push_back({prompts() ? promptOf(input.id, in_) : what + " " + say(input, v), input.id, v.mark});
    return true;
}

} // namespace tw::drawing::build
