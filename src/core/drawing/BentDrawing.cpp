// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/BentDrawing.h"

#include "core/drawing/DrawingBuilder.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing {

namespace build {

Scene Builder::build() {
    Scene scene;
    if (!in_.type) {
        text(scene, {0, 0}, "Choose a bent type to see the bent.", {}, Mark::Placeholder, HAlign::Center);
        placeLabels(scene, pt_);
        return scene;
    }
    Scene top, bottom;
    if (o_.plan) plan(top);
    if (o_.elevation) elevation(bottom);
    arrange(scene, std::move(top), std::move(bottom));
    if (o_.title) title(scene);
    return scene;
}

void Builder::append(Scene& to, Scene&& from, Point shift) {
    for (auto& s : from.shapes) {
        for (auto& p : s.points)
            p = p + shift;
        s.center = s.center + shift;
        to.shapes.push_back(std::move(s));
    }
}

void Builder::arrange(Scene& scene, Scene&& plan, Scene&& elevation) const {
    const Box p = plan.bounds(), e = elevation.bounds();
    const double gap = 1.5 * line_;
    bool beside = false;
    if (!p.empty && !e.empty && o_.viewWidthPt > 0 && o_.viewHeightPt > 0) {
        const double titleHeight = 6 * line_;
        auto scale = [&](double w, double h) {
            return std::min(o_.viewWidthPt / w, o_.viewHeightPt / (h + titleHeight));
        };
        beside = scale(p.width() + gap + e.width(), std::max(p.height(), e.height())) >
                 scale(std::max(p.width(), e.width()), p.height() + gap + e.height());
    }
    append(scene, std::move(plan), {0, 0});
    if (e.empty) return;
    if (p.empty)
        append(scene, std::move(elevation), {0, 0});
    else if (beside)
        append(scene, std::move(elevation), {p.maxX + gap - e.minX, p.maxY - e.maxY});
    else // below, the same length along the cap lined up
        append(scene, std::move(elevation), {0, p.minY - gap - e.maxY});
}

} // namespace build

using build::Builder;

Scene drawBent(const BentInputs& in, const DrawOptions& options, double feetPerPoint) {
    const BentGeometry g = bentGeometry(in);
    return Builder(in, g, options, feetPerPoint).build();
}

double feetPerPointToFit(const Box& box, double widthPt, double heightPt, double margin) {
    const double inner = 1 - 2 * margin;
    double pointsPerFoot = box.width() > 0 ? widthPt * inner / box.width() : 1;
    if (heightPt > 0 && box.height() > 0) pointsPerFoot = std::min(pointsPerFoot, heightPt * inner / box.height());
    return pointsPerFoot > 0 ? 1 / pointsPerFoot : 1;
}

Scene drawBentToFit(const BentInputs& in, const DrawOptions& options, double widthPt, double heightPt,
                    LayoutReport* report, double margin) {
    const BentGeometry g = bentGeometry(in);
    // Text takes room in feet that depends on the scale the room gives it: a
    // few rounds settle it (each round shrinks the error by the share of the
    // view that text takes).
    DrawOptions o = options;
    o.viewWidthPt = widthPt * (1 - 2 * margin);
    o.viewHeightPt = heightPt * (1 - 2 * margin);
    const double bare = feetPerPointToFit(Builder(in, g, o, 1e-6).build().bounds(), widthPt, heightPt, margin);
    // The scale the view gives a drawing laid out for `fpp` grows about in
    // step with it (the text's room does), so secant steps find where the two
    // agree in a few rounds.
    // When the scale grows faster than that, the text alone is more than the
    // view holds: no scale fits, and the drawing is cramped whatever is done.
    bool overflow = false;
    auto settle = [&](bool compact, double& fpp) {
        double x0 = bare, f0 = 0, x1 = bare;
        Scene scene;
        overflow = false;
        double built = x1;
        for (int round = 0; round < 8; ++round) {
            built = x1;
            scene = Builder(in, g, o, x1, compact).build();
            const double f1 = feetPerPointToFit(scene.bounds(), widthPt, heightPt, margin);
            if (std::abs(f1 - x1) <= 0.02 * x1) break;
            double next = f1;
            if (round > 0 && x1 != x0) {
                const double slope = (f1 - f0) / (x1 - x0);
                if (std::isfinite(slope) && slope < 0.9) next = x1 + (f1 - x1) / (1 - slope);
                if (std::isfinite(slope) && slope >= 0.98) {
                    overflow = true;
                    break;
                }
            }
            x0 = x1;
            f0 = f1;
            x1 = std::max(bare, next);
        }
        // The scale the scene was laid out for, which its labels' room was worked out at.
        fpp = built;
        return scene;
    };
    // When the dimensions beside the plan would leave the bent less than
    // about half the view, their values go to the notes.
    double fpp = 0;
    Scene scene = settle(false, fpp);
    if (fpp > 1.8 * bare && options.labels == Labels::Values) scene = settle(true, fpp);
    // A view too small even then: smaller text rather than text over text. The
    // sketches keep their size; they are laid out for a view that holds them.
    const bool cramped = overflow;
    while (overflow && options.labels == Labels::Values && o.textPt > 6.5) {
        o.textPt -= 1;
        scene = settle(true, fpp);
    }
    if (report) {
        report->feetPerPoint = fpp;
        // Beams closer than two lines of text leave their numbers and labels no room.
        double closest = 1e9;
        for (const auto& v : g.spacing)
            closest = std::min(closest, v.v);
        report->cramped = cramped || closest / fpp < 2 * o.textPt * kLineSpacing;
    }
    return scene;
}

} // namespace tw::drawing
