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
    battered(s);
    planDimensions(s);
    placeLabels(s, pt_);
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

Builder::BeamEnds Builder::beamEnds() const {
    const auto labelled = angleLabelled();
    double longest = 0;
    for (std::size_t i = 0; i < labelled.size(); ++i)
        if (labelled[i]) longest = std::max(longest, widthOf(sayAngle(angleInput(i), g_.beamAngle[i])));
    BeamEnds e{g_.width.v + (longest > 0 ? longest + line_ : 0.6 * line_), 0.75 * line_,
               std::vector<int>(g_.beamX.size(), 0), 0};
    int rows = 1;
    if (on(kBeamNumbers)) {
        // Each number takes the nearest row where its circle clears those of the numbers before it.
        std::vector<Point> centres;
        for (std::size_t i = 0; i < g_.beamX.size(); ++i) {
            const Point u = g_.beamDirection[i], at{g_.beamX[i].v, g_.bearing.v};
            for (int r = 0;; ++r) {
                e.row[i] = r;
                const Point c = at + u * ((e.reach(i) - g_.bearing.v) / u.y + e.radius);
                const bool clear = std::all_of(centres.begin(), centres.end(),
                                               [&](Point o) { return length(c - o) >= 2.2 * e.radius; });
                if (clear || r > 2 * static_cast<int>(i)) {
                    centres.push_back(c);
                    rows = std::max(rows, r + 1);
                    break;
                }
            }
        }
    }
    e.top = e.back + (rows - 1) * 2.2 * e.radius + (on(kBeamNumbers) ? 2 * e.radius : 0);
    return e;
}

void Builder::beams(Scene& s) {
    const double W = g_.width.v, d = g_.bearing.v;
    const auto labelled = angleLabelled();
    const BeamEnds ends = beamEnds();
    const double front = -line_, radius = ends.radius;
    for (std::size_t i = 0; i < g_.beamX.size(); ++i) {
        const Point u = g_.beamDirection[i], at{g_.beamX[i].v, d};
        const auto source = in_.centerlines[i].id;
        const Mark mark = g_.beamX[i].mark;
        const Point a = at + u * ((front - d) / u.y), b = at + u * ((ends.reach(i) - d) / u.y);
        tagged(s.line(a, b, centerline()), source, mark, kCenterlines);
        if (on(kBeamNumbers)) {
            const Point c = b + u * radius;
            tagged(s.arc(c, radius, radius, 0, 360, thin()), source, mark, kCenterlines);
            text(s, c, std::to_string(i + 1), source, mark, HAlign::Center, VAlign::Middle).pinned = true;
        }
        if (!labelled[i]) continue;
        const AngleInput& angle = angleInput(i);
        const double theta = g_.beamAngle[i].v;
        const double arcStart = in_.skew == Skew::Left ? 180 - theta : 0;
        tagged(s.arc(at, line_ * 0.9, line_ * 0.9, arcStart, theta, thin()), angle.degrees.id, g_.beamAngle[i].mark,
               kDimensions);
        // Along the beam's line behind the cap, clear of it on the side away from the span's skew.
        const std::string t = sayAngle(angle, g_.beamAngle[i]);
        const Point start = at + u * ((W + 0.5 * line_ - d) / u.y);
        const Point side = leftNormal(u) * (u.x >= 0 ? -1.0 : 1.0);
        const Point mid = start + u * (widthOf(t) / 2);
        labelBeside(s, mid, u, side, 0.35 * line_, t, angle.degrees.id, g_.beamAngle[i].mark, true);
    }
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
        const bool left = w == &*g_.left;
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
        if (!on(kWingwalls)) continue;
        // The angle reads on past the end of the wingwall.
        const AngleInput& a = left || in_.wingsParallel ? in_.leftWing : in_.rightWing;
        const std::string t = sayAngle(a, w->angle);
        // Beyond the beams' numbers too, reached by the wingwall's line carried on thin.
        double past = (w->pileBoxes.empty() ? 0 : box / 2) + 0.4 * line_;
        past = std::max(past, (beamEnds().top + 0.3 * line_ - w->end.y) / w->direction.y);
        const Point start = w->end + w->direction * past;
        if (past > line_)
            tagged(s.line(w->end, start, {kDimInk, 0, LineStyle::Dotted}), a.degrees.id, w->angle.mark, kDimensions);
        labelBeside(s, start + w->direction * (widthOf(t) / 2), w->direction, leftNormal(w->direction), 0, t,
                    a.degrees.id, w->angle.mark, true);
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
    double row = -line_ - 1.2 * line_;
    if (on(kBeamSpacing))
        row = spacingChain(s, g_.spacing, g_.beamX, in_.centerlines.data(), 20, d, row) - step + line_;
    if (on(kBatteredPiles) && !g_.batteredX.empty())
        row = spacingChain(s, g_.batteredSpacing, g_.batteredX, in_.batterSpacing.data(), 6, W / 2, row) - step + line_;
    if (on(kCapLength))
        dimension(s, {0, 0}, {L, 0}, row, say(in_.capLength, g_.length), in_.capLength.id, g_.length.mark);

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
    if (on(kBearing) && !noted("Bearing from the front face", in_.bearingDistance, g_.bearing, compact_))
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
        const char* names[] = {"Second pile box from the front face", "Third pile box from the front face"};
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
