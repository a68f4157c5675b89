// SPDX-License-Identifier: Apache-2.0
// The plan of the bent: the cap, the beams, the wingwalls, the piles and their dimensions.
#include "core/drawing/DrawingBuilder.h"

#include "core/model/Numeric.h"

#include "core/drawing/Prompts.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing::build {

void Builder::pile(Scene& s, Point c, Point u, const CtlId& source, Mark mark) {
    const double half = g_.pileSize / 2;
    const Point v = leftNormal(u);
    Shape* shape = nullptr;
    if (in_.pileType.rfind("METAL SHELL", 0) == 0) {
        shape = &s.arc(c, half, half, 0, 360, outline(0.25));
    } else if (in_.pileType.rfind("STEEL H", 0) == 0) {
        const double t = half * 0.18;
        std::vector<Point> h;
        for (auto [x, y] : std::initializer_list<std::pair<double, double>>{{-half, -half},
                                                                            {half, -half},
                                                                            {half, -half + t},
                                                                            {t, -half + t},
                                                                            {t, half - t},
                                                                            {half, half - t},
                                                                            {half, half},
                                                                            {-half, half},
                                                                            {-half, half - t},
                                                                            {-t, half - t},
                                                                            {-t, -half + t},
                                                                            {-half, -half + t}})
            h.push_back(c + u * x + v * y);
        shape = &s.polyline(std::move(h), true, outline(0.25));
    } else {
        shape = &s.polyline(
            {c + u * -half + v * -half, c + u * half + v * -half, c + u * half + v * half, c + u * -half + v * half},
            true, outline(0.25));
    }
    shape->fill = Color{150, 150, 150};
    tagged(*shape, source, mark, kOutline);
}

void Builder::plan(Scene& s) {
    const double L = g_.length.v, W = g_.width.v, d = g_.bearing.v;
    const bool end = isEndBent(*in_.type);
    const Mark capMark = worse(g_.length.mark, g_.width.mark);

    // Wingwalls first, so the cap covers their roots.
    if (end) wingwalls(s);

    Shape& cap = s.polyline({{0, 0}, {L, 0}, {L, W}, {0, W}}, true, outline());
    cap.fill = kConcrete;
    tagged(cap, in_.capLength.id, capMark, kOutline);
    for (double x : {0.0, L})
        tagged(s.line({x, 0}, {x, W}, outline()), in_.capWidth.id, g_.width.mark, kOutline);

    if (g_.endPosts)
        for (double x0 : {0.0, L - g_.postWidth.v}) {
            const double x1 = x0 + g_.postWidth.v, y1 = g_.postLength.v;
            Shape& post = s.polyline({{x0, 0}, {x1, 0}, {x1, y1}, {x0, y1}}, true, outline());
            post.fill = kDarker;
            tagged(post, in_.endPostWidth.id, worse(g_.postWidth.mark, g_.postLength.mark), kOutline);
        }
    // The backwall stands along the back face between the end posts; its thickness is
    // no input, so the plan shows where it stands, not how thick it is.
    if (g_.endPosts)
        tagged(s.line({g_.postWidth.v, W}, {L - g_.postWidth.v, W}, outline(0.9)), in_.backwallCenterTop.id,
               g_.backwallCenterTop.mark, kOutline);

    // Centerlines of bearing: one for an end bent, one for each span on an intermediate bent.
    std::vector<double> bearings = {d};
    if (!end) bearings.push_back(W - d);
    for (double y : bearings)
        tagged(s.line({-line_, y}, {L + line_, y}, centerline()), in_.bearingDistance.id, g_.bearing.mark,
               kCenterlines);

    beams(s);
    if (end) wingwallAngles(s);
    battered(s);
    planDimensions(s);
    settle(s);
}

std::vector<bool> Builder::angleLabelled() const {
    std::vector<bool> shown(g_.beamAngle.size(), false);
    if (!on(kBeamAngles) || shown.empty()) return shown;
    bool alike = in_.anglesAlike;
    if (!alike) {
        alike = true;
        for (std::size_t i = 1; i < shown.size(); ++i)
            alike = alike && in_.beamAngles[i].text() == in_.beamAngles[0].text();
    }
    for (std::size_t i = 0; i < shown.size(); ++i)
        shown[i] = i == 0 || !alike;
    return shown;
}

