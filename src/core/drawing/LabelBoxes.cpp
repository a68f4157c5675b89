// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/LabelBoxes.h"

#include "core/drawing/PointMath.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing {

LabelBox boxAt(Point at, double degrees, const TextFrame& f, double em) {
    LabelBox b;
    b.along = unitAt(degrees);
    b.up = leftNormal(b.along);
    b.origin = at + b.along * (f.x0 * em) + b.up * (f.y0 * em);
    b.width = (f.x1 - f.x0) * em;
    b.height = (f.y1 - f.y0) * em;
    return b;
}

Point centre(const LabelBox& b) { return b.origin + b.along * (b.width / 2) + b.up * (b.height / 2); }

Box extent(const LabelBox& b) {
    const Point c = centre(b);
    const double rx = b.width / 2 * std::abs(b.along.x) + b.height / 2 * std::abs(b.up.x);
    const double ry = b.width / 2 * std::abs(b.along.y) + b.height / 2 * std::abs(b.up.y);
    Box e;
    e.add(Point{c.x - rx, c.y - ry});
    e.add(Point{c.x + rx, c.y + ry});
    return e;
}

std::optional<DimensionLabel> dimensionLabel(const Shape& s, double feetPerPoint) {
    if (s.points.size() != 2) return std::nullopt;
    const Point a = s.points[0], b = s.points[1];
    const double len = std::hypot(b.x - a.x, b.y - a.y);
    if (len <= 0) return std::nullopt;
    const Point u = (b - a) * (1 / len), away = leftNormal(u) * (s.offset < 0 ? -1.0 : 1.0);
    DimensionLabel d;
    d.mid = (a + b) * 0.5 + leftNormal(u) * s.offset;
    d.degrees = std::atan2(u.y, u.x) * 180 / std::numbers::pi;
    if (d.degrees > 90.5 || d.degrees < -89.5) d.degrees += d.degrees > 0 ? -180 : 180;
    // An offset under a pixel counts as none: the label then sits on the line, above it.
    const bool offset = std::abs(s.offset) / feetPerPoint >= 0.75;
    const bool above = !offset || dot(leftNormal(unitAt(d.degrees)), away) >= 0;
    d.anchor = offset ? d.mid + away * (kLabelGapPt * feetPerPoint) : d.mid;
    d.valign = above ? VAlign::Bottom : VAlign::Top;
    return d;
}

double emOf(const Shape& s, double feetPerPoint) { return s.screenSized ? s.height * feetPerPoint : s.height; }

Point LabelBox::corner(int i) const {
    switch (i & 3) {
    case 0: return origin;
    case 1: return origin + along * width;
    case 2: return origin + along * width + up * height;
    default: return origin + up * height;
    }
}

std::optional<LabelBox> labelBox(const Shape& s, double feetPerPoint) {
    if (s.text.empty() || s.points.empty()) return std::nullopt;
    if (s.kind == Shape::Kind::Text)
        return boxAt(s.points.front(), s.angle, textFrame(s.text, s.halign, s.valign), emOf(s, feetPerPoint));
    if (s.kind != Shape::Kind::Dimension) return std::nullopt;
    const auto d = dimensionLabel(s, feetPerPoint);
    if (!d) return std::nullopt;
    return boxAt(d->anchor, d->degrees, textFrame(s.text, HAlign::Center, d->valign), emOf(s, feetPerPoint));
}

bool overlaps(const LabelBox& a, const LabelBox& b, double clearance) {
    // Separated along some side's direction of either box, or not at all.
    for (const Point axis : {a.along, a.up, b.along, b.up}) {
        double lo[2], hi[2];
        int k = 0;
        for (const LabelBox* x : {&a, &b}) {
            const double c = dot(centre(*x), axis);
            const double r = x->width / 2 * std::abs(dot(x->along, axis)) + x->height / 2 * std::abs(dot(x->up, axis));
            lo[k] = c - r;
            hi[k++] = c + r;
        }
        const double tiny = 1e-9 * (std::abs(hi[0]) + std::abs(hi[1]) + 1);
        if (hi[0] + clearance <= lo[1] + tiny || hi[1] + clearance <= lo[0] + tiny) return false;
    }
    return true;
}

bool crosses(const LabelBox& box, Point a, Point b, double clearance) {
    // In the box's own frame the box is [0, width] x [0, height]: clip the segment to it.
    const Point pa{dot(a - box.origin, box.along), dot(a - box.origin, box.up)};
    const Point pb{dot(b - box.origin, box.along), dot(b - box.origin, box.up)};
    double t0 = 0, t1 = 1;
    const Point d = pb - pa;
    const double p[] = {-d.x, d.x, -d.y, d.y};
    const double q[] = {pa.x + clearance, box.width + clearance - pa.x, pa.y + clearance,
                        box.height + clearance - pa.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] <= 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 >= t1) return false;
    }
    return true;
}

std::vector<LabelBox> labelBoxes(const Scene& scene, double feetPerPoint) {
    std::vector<LabelBox> out;
    for (const auto& s : scene.shapes)
        if (auto b = labelBox(s, feetPerPoint)) out.push_back(*b);
    return out;
}

} // namespace tw::drawing
