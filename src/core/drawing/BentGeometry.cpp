// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/BentGeometry.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <numbers>
#include <numeric>

namespace tw::drawing {

namespace {

constexpr double kNominalSpacing = 5.0; // feet, for a distance not entered yet
constexpr double kSteepest = 5.0;       // degrees: a centerline nearer than this to the front face cannot be drawn

Value given(const Input& in, double placeholder) {
    if (auto v = in.number()) return {*v, Mark::Normal};
    return {placeholder, Mark::Placeholder};
}

Value positive(const Input& in, double placeholder, const std::string& what, std::vector<std::string>& problems) {
    Value v = given(in, placeholder);
    if (v.mark == Mark::Normal && v.v <= 0) {
        problems.push_back(what + " must be more than zero.");
        v = {placeholder, Mark::Error};
    }
    return v;
}

// A row of distances across the cap (`count` entered, then what they leave of
// the cap length). Distances not entered share what the entered ones leave.
std::vector<Value> chain(const Value& length, const Input* entered, int count, const std::string& what,
                         std::vector<std::string>& problems) {
    std::vector<Value> out;
    double known = 0;
    int missing = 0;
    for (int i = 0; i < count; ++i) {
        if (auto v = entered[i].number())
            known += *v;
        else
            ++missing;
    }
    double share = kNominalSpacing;
    if (length.mark == Mark::Normal && missing > 0 && (length.v - known) / (missing + 1) > 0.5)
        share = (length.v - known) / (missing + 1);
    double sum = 0;
    for (int i = 0; i < count; ++i) {
        Value v = given(entered[i], share);
        sum += v.v;
        out.push_back(v);
    }
    Value closing{length.v - sum, Mark::Normal};
    if (length.mark != Mark::Normal || missing > 0) {
        closing.mark = Mark::Placeholder;
    } else if (closing.v <= 0) {
        closing.mark = Mark::Error;
        problems.push_back(what);
    }
    out.push_back(closing);
    return out;
}

Value angleOf(const AngleInput& a, std::vector<std::string>& problems, const std::string& what) {
    const auto v = a.value();
    if (!v) return {90, Mark::Placeholder};
    if (*v < kSteepest || *v > 180 - kSteepest) {
        problems.push_back(what + " of " + a.text() + " cannot be drawn.");
        return {std::clamp(*v, kSteepest, 180 - kSteepest), Mark::Error};
    }
    return {*v, Mark::Normal};
}

Point unit(double degrees) {
    const double r = degrees * std::numbers::pi / 180;
    return {std::cos(r), std::sin(r)};
}

// Pile width in feet from the pile type ("PSC, 14 IN SQ", "STEEL H, HP 12X53").
double pileSizeOf(const std::string& type) {
    const auto comma = type.find(',');
    for (std::size_t i = comma == std::string::npos ? 0 : comma; i < type.size(); ++i)
        if (std::isdigit(static_cast<unsigned char>(type[i]))) return std::stoi(type.substr(i, 2)) / 12.0;
    return 1.0;
}

Value worst(const Value& a, Mark b) {
    Value v = a;
    if (b == Mark::Error || (b == Mark::Placeholder && v.mark == Mark::Normal)) v.mark = b;
    return v;
}

// The cap: its length (the beam spacings and a nominal overhang when none is
// entered), width, depth and where the bearing sits on it.
void cap(const BentInputs& in, int n, bool end, BentGeometry& g) {
    auto& problems = g.problems;
    double nominalLength = kNominalSpacing;
    for (int i = 0; i < n; ++i)
        nominalLength += in.centerlines[static_cast<std::size_t>(i)].number().value_or(kNominalSpacing);
    g.length = positive(in.capLength, nominalLength, "The cap length", problems);
    g.width = positive(in.capWidth, 3.0, "The cap width", problems);
    g.depth = positive(in.capDepth, 2.0, "The minimum cap depth", problems);
    g.bearing = given(in.bearingDistance, end ? 1.5 : 0.75);
    if (g.bearing.mark == Mark::Normal && (g.bearing.v < 0 || g.bearing.v > g.width.v)) {
        problems.push_back("The center of the bearing lies outside the cap.");
        g.bearing.mark = Mark::Error;
    }
}

// Beams along the centerline of bearing.
void beams(const BentInputs& in, int n, BentGeometry& g) {
    auto& problems = g.problems;
    g.spacing = chain(g.length, in.centerlines.data(), n,
                      "The beam centerline distances leave nothing of the cap length.", problems);
    double x = 0;
    Mark carried = Mark::Normal;
    const Value sharedAngle = angleOf(in.beamAngles[0], problems, in.anglesAlike ? "The beam angle" : "Beam 1's angle");
    for (int i = 0; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        x += g.spacing[k].v;
        if (g.spacing[k].mark != Mark::Normal) carried = Mark::Placeholder;
        g.beamX.push_back(worst({x, Mark::Normal}, carried));
        const Value angle = in.anglesAlike || i == 0
                                ? sharedAngle
                                : angleOf(in.beamAngles[k], problems, "Beam " + std::to_string(i + 1) + "'s angle");
        Point d = unit(angle.v);
        if (in.skew == Skew::Left) d.x = -d.x;
        g.beamAngle.push_back(angle);
        g.beamDirection.push_back(d);
    }
}

// Cap steps: one per beam, the last one what the others leave.
void capSteps(const BentInputs& in, int n, BentGeometry& g) {
    g.stepLength = chain(g.length, in.capSteps.data(), n - 1, "The cap steps are longer than the cap.", g.problems);
    g.stepX.push_back(0);
    for (const auto& s : g.stepLength)
        g.stepX.push_back(g.stepX.back() + s.v);
    g.stepX.back() = g.length.v;
}

// Elevations of the bent: a step not entered stands at the mean of those
// that are; a bottom entered must leave every step its minimum depth.
void elevations(const BentInputs& in, int n, BentGeometry& g) {
    const double L = g.length.v;
    std::vector<double> known;
    for (int i = 0; i < n; ++i)
        if (auto v = in.stepElevations[static_cast<std::size_t>(i)].number()) known.push_back(*v);
    const double meanTop =
        known.empty() ? 100.0 : std::accumulate(known.begin(), known.end(), 0.0) / static_cast<double>(known.size());
    for (int i = 0; i < n; ++i)
        g.stepTop.push_back(given(in.stepElevations[static_cast<std::size_t>(i)], meanTop));
    double lowest = g.stepTop.front().v;
    for (const auto& t : g.stepTop)
        lowest = std::min(lowest, t.v);
    const double computedBottom = lowest - g.depth.v;
    g.bottomComputed = in.bottomComputed;
    if (in.bottomComputed) {
        g.bottomLeft = g.bottomRight = {computedBottom, Mark::Placeholder};
        return;
    }
    g.bottomLeft = given(in.bottomLeft, computedBottom);
    g.bottomRight = given(in.bottomRight, computedBottom);
    for (int i = 0; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        auto bottomAt = [&](double at) { return g.bottomLeft.v + (g.bottomRight.v - g.bottomLeft.v) * at / L; };
        const double thinnest = g.stepTop[k].v - std::max(bottomAt(g.stepX[k]), bottomAt(g.stepX[k + 1]));
        const bool allGiven = g.stepTop[k].mark == Mark::Normal && g.bottomLeft.mark == Mark::Normal &&
                              g.bottomRight.mark == Mark::Normal && g.depth.mark == Mark::Normal;
        if (allGiven && thinnest < g.depth.v - 1e-6) {
            g.problems.push_back("At step " + std::to_string(i + 1) + " the cap is thinner than its minimum depth.");
            g.stepTop[k].mark = Mark::Error;
        }
    }
}

// Along the wingwall from its root to where it is `y` from the front face of a cap `W` wide.
double alongTo(const Wingwall& w, double W, double y) { return (y - W) / w.direction.y; }

// The first pile box at the end of the wingwall, the others at their distances
// from the front face. Both wingwalls take the same distances: parallel ones
// are off together and are told of once; others each for its own side.
void pileBoxes(const BentInputs& in, double W, bool leftSide, Wingwall& w, std::vector<std::string>& problems) {
    const Value& length = w.length;
    if (in.pileBoxes >= 1) {
        w.pileBoxes.push_back(w.end);
        w.pileBoxMarks.push_back(length.mark);
    }
    const Input* distances[] = {&in.pileBoxDistance1, &in.pileBoxDistance2};
    for (int b = 1; b < in.pileBoxes; ++b) {
        const auto d = distances[b - 1]->number();
        double along = d ? alongTo(w, W, *d) : length.v * (in.pileBoxes - b) / in.pileBoxes;
        Mark m = d ? Mark::Normal : Mark::Placeholder;
        if (d && (along < 0 || along > length.v)) {
            const std::string which = std::string("The ") + (b == 1 ? "second" : "third") + " pile box is off the ";
            if (in.wingsParallel && leftSide) problems.push_back(which + "wingwall.");
            if (!in.wingsParallel) problems.push_back(which + (leftSide ? "left" : "right") + " wingwall.");
            m = Mark::Error;
            along = std::clamp(along, 0.0, length.v);
        }
        w.pileBoxes.push_back({w.root.x + w.direction.x * along, w.root.y + w.direction.y * along});
        w.pileBoxMarks.push_back(m);
    }
}

// A wingwall with its pile boxes, its fillet and its tops.
Wingwall wingwall(const BentInputs& in, const Value& length, bool leftSide, BentGeometry& g) {
    const double L = g.length.v, W = g.width.v;
    Wingwall w;
    const AngleInput& a = leftSide || in.wingsParallel ? in.leftWing : in.rightWing;
    w.angle = angleOf(a, g.problems, leftSide ? "The left wingwall angle" : "The right wingwall angle");
    w.direction = unit(w.angle.v);
    if (!leftSide && !in.wingsParallel) w.direction.x = -w.direction.x;
    w.length = length;
    w.root = {leftSide ? 0.0 : L, W};
    w.end = {w.root.x + w.direction.x * length.v, w.root.y + w.direction.y * length.v};
    pileBoxes(in, W, leftSide, w, g.problems);
    const Value across = given(in.transWidth, 2.0), along = given(in.longWidth, 2.0);
    w.fillet = {w.root,
                {w.root.x + (leftSide ? across.v : -across.v), W},
                {w.root.x + w.direction.x * alongTo(w, W, W + along.v), W + along.v}};
    w.filletMark = across.mark == Mark::Normal && along.mark == Mark::Normal ? Mark::Normal : Mark::Placeholder;
    // Tops: level walls have one elevation, sloped ones two.
    const double top = (leftSide ? g.stepTop.front().v : g.stepTop.back().v) + 3.0;
    const bool level = leftSide ? in.leftLevel : in.rightLevel;
    if (level) {
        w.frontTop = w.endTop = given(leftSide ? in.leftTop : in.rightTop, top);
    } else {
        w.frontTop = given(leftSide ? in.leftFrontTop : in.rightFrontTop, top);
        w.endTop = given(leftSide ? in.leftEndTop : in.rightEndTop, top);
    }
    return w;
}

// The end posts on the ends of the cap and the backwall between them.
void endPosts(const BentInputs& in, BentGeometry& g) {
    auto& problems = g.problems;
    const double L = g.length.v;
    const double capTop[] = {g.stepTop.front().v, g.stepTop.back().v};
    g.endPosts = true;
    g.postWidth = positive(in.endPostWidth, 1.0, "The end post width", problems);
    g.postLength = positive(in.endPostLength, 4.0, "The end post length", problems);
    if (2 * g.postWidth.v >= L) {
        problems.push_back("The end posts are wider than the cap.");
        g.postWidth = {L / 4, Mark::Error};
    }
    g.leftPostTop = given(in.leftEndPostTop, capTop[0] + 4.0);
    g.rightPostTop = given(in.rightEndPostTop, capTop[1] + 4.0);
    const double wall = std::max(capTop[0], capTop[1]) + 3.5;
    g.backwallLeftTop = given(in.backwallLeftTop, wall);
    g.backwallCenterTop = given(in.backwallCenterTop, wall);
    g.backwallRightTop = given(in.backwallRightTop, wall);
}

// The battered piles along the cap.
void batteredPiles(const BentInputs& in, BentGeometry& g) {
    g.batteredSpacing = chain(g.length, in.batterSpacing.data(), in.battered,
                              "The battered pile spacings leave nothing of the cap length.", g.problems);
    double at = 0;
    Mark m = Mark::Normal;
    for (int i = 0; i < in.battered; ++i) {
        at += g.batteredSpacing[static_cast<std::size_t>(i)].v;
        if (g.batteredSpacing[static_cast<std::size_t>(i)].mark != Mark::Normal) m = Mark::Placeholder;
        g.batteredX.push_back({at, m});
    }
}

} // namespace

BentGeometry bentGeometry(const BentInputs& in) {
    BentGeometry g;
    const bool end = in.type && isEndBent(*in.type);
    const int n = std::clamp(in.beams, 1, 20);
    g.beams = in.beams;
    cap(in, n, end, g);
    beams(in, n, g);
    capSteps(in, n, g);
    elevations(in, n, g);
    if (!end) return g;

    // Wingwalls, their pile boxes and fillets.
    const Value length = positive(in.wingwallLength, 10.0, "The wingwall length", g.problems);
    g.left = wingwall(in, length, true, g);
    g.right = wingwall(in, length, false, g);
    if (in.type == BentType::EndWithBackwall) endPosts(in, g);
    if (in.batteredDrawn && in.battered > 0) batteredPiles(in, g);
    g.pileSize = pileSizeOf(in.pileType);
    return g;
}

} // namespace tw::drawing