namespace {

double distanceToSegment(Point p, Point a, Point b) {
    const Point v = b - a;
    const double l2 = dot(v, v);
    const double t = l2 > 0 ? std::clamp(dot(p - a, v) / l2, 0.0, 1.0) : 0;
    return length(a + v * t - p);
}

} // namespace

void Builder::beams(Scene& s) {
    const double d = g_.bearing.v, back = g_.width.v + 0.6 * line_, front = -line_;
    const std::size_t n = g_.beamX.size();
    // Each centerline from before the cap to behind it.
    std::vector<Point> ends;
    for (std::size_t i = 0; i < n; ++i) {
        const Point u = g_.beamDirection[i], at{g_.beamX[i].v, d};
        ends.push_back(at + u * ((back - d) / u.y));
        tagged(s.line(at + u * ((front - d) / u.y), ends.back(), centerline()), in_.centerlines[i].id, g_.beamX[i].mark,
               kCenterlines);
    }
    double top = back;
    if (on(kBeamNumbers) && n > 0) top = beamNumbers(s, ends);
    // Each angle measured at the centerline of bearing, its value in a row above the numbers.
    const auto labelled = angleLabelled();
    std::vector<Callout> angles;
    for (std::size_t i = 0; i < n; ++i) {
        if (!labelled[i]) continue;
        const AngleInput& angle = angleInput(i);
        const double theta = g_.beamAngle[i].v;
        const double arcStart = in_.skew == Skew::Left ? 180 - theta : 0;
        const Point at{g_.beamX[i].v, d};
        tagged(s.arc(at, line_ * 0.9, line_ * 0.9, arcStart, theta, thin()), angle.degrees.id, g_.beamAngle[i].mark,
               kDimensions);
        // Its room: halfway to the beams beside it; all of the cap's length for the one angle of all.
        const bool each = n > 1 && labelled[1];
        const double x = ends[i].x;
        const double lo = each && i > 0 ? (ends[i - 1].x + x) / 2 : std::min(0.0, x);
        const double hi = each && i + 1 < n ? (ends[i + 1].x + x) / 2 : std::max(g_.length.v, x);
        angles.push_back(
            {{x, top}, sayAngle(angle, g_.beamAngle[i]), Src(angle.degrees.id), g_.beamAngle[i].mark, lo, hi});
    }
    callouts(s, std::move(angles), top, 1, true);
}

