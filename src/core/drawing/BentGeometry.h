// SPDX-License-Identifier: Apache-2.0
// The bent worked out from its inputs, in feet: the plan (x along the front
// face of the cap from its left end, y from the front face toward the back)
// and the elevation of one bent (x the same, y the elevation). Nothing here
// knows about labels or paper.
//
// Conventions the drawing follows:
// - beam and wingwall angles are measured from the front face, left to
//   right, turning toward the back; a left skew mirrors the beam angles;
//   parallel wingwalls share the left wingwall's direction, otherwise the
//   right wingwall's angle is measured from the front face right to left;
// - beam centerline distances run along the centerline of bearing, from
//   the left end of the cap; the beams stand between them;
// - the wingwalls start at the back corners of the cap; the first pile box
//   is at the end of the wingwall, the second and third at their distances
//   from the front face;
// - the end posts stand on the ends of the cap from its front face; the
//   fillets sit between the back face and each wingwall.
// A missing input is stood in for by a placeholder (marked so), an
// impossible one is marked as an error and named in `problems`.
#pragma once

#include "core/drawing/BentInputs.h"
#include "core/drawing/Scene.h"

#include <optional>
#include <string>
#include <vector>

namespace tw::drawing {

// A length, position or elevation and how far it can be trusted.
struct Value {
    double v = 0;
    Mark mark = Mark::Normal;
};

struct Wingwall {
    Point root, end; // outside face, from the back corner of the cap
    Point direction; // unit, toward the back
    Value angle;     // degrees from the front face
    Value length;
    std::vector<Point> pileBoxes; // centres: at the end, then the second and third
    std::vector<Mark> pileBoxMarks;
    std::vector<Point> fillet; // triangle: the corner, along the back face, along the wingwall
    Mark filletMark = Mark::Normal;
    // Elevation: the top at the front face of the cap and at the end (equal when level).
    Value frontTop, endTop;
};

struct BentGeometry {
    Value length, width, bearing, depth;
    int beams = 0;

    // Beams: where each centerline crosses the centerline of bearing, its
    // direction toward the back, and its angle.
    std::vector<Value> beamX;
    std::vector<Point> beamDirection;
    std::vector<Value> beamAngle;
    // The distances between: beams + 1 of them, the last one closing to the right end.
    std::vector<Value> spacing;

    // Cap steps: beams + 1 boundaries along the cap, one length and one top elevation per step.
    std::vector<double> stepX;
    std::vector<Value> stepLength;
    std::vector<Value> stepTop;
    Value bottomLeft, bottomRight;
    bool bottomComputed = true;

    std::optional<Wingwall> left, right;
    // End posts (plan: x from, x to; y from the front face to its length) and their tops.
    bool endPosts = false;
    Value postWidth, postLength;
    Value leftPostTop, rightPostTop;
    Value backwallLeftTop, backwallCenterTop, backwallRightTop;

    // Battered piles along the cap and the distances between them (count + 1).
    std::vector<Value> batteredX;
    std::vector<Value> batteredSpacing;
    double pileSize = 1; // feet across

    std::vector<std::string> problems;
};

BentGeometry bentGeometry(const BentInputs& in);

} // namespace tw::drawing
