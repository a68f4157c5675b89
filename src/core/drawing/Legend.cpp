// SPDX-License-Identifier: Apache-2.0
// The legend under a drawing on paper: the units its lengths read in and a
// scale bar, which stays true however large the page prints it.
#include "core/drawing/DrawingBuilder.h"

#include <array>
#include <cmath>

namespace tw::drawing::build {

namespace {

// A bar at least this many points long: room for its numbers, long enough to
// measure against; a round length makes it at most two and a half times that.
constexpr double kBarPt = 72;

// The least round length (1, 2 or 5 times a power of ten feet) of at least `feet`.
double roundLength(double feet) {
    if (!(feet > 0) || !std::isfinite(feet)) return 1;
    const double decade = std::pow(10.0, std::floor(std::log10(feet)));
    for (double m : {1.0, 2.0, 5.0})
        if (m * decade >= feet * (1 - 1e-9)) return m * decade;
    return 10 * decade;
}

} // namespace

void Builder::legend(Scene& scene) {
    const Box drawn = scene.bounds();
    const double x0 = drawn.empty ? 0 : drawn.minX;
    const double top = drawn.empty ? 0 : drawn.minY - line_;
    const double sizePt = std::max(o_.textPt - 1, kSmallestTextPt);
    Scene s;
    const std::string units =
        o_.units == LengthUnits::DecimalFeet ? "Lengths in decimal feet" : "Lengths in feet and inches";
    text(s, {x0, top}, units, {}, Mark::Normal, HAlign::Left, VAlign::Top, 0, sizePt).level = kNotes;
    // The bar after the words, its numbers above it and clear of it.
    const double length = roundLength(kBarPt * pt_);
    const double barX = x0 + widthOf(units, sizePt) + ems(3 * sizePt);
    const double barH = ems(3), numbersY = top - ems(sizePt) * kLineSpacing, barTop = numbersY - ems(2);
    const std::array<double, 3> marks = {0, length / 2, length};
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const std::string number = i == 0 ? "0" : formatLength(marks[i], o_.units);
        text(s, {barX + marks[i], numbersY}, number, {}, Mark::Normal, HAlign::Center, VAlign::Bottom, 0, sizePt)
            .level = kNotes;
    }
    // Four parts, black and white in turn, outlined.
    for (int k = 0; k < 4; ++k) {
        const double a = barX + length * k / 4, b = barX + length * (k + 1) / 4;
        Shape& part = s.polyline({{a, barTop}, {b, barTop}, {b, barTop - barH}, {a, barTop - barH}}, true, thin());
        if (k % 2 == 0) part.fill = kInk;
        part.level = kNotes;
    }
    keepLabelRoom(s, pt_);
    append(scene, std::move(s), {0, 0});
}

} // namespace tw::drawing::build