double Builder::beamNumbers(Scene& s, const std::vector<Point>& ends) {
    const std::size_t n = ends.size();
    const double r = 0.75 * line_, pitch = 2.6 * r, gap = 0.3 * line_, box = g_.pileSize + 1.0;
    std::vector<std::size_t> order(n);
    for (std::size_t i = 0; i < n; ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return ends[a].x < ends[b].x; });
    std::vector<double> wanted;
    for (std::size_t i : order)
        wanted.push_back(ends[i].x);
    // What the numbers keep clear of at the ends of the cap: the wingwalls, their pile
    // boxes and angles, and where distances run past the cap, the extension lines there.
    struct Keep {
        Point a, b;
        double clearance;
    };
    std::vector<Keep> keep;
    std::vector<Box> areas; // kept clear of, inside too
    for (const Wingwall* w : {g_.left ? &*g_.left : nullptr, g_.right ? &*g_.right : nullptr}) {
        if (!w) continue;
        keep.push_back({w->root, w->end, w->pileBoxes.empty() ? 0 : box * 0.75});
        Box fillet;
        for (const Point& p : w->fillet)
            fillet.add(p);
        areas.push_back(fillet);
        if (on(kWingwalls)) {
            const auto [start, width] = wingwallAngleAt(*w);
            keep.push_back({w->end, start + w->direction * width, 0.5 * line_});
        }
    }
    if (!compact_) {
        const double L = g_.length.v, W = g_.width.v;
        for (double y : {W, g_.endPosts ? g_.postLength.v : 0.0}) {
            keep.push_back({{-12 * line_, y}, {0, y}, 0});
            keep.push_back({{L, y}, {L + 12 * line_, y}, 0});
        }
        // The fillet's dimensions by the left corner, the wingwall's length along the right one.
        if (g_.left && on(kFillets)) {
            const Point corner = g_.left->fillet[0], across = g_.left->fillet[1], along = g_.left->fillet[2];
            const double x0 = std::min(corner.x, along.x), x1 = std::max(across.x, along.x + 3 * line_);
            Box dims;
            dims.add(Point{x0, corner.y});
            dims.add(Point{x1, along.y + 2.2 * line_});
            areas.push_back(dims);
        }
        if (g_.right && on(kWingwalls)) {
            const Wingwall& rw = *g_.right;
            const Point out = leftNormal(rw.direction) * -((rw.pileBoxes.empty() ? 0 : box / 2) + line_);
            keep.push_back({rw.root + out, rw.end + out, 1.5 * line_});
        }
    }
    // The numbers stand in a band of one level, or of two taking turns where one does
    // not hold them, raised where something at the ends is in its way.
    double lowest = ends.front().y;
    for (const Point& e : ends)
        lowest = std::max(lowest, e.y);
    bool crowded = false;
    for (std::size_t k = 1; k < n; ++k)
        crowded = crowded || wanted[k] - wanted[k - 1] < pitch;
    const double span = std::max(wanted.back() - wanted.front(), 0.0) + pitch;
    const int levels = std::clamp(static_cast<int>(std::ceil(pitch * static_cast<double>(n) / span)), 1, 2);
    const std::vector<double> at = spreadOut(wanted, pitch / levels);
    auto centre = [&](std::size_t k, double y0) {
        return Point{at[k], y0 + r + static_cast<double>(k % static_cast<std::size_t>(levels)) * 2.2 * r};
    };
    auto clear = [&](double y0) {
        for (std::size_t k = 0; k < n; ++k) {
            const Point c = centre(k, y0);
            for (const Keep& kp : keep)
                if (distanceToSegment(c, kp.a, kp.b) < r + kp.clearance + gap) return false;
            for (const Box& a : areas)
                if (c.x > a.minX - r - gap && c.x < a.maxX + r + gap && c.y > a.minY - r - gap &&
                    c.y < a.maxY + r + gap)
                    return false;
        }
        return true;
    };
    double y0 = lowest + (crowded ? 0.8 * line_ : 0);
    for (int tries = 0; tries < 200 && !clear(y0); ++tries)
        y0 += r;
    bool tied = crowded || y0 > lowest;
    for (std::size_t k = 0; k < n && !tied; ++k)
        tied = std::abs(at[k] - wanted[k]) > 0.5 * pt_ || std::abs(ends[order[k]].y - lowest) > 0.5 * pt_;
    double top = y0;
    for (std::size_t k = 0; k < n; ++k) {
        const std::size_t i = order[k];
        const Src source(in_.centerlines[i].id);
        const Mark mark = g_.beamX[i].mark;
        Point c = ends[i] + g_.beamDirection[i] * r;
        if (tied) {
            // Aslant below the band of numbers only, so that no tie crosses another's circle.
            c = centre(k, y0);
            const Point turn{c.x, std::max(y0 - 0.5 * (y0 - lowest), ends[i].y)};
            tagged(s.polyline({ends[i], turn, c - Point{0, r}}, false, thin()), source, mark, kCenterlines).leader =
                true;
        }
        tagged(s.arc(c, r, r, 0, 360, thin()), source, mark, kCenterlines);
        text(s, c, std::to_string(i + 1), source, mark, HAlign::Center, VAlign::Middle).pinned = true;
        top = std::max(top, c.y + r);
    }
    return top;
}

void Builder::battered(Scene& s) {
    const double W = g_.width.v;
    for (std::size_t k = 0; k < g_.batteredX.size(); ++k) {
        const Point c{g_.batteredX[k].v, W / 2};
        const auto source = in_.batterSpacing[k].id;
        const Mark mark = g_.batteredX[k].mark;
        pile(s, c, {1, 0}, source, mark);
        // The batter leans toward the span.
        const double reach = std::max(g_.pileSize, W * 0.4);
        const Point tip = c + Point{0, -reach};
        tagged(s.line(c, tip, thin()), source, mark, kOutline);
        tagged(s.polyline({tip, tip + Point{-0.12 * reach, 0.25 * reach}, tip + Point{0.12 * reach, 0.25 * reach}},
                          true, thin()),
               source, mark, kOutline)
            .fill = kDimInk;
    }
}

