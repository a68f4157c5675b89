// SPDX-License-Identifier: Apache-2.0
// Text of a drawing measured without a font engine: widths in ems of the
// drawing font (DejaVu Sans), its line spacing, text broken into lines that
// fit a room, and the extent of a text about its anchor as the painter sets it.
#pragma once

#include "core/drawing/Scene.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tw::drawing {

// The drawing font's lines, in ems.
inline constexpr double kAscent = 0.93;
inline constexpr double kDescent = 0.24;
inline constexpr double kLineSpacing = 1.17;
// Between a dimension line and its label, in points (as the painter sets it).
inline constexpr double kLabelGapPt = 2;

// The lines of a text: one more than its line breaks.
int lineCount(std::string_view text);

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

} // namespace tw::drawing
