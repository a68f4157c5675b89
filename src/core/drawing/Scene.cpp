// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/Scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace tw::drawing {

void Box::add(const Point& p) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
    if (empty) {
        minX = maxX = p.x;
        minY = maxY = p.y;
        empty = false;
        return;
    }
    minX = std::min(minX, p.x);
    maxX = std::max(maxX, p.x);
    minY = std::min(minY, p.y);
    maxY = std::max(maxY, p.y);
}

void Box::add(const Box& b) {
    if (b.empty) return;
    add(Point{b.minX, b.minY});
    add(Point{b.maxX, b.maxY});
}

namespace {

// Points a block holds: 1 MiB, so the last block's unused room stays small
// and growth never copies the points already read.
constexpr std::size_t kBlockPoints = 65536;

} // namespace

void Polylines::add(std::span<const Point> points, const Style& style) {
    if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < points.size()) {
        blocks_.emplace_back();
        blocks_.back().reserve(std::max(kBlockPoints, points.size()));
    }
    std::vector<Point>& block = blocks_.back();
    lines_.push_back({style, static_cast<std::uint32_t>(blocks_.size() - 1), static_cast<std::uint32_t>(block.size()),
                      static_cast<std::uint32_t>(points.size())});
    block.insert(block.end(), points.begin(), points.end());
}

Shape Polylines::shape(std::size_t i) const {
    Shape s;
    const auto p = points(i);
    s.points.assign(p.begin(), p.end());
    s.closed = style(i).closed;
    s.fill = style(i).fill;
    s.pen = style(i).pen;
    s.level = style(i).level;
    return s;
}

namespace {

// The extent of an elliptical arc: its ends and, of the four points where
// the ellipse is furthest left, right, down and up, those the arc passes.
// Worked out, not sampled: a bent's layout takes the bounds of hundreds of
// bubbles and piles several times over.
void addArc(Box& box, const Shape& s) {
    constexpr double kDegree = std::numbers::pi / 180;
    const double rot = s.rotation * kDegree;
    const double cr = std::cos(rot), sr = std::sin(rot);
    auto at = [&](double a) {
        const double x = s.rx * std::cos(a), y = s.ry * std::sin(a);
        box.add(Point{s.center.x + x * cr - y * sr, s.center.y + x * sr + y * cr});
    };
    const double from = s.start * kDegree, sweep = s.sweep * kDegree;
    at(from);
    at(from + sweep);
    const double full = 2 * std::numbers::pi;
    const double lo = std::min(from, from + sweep), span = std::abs(sweep);
    // Where x' = 0 and where y' = 0, each with its opposite half a turn on.
    const double extremes[] = {std::atan2(-s.ry * sr, s.rx * cr), std::atan2(s.ry * cr, s.rx * sr)};
    for (const double e : extremes)
        for (const double t : {e, e + std::numbers::pi}) {
            const double past = std::fmod(std::fmod(t - lo, full) + full, full);
            if (span >= full || past <= span) at(t);
        }
}

} // namespace

Box Scene::bounds() const {
    Box box;
    for (const auto& s : shapes) {
        switch (s.kind) {
        case Shape::Kind::Arc: addArc(box, s); break;
        case Shape::Kind::Dimension:
            if (s.points.size() == 2) {
                const double dx = s.points[1].x - s.points[0].x, dy = s.points[1].y - s.points[0].y;
                const double len = std::hypot(dx, dy);
                const double nx = len > 0 ? -dy / len * s.offset : 0, ny = len > 0 ? dx / len * s.offset : 0;
                for (const auto& p : s.points) {
                    box.add(p);
                    box.add(Point{p.x + nx, p.y + ny});
                }
            }
            break;
        default:
            for (const auto& p : s.points)
                box.add(p);
        }
    }
    for (std::size_t i = 0; i < polylines.size(); ++i)
        for (const auto& p : polylines.points(i))
            box.add(p);
    box.add(room);
    return box;
}

std::vector<int> Scene::levels() const {
    std::set<int> set;
    for (const auto& s : shapes)
        set.insert(s.level);
    for (std::size_t i = 0; i < polylines.size(); ++i)
        set.insert(polylines.style(i).level);
    return {set.begin(), set.end()};
}

Shape& Scene::line(Point a, Point b, const Pen& pen) { return polyline({a, b}, false, pen); }

Shape& Scene::polyline(std::vector<Point> points, bool closed, const Pen& pen) {
    Shape s;
    s.kind = Shape::Kind::Polyline;
    s.points = std::move(points);
    s.closed = closed;
    s.pen = pen;
    shapes.push_back(std::move(s));
    return shapes.back();
}

Shape& Scene::text(Point at, std::string text, double height, HAlign h, VAlign v) {
    Shape s;
    s.kind = Shape::Kind::Text;
    s.points = {at};
    s.text = std::move(text);
    s.height = height;
    s.halign = h;
    s.valign = v;
    shapes.push_back(std::move(s));
    return shapes.back();
}

Shape& Scene::dimension(Point a, Point b, double offset, std::string label) {
    Shape s;
    s.kind = Shape::Kind::Dimension;
    s.points = {a, b};
    s.offset = offset;
    s.text = std::move(label);
    shapes.push_back(std::move(s));
    return shapes.back();
}

Shape& Scene::arc(Point center, double rx, double ry, double start, double sweep, const Pen& pen) {
    Shape s;
    s.kind = Shape::Kind::Arc;
    s.center = center;
    s.rx = rx;
    s.ry = ry;
    s.start = start;
    s.sweep = sweep;
    s.pen = pen;
    shapes.push_back(std::move(s));
    return shapes.back();
}

} // namespace tw::drawing