void Builder::wingwalls(Scene& s) {
    const double box = g_.pileSize + 1.0;
    for (const Wingwall* w : {&*g_.left, &*g_.right}) {
        // Fillet between the back face and the wingwall.
        Shape& fillet = s.polyline(w->fillet, true, outline(0.25));
        fillet.fill = kDarker;
        tagged(fillet, in_.transWidth.id, w->filletMark, kOutline);
        tagged(s.line(w->root, w->end, outline(0.7)), in_.wingwallLength.id, worse(w->length.mark, w->angle.mark),
               kOutline);
        for (std::size_t b = 0; b < w->pileBoxes.size(); ++b) {
            const Point c = w->pileBoxes[b], u = w->direction, v = leftNormal(u);
            const double h = box / 2;
            const CtlId source = b == 0   ? CtlId(Ctl::cboWingwallPileBox)
                                 : b == 1 ? in_.pileBoxDistance1.id
                                          : in_.pileBoxDistance2.id;
            Shape& sq = s.polyline({c + u * -h + v * -h, c + u * h + v * -h, c + u * h + v * h, c + u * -h + v * h},
                                   true, outline(0.25));
            sq.fill = Color{255, 255, 255};
            tagged(sq, source, w->pileBoxMarks[b], kOutline);
            pile(s, c, u, source, w->pileBoxMarks[b]);
        }
    }
}

std::pair<Point, double> Builder::wingwallAngleAt(const Wingwall& w) const {
    const bool left = &w == &*g_.left;
    const AngleInput& a = left || in_.wingsParallel ? in_.leftWing : in_.rightWing;
    const double past = (w.pileBoxes.empty() ? 0 : (g_.pileSize + 1.0) / 2) + 0.4 * line_;
    return {w.end + w.direction * past, widthOf(sayAngle(a, w.angle))};
}

void Builder::wingwallAngles(Scene& s) {
    if (!on(kWingwalls)) return;
    for (const Wingwall* w : {&*g_.left, &*g_.right}) {
        // The angle reads on past the end of the wingwall; the beams' numbers keep clear of it.
        const bool left = w == &*g_.left;
        const AngleInput& a = left || in_.wingsParallel ? in_.leftWing : in_.rightWing;
        const auto [start, width] = wingwallAngleAt(*w);
        labelBeside(s, start + w->direction * (width / 2), w->direction, leftNormal(w->direction), 0,
                    sayAngle(a, w->angle), a.degrees.id, w->angle.mark, true)
            .names = w->end;
    }
}

double Builder::spacingChain(Scene& s, const std::vector<Value>& spacing, const std::vector<Value>& positions,
                             const Input* inputs, std::size_t closingItem, double at, double row) {
    std::vector<double> xs = {0};
    std::vector<std::string> labels;
    std::vector<CtlId> sources;
    std::vector<Mark> marks;
    for (std::size_t i = 0; i < spacing.size(); ++i) {
        const bool closing = i + 1 == spacing.size();
        xs.push_back(closing ? g_.length.v : positions[i].v);
        const Input& input = inputs[closing ? closingItem : i];
        labels.push_back(closing ? sayClosing(input.id, spacing[i]) : say(input, spacing[i]));
        sources.push_back(input.id);
        marks.push_back(spacing[i].mark);
    }
    return chain(s, xs, at, row, labels, sources, marks);
}

