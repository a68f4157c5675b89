// SPDX-License-Identifier: Apache-2.0
// What a checker would circle on a drawing as it is shown at `feetPerPoint`:
// a label over another label, over a circle (a beam's bubble, a round pile),
// or touched by any line drawn (outlines, centerlines, dimension and
// extension lines, leaders of other labels). Worked out here on its own,
// from the shapes as the painter draws them, not by the code that places
// the labels.
#pragma once

#include "core/drawing/LabelBoxes.h"
#include "core/drawing/PointMath.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace tw::test {

inline std::vector<std::string> clashesIn(const drawing::Scene& s, double feetPerPoint) {
    using namespace drawing;
    // The painter rounds text to whole pixels: a touch of a third of a point is no clash.
    const double slack = -0.3 * feetPerPoint;
    struct Label {
        LabelBox box;
        const Shape* shape;
    };
    struct Line {
        Point a, b;
        const Shape* shape;
    };
    std::vector<Label> labels;
    std::vector<Line> lines;
    std::vector<const Shape*> circles;
    for (const auto& shape : s.shapes) {
        if (auto b = labelBox(shape, feetPerPoint)) labels.push_back({*b, &shape});
        switch (shape.kind) {
        case Shape::Kind::Polyline:
            for (std::size_t i = 0; i + 1 < shape.points.size(); ++i)
                lines.push_back({shape.points[i], shape.points[i + 1], &shape});
            if ((shape.closed || shape.fill) && shape.points.size() > 2)
                lines.push_back({shape.points.back(), shape.points.front(), &shape});
            break;
        case Shape::Kind::Arc: {
            if (std::abs(shape.sweep) >= 360) {
                circles.push_back(&shape);
                break;
            }
            Point last;
            for (int i = 0; i <= 48; ++i) {
                const double t = radians(shape.start + shape.sweep * i / 48);
                const Point p{shape.center.x + shape.rx * std::cos(t), shape.center.y + shape.ry * std::sin(t)};
                if (i > 0) lines.push_back({last, p, &shape});
                last = p;
            }
            break;
        }
        case Shape::Kind::Dimension: {
            if (shape.points.size() != 2) break;
            const Point a = shape.points[0], b = shape.points[1];
            const Point n = leftNormal(unitOf(b - a)) * shape.offset;
            lines.push_back({a + n, b + n, &shape});
            if (std::abs(shape.offset) > 2 * feetPerPoint) {
                const Point gap = unitOf(n) * (2 * feetPerPoint);
                lines.push_back({a + gap, a + n, &shape});
                lines.push_back({b + gap, b + n, &shape});
            }
            break;
        }
        case Shape::Kind::Text: break;
        }
    }
    auto name = [](const Shape* shape) {
        return "\"" + shape->text + "\"" + (shape->source.empty() ? "" : " (" + shape->source + ")");
    };
    std::vector<std::string> found;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const auto& [box, shape] = labels[i];
        for (std::size_t j = i + 1; j < labels.size(); ++j)
            if (overlaps(box, labels[j].box, slack)) found.push_back(name(shape) + " over " + name(labels[j].shape));
        for (const auto& l : lines) {
            // A label's own leader starts at its edge.
            if (l.shape->leader && l.shape->source == shape->source) continue;
            if (crosses(box, l.a, l.b, slack))
                found.push_back(name(shape) + " touched by a line" +
                                (l.shape->source.empty() ? std::string() : " of " + l.shape->source) +
                                (l.shape->leader ? " (a leader)" : ""));
        }
        for (const Shape* c : circles) {
            if (shape->pinned && shape->source == c->source) continue; // a number in its own bubble
            const Point d = c->center - box.origin;
            const Point near = box.origin + box.along * std::clamp(dot(d, box.along), 0.0, box.width) +
                               box.up * std::clamp(dot(d, box.up), 0.0, box.height);
            if (length(near - c->center) < std::max(c->rx, c->ry) + slack)
                found.push_back(name(shape) + " on the circle of " + c->source);
        }
    }
    return found;
}

} // namespace tw::test
