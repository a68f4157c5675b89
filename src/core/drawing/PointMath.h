// SPDX-License-Identifier: Apache-2.0
// Points as vectors: the few operations the drawing's builders and the
// placement of its labels share.
#pragma once

#include "core/drawing/Scene.h"

#include <cmath>
#include <numbers>

namespace tw::drawing {

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator*(Point a, double k) { return {a.x * k, a.y * k}; }
inline double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
inline double length(Point a) { return std::hypot(a.x, a.y); }
// The unit vector along `a`; along x for a zero vector.
inline Point unitOf(Point a) {
    const double l = length(a);
    return l > 0 ? a * (1 / l) : Point{1, 0};
}
// `u` turned a quarter counter-clockwise.
inline Point leftNormal(Point u) { return {-u.y, u.x}; }
inline double radians(double degrees) { return degrees * std::numbers::pi / 180; }
inline Point unitAt(double degrees) { return {std::cos(radians(degrees)), std::sin(radians(degrees))}; }
inline double degreesOf(Point u) { return std::atan2(u.y, u.x) * 180 / std::numbers::pi; }

} // namespace tw::drawing