void Builder::planDimensions(Scene& s) {
    const double L = g_.length.v, W = g_.width.v, d = g_.bearing.v;
    const bool end = isEndBent(*in_.type);
    const double step = 2.2 * line_;

    // Across the front: beam spacings, battered pile spacings, the cap length.
    // Each row's extension lines start below the labels of the row before, so that none crosses them.
    double row = -line_ - 1.2 * line_, from = 0;
    if (on(kBeamSpacing)) {
        from = spacingChain(s, g_.spacing, g_.beamX, in_.centerlines.data(), 20, d, row) - 0.3 * line_;
        row = from - step + line_;
    }
    if (on(kBatteredPiles) && !g_.batteredX.empty()) {
        const double at = on(kBeamSpacing) ? from : W / 2;
        from = spacingChain(s, g_.batteredSpacing, g_.batteredX, in_.batterSpacing.data(), 6, at, row) - 0.3 * line_;
        row = from - step + line_;
    }
    if (on(kCapLength))
        dimension(s, {0, from}, {L, from}, row - from, say(in_.capLength, g_.length), in_.capLength.id, g_.length.mark);

    // The right end: the cap width, then the end post's length.
    double right = 1.5 * line_;
    if (on(kCapWidth) && !noted("Cap width", in_.capWidth, g_.width, compact_))
        right +=
            dimension(s, {L, 0}, {L, W}, -right, say(in_.capWidth, g_.width), in_.capWidth.id, g_.width.mark) + line_;
    if (g_.endPosts && on(kEndPosts) && !noted("End post length", in_.endPostLength, g_.postLength, compact_))
        right += dimension(s, {L, 0}, {L, g_.postLength.v}, -right, say(in_.endPostLength, g_.postLength),
                           in_.endPostLength.id, g_.postLength.mark) +
                 line_;

    // The left end: the bearing, then the pile boxes.
    double left = 1.5 * line_;
    if (on(kBearing) && !noted("Bearing from front face", in_.bearingDistance, g_.bearing, compact_))
        left += dimension(s, {0, 0}, {0, d}, left, say(in_.bearingDistance, g_.bearing), in_.bearingDistance.id,
                          g_.bearing.mark) +
                line_;
    if (!end) return;
    const Wingwall& lw = *g_.left;
    const Wingwall& rw = *g_.right;
    // The second pile box is dimensioned on the left wingwall, the third on the right one,
    // so that neither's extension line crosses the other's label.
    if (on(kPileBoxes)) {
        const Input* distances[] = {&in_.pileBoxDistance1, &in_.pileBoxDistance2};
        const char* names[] = {"2nd pile box from front face", "3rd pile box from front face"};
        for (std::size_t b = 1; b < lw.pileBoxes.size(); ++b) {
            const bool onLeft = b == 1;
            const Point c = (onLeft ? lw : rw).pileBoxes[b];
            const Value v{c.y, lw.pileBoxMarks[b]};
            if (noted(names[b - 1], *distances[b - 1], v, compact_)) continue;
            const double line =
                onLeft ? std::min({0.0, lw.end.x, lw.root.x}) - left : std::max({L, rw.end.x, rw.root.x}) + right;
            dimension(s, {c.x, 0}, {c.x, c.y}, c.x - line, say(*distances[b - 1], v), distances[b - 1]->id, v.mark);
        }
    }
    // A wingwall too short for its label along it would turn the label into the cap width's.
    const std::string wingLabel = say(in_.wingwallLength, rw.length);
    const bool shortWall = widthOf(wingLabel) + 2 * ems(kArrowPt) > rw.length.v;
    if (on(kWingwalls) && !noted("Wingwalls", in_.wingwallLength, rw.length, compact_ || shortWall)) {
        const double off = (rw.pileBoxes.empty() ? 0 : (g_.pileSize + 1.0) / 2) + line_;
        dimension(s, rw.root, rw.end, -off, wingLabel, in_.wingwallLength.id, rw.length.mark);
    }
    if (on(kFillets)) {
        const Point corner = lw.fillet[0], across = lw.fillet[1], along = lw.fillet[2];
        const Value a{across.x - corner.x, lw.filletMark}, b{along.y - W, lw.filletMark};
        // Too small to dimension among the wingwall's dimensions, but for a sketch made for them.
        if (noted("Fillets", in_.transWidth, a, !prompts())) {
            notes_.back().text = "Fillets " + say(in_.transWidth, a) + " transverse,";
            notes_.push_back({say(in_.longWidth, b) + " longitudinal", in_.longWidth.id, b.mark});
            return;
        }
        // Above the fillet, and outside the wingwall where the bearing's dimension leaves room.
        dimension(s, corner, across, along.y - W + 0.8 * line_, say(in_.transWidth, a), in_.transWidth.id,
                  lw.filletMark);
        dimension(s, {along.x, W}, along, along.x + 1.5 * line_, say(in_.longWidth, b), in_.longWidth.id,
                  lw.filletMark);
    }
}

} // namespace tw::drawing::build
