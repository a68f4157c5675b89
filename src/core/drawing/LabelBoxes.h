// SPDX-License-Identifier: Apache-2.0
// The room a label of a drawing takes: a rectangle turned with its text,
// where the painter sets it, and the tests of two boxes or a box and a line.
// A label's room in world units depends on how many feet a point stands for.
#pragma once

#include "core/drawing/Scene.h"
#include "core/drawing/TextMetrics.h"

#include <optional>
#include <vector>

namespace tw::drawing {

// The room a label takes: a rectangle turned with its text.
struct LabelBox {
    Point origin;              // the corner at the text's start and bottom
    Point along, up;           // unit vectors: the reading direction and across it
    double width = 0;          // along
    double height = 0;         // up
    Point corner(int i) const; // 0..3, counter-clockwise from the origin
};

// A box the way the painter sets a text: anchored at `at`, turned by `degrees`, `em` feet an em.
LabelBox boxAt(Point at, double degrees, const TextFrame& frame, double em);
Point centre(const LabelBox& b);
// The upright box around a turned one.
Box extent(const LabelBox& b);

// How the painter sets a dimension's label: at the middle of the dimension
// line, on its side away from what is measured, read from below or from the right.
struct DimensionLabel {
    Point anchor, mid;
    double degrees = 0;
    VAlign valign = VAlign::Bottom;
};
std::optional<DimensionLabel> dimensionLabel(const Shape& s, double feetPerPoint);

// A shape's text size in feet.
double emOf(const Shape& s, double feetPerPoint);

// The box of a text shape or of a dimension's label, where the painter puts
// it; none for a shape that shows no text.
std::optional<LabelBox> labelBox(const Shape& shape, double feetPerPoint);

// Whether two boxes overlap, or come nearer than `clearance`.
bool overlaps(const LabelBox& a, const LabelBox& b, double clearance = 0);
// Whether the segment a-b passes within `clearance` of the box.
bool crosses(const LabelBox& box, Point a, Point b, double clearance = 0);

// Every label of a scene with its box.
std::vector<LabelBox> labelBoxes(const Scene& scene, double feetPerPoint);

} // namespace tw::drawing
