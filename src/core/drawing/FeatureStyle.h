// SPDX-License-Identifier: Apache-2.0
// Feature style strings as GDAL's readers give them:
//   PEN(id:"ogr-pen-2",c:#0000ff,w:2px);BRUSH(fc:#ff7f00);LABEL(t:"TEXT",s:0.6g,a:30)
// read leniently: a string that cannot be made sense of yields what could.
#pragma once

#include "core/drawing/Scene.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tw::drawing {

struct StyleTool {
    std::string name; // upper case: PEN, BRUSH, LABEL, SYMBOL, …
    std::vector<std::pair<std::string, std::string>> params;
    // The value of a parameter (quotes removed), or nothing.
    std::optional<std::string> get(std::string_view key) const;
};

std::vector<StyleTool> parseFeatureStyle(std::string_view style);

// "#rrggbb" or "#rrggbbaa".
std::optional<Color> parseStyleColor(std::string_view text);

struct StyleSize {
    enum class Unit { Ground, Pixel, Point, Millimetre, Centimetre, Inch };
    double value = 0;
    Unit unit = Unit::Millimetre; // a number without a unit is in millimetres
    // The size in millimetres on paper; nothing for ground units.
    std::optional<double> millimetres() const;
};

// "0.6g", "2px", "10pt", "1.5"; nothing for what is not a finite number.
std::optional<StyleSize> parseStyleSize(std::string_view text);

} // namespace tw::drawing
