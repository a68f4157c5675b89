// SPDX-License-Identifier: Apache-2.0
// The room the labels of a drawing take, and their placement clear of one
// another, of the numbers' bubbles and of the lines. Text is measured in ems
// of the drawing font (DejaVu Sans) and sized in points on the page, so a
// label's room in world units depends on how many feet a point stands for.
#pragma once

#include "core/drawing/Scene.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tw::drawing {

// The drawing font's lines, in ems.
inline constexpr double kAscent = 0.93;
inline constexpr double kDescent = 0.24;
inline constexpr double kLineSpacing = 1.17;
// Between a dimension line and its label, in points (as the painter sets it).
inline constexpr double kLabelGapPt = 2;

// The width of `text` in ems (lines split at '\n': the widest).
double textWidthEm(std::string_view text);

// `text` broken into lines at most `roomEm` wide: at blanks, and inside a word
// that alone is wider. At most `maxLines` lines: where the text goes on, the
// last one ends in an ellipsis. One pass over the part kept, so a text of any
// length is fitted at once.
std::string fitText(std::string_view text, double roomEm, std::size_t maxLines = SIZE_MAX);

// A text's extent in its own frame (x along the text, y up from the anchor), in ems.
struct TextFrame {
    double x0 = 0, x1 = 0, y0 = 0, y1 = 0;
};
TextFrame textFrame(const std::string& text, HAlign h, VAlign v);

// The room a label takes: a rectangle turned with its text.
struct LabelBox {
    Point origin;              // the corner at the text's start and bottom
    Point along, up;           // unit vectors: the reading direction and across it
    double width = 0;          // along
    double height = 0;         // up
    Point corner(int i) const; // 0..3, counter-clockwise from the origin
};

// The box of a text shape or of a dimension's label, where the painter puts
// it; none for a shape that shows no text.
std::optional<LabelBox> labelBox(const Shape& shape, double feetPerPoint);

// Whether two boxes overlap, or come nearer than `clearance`.
bool overlaps(const LabelBox& a, const LabelBox& b, double clearance = 0);
// Whether the segment a-b passes within `clearance` of the box.
bool crosses(const LabelBox& box, Point a, Point b, double clearance = 0);

// Every label of a scene with its box.
std::vector<LabelBox> labelBoxes(const Scene& scene, double feetPerPoint);

// Moves each label that overlaps a label already placed, a bubble or a line
// drawn for another input to the nearest free place, with a leader back to
// where it belonged when it had to go far; a label that finds no room clear
// of the lines still goes clear of every other label. Labels marked `pinned`
// are placed first, then those of dimensions, then the rest in their order.
// Then keeps room in the scene's bounds for every label.
void placeLabels(Scene& scene, double feetPerPoint);

} // namespace tw::drawing
