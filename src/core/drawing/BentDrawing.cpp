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
        keepLabelRoom(scene, pt_);
        return scene;
    }
    Scene top, bottom;
    // About as many shapes as a bent of this many beams takes: no scene grows twice.
    const std::size_t expected = 16 * static_cast<std::size_t>(in_.beams) + 128;
    top.shapes.reserve(expected);
    bottom.shapes.reserve(expected);
    if (o_.plan) plan(top);
    if (o_.elevation) elevation(bottom);
    arrange(scene, std::move(top), std::move(bottom));
    if (o_.title) title(scene);
    if (o_.legend) legend(scene);
    return scene;
}

void Builder::append(Scene& to, Scene&& from, Point shift) {
    if (to.shapes.empty() && to.room.empty && shift == Point{0, 0}) {
        to = std::move(from);
        return;
    }
    to.shapes.reserve(to.shapes.size() + from.shapes.size());
    for (auto& s : from.shapes) {
        for (auto& p : s.points)
            p = p + shift;
        s.center = s.center + shift;
        to.shapes.push_back(std::move(s));
    }
    if (!from.room.empty) {
        to.room.add(Point{from.room.minX + shift.x, from.room.minY + shift.y});
        to.room.add(Point{from.room.maxX + shift.x, from.room.maxY + shift.y});
    }
}

void Builder::settle(Scene& s) {
    if (place_)
        leaders_ += placeLabels(s, pt_);
    else
        keepLabelRoom(s, pt_);
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

namespace {

// The share of its size without text the bent should keep against its labels:
// at least this much where notes and smaller text can make room for it, and
// never less than the second, or the view is too small for it.
constexpr double kFill = 0.86;
constexpr double kTooSmall = 0.5;

// Keeps room around the scene so that, fitted to the view, it is shown at
// exactly `fpp`: the side that limits the fit is widened to the view.
void keepScale(Scene& scene, double fpp, double widthPt, double heightPt, double margin) {
    const Box b = scene.bounds();
    if (b.empty) return;
    const double inner = 1 - 2 * margin;
    const double w = widthPt * inner * fpp, h = heightPt * inner * fpp;
    const bool byHeight = heightPt > 0 && b.height() / h > b.width() / w;
    const double cx = (b.minX + b.maxX) / 2, cy = (b.minY + b.maxY) / 2;
    if (byHeight) {
        scene.room.add(Point{cx, cy - h / 2});
        scene.room.add(Point{cx, cy + h / 2});
    } else {
        scene.room.add(Point{cx - w / 2, cy});
        scene.room.add(Point{cx + w / 2, cy});
    }
}

} // namespace

Scene drawBentToFit(const BentInputs& in, const DrawOptions& options, double widthPt, double heightPt,
                    LayoutReport* report, double margin, const LayoutReport* hint) {
    const BentGeometry g = bentGeometry(in);
    DrawOptions o = options;
    o.viewWidthPt = widthPt * (1 - 2 * margin);
    o.viewHeightPt = heightPt * (1 - 2 * margin);
    double viewHeight = heightPt; // none when the drawing runs on below a view too small for it
    auto fitOf = [&](const Scene& s) { return feetPerPointToFit(s.bounds(), widthPt, viewHeight, margin); };
    const Scene geometry = Builder(in, g, o, 1e-6, false, false).build();
    double bare = fitOf(geometry);
    const double firstBare = bare;
    // Text takes room in feet that depends on the scale the room gives it: a
    // drawing laid out for a scale fits the view when the view's scale for it
    // is no smaller (their ratio is at most one). The largest drawing that fits
    // lies between a scale too large and one that fits: found by stepping out
    // from a first guess until it is bracketed, then closing in. Where the
    // ratio stops falling however small the drawing, the text alone is more
    // than the view holds.
    bool compact = false;
    struct Found {
        double fpp = 0;
        bool overflow = false;
        double textOnly = 0; // the ratio the text alone keeps, where it overflows
    };
    auto ratio = [&](double x) { return fitOf(Builder(in, g, o, x, compact, false).build()) / x; };
    auto search = [&](double from) {
        Found lo{from}, hi{0};
        double rLo = ratio(from), rHi = 0;
        if (rLo <= 1 + 1e-9) {
            // A guess that fits already: down until it does not.
            hi = lo;
            rHi = rLo;
            for (double x = from / 1.01;; x /= 1.04) {
                if (x <= bare) return hi; // no text at all would fit better
                const double r = ratio(x);
                if (r > 1 + 1e-9) {
                    lo.fpp = x;
                    rLo = r;
                    break;
                }
                hi.fpp = x;
                rHi = r;
            }
        } else {
            for (double x = from * std::max(1.01, rLo); hi.fpp == 0; x *= std::max(1.01, rLo)) {
                const double r = ratio(x);
                if (r <= 1 + 1e-9) {
                    hi.fpp = x;
                    rHi = r;
                } else if (x > 4 * bare && r >= rLo * 0.99) {
                    return Found{x, true, r};
                } else {
                    lo.fpp = x;
                    rLo = r;
                }
            }
        }
        // Where the ratio crosses one, kept well inside the bracket.
        while (hi.fpp > lo.fpp * 1.01) {
            const double t = std::clamp((rLo - 1) / (rLo - rHi), 0.15, 0.85);
            const double x = lo.fpp + (hi.fpp - lo.fpp) * t;
            const double r = ratio(x);
            if (r <= 1 + 1e-9) {
                hi.fpp = x;
                rHi = r;
            } else {
                lo.fpp = x;
                rLo = r;
            }
        }
        return hi;
    };
    const bool values = options.labels == Labels::Values;
    // How much of the view the bent keeps against its text: what share of the
    // size it would have with no text at all.
    auto share = [&](const Found& f) { return f.overflow ? 0.0 : bare / f.fpp; };
    Found sized;
    bool tooSmall = false, cramped = false;
    // The drawing kept to the scale it was laid out for, and its report.
    auto finish = [&](Scene scene, double fpp, double sizedFpp, int leaders) {
        keepScale(scene, fpp, widthPt, viewHeight, margin);
        scene.feetPerPoint = fpp;
        if (report) {
            report->feetPerPoint = fpp;
            report->sizedFeetPerPoint = sizedFpp;
            report->textPt = o.textPt;
            report->leaders = leaders;
            report->tooSmall = tooSmall;
            report->cramped = cramped;
            report->compact = compact;
            report->bare = firstBare;
            report->viewWidthPt = widthPt;
            report->viewHeightPt = heightPt;
        }
        return scene;
    };
    const bool hinted = hint && hint->feetPerPoint > 0 && hint->viewWidthPt == widthPt &&
                        hint->viewHeightPt == heightPt && std::abs(hint->bare / bare - 1) < 0.03;
    if (hinted) {
        // Laid out a moment ago for a bent much the same: its choices again, and its scale to start from.
        compact = hint->compact;
        o.textPt = hint->textPt;
        tooSmall = hint->tooSmall;
        cramped = hint->cramped;
        if (tooSmall) {
            viewHeight = o.viewHeightPt = 0;
            bare = fitOf(geometry);
        }
        // Its scale as it came out, tried first: where the bent fills the view within a few
        // hundredths of it, that is the drawing.
        const double scale = firstBare / hint->bare, guess = hint->feetPerPoint * scale;
        Builder b(in, g, o, guess, compact, true);
        Scene scene = b.build();
        const double r = fitOf(scene) / guess;
        if (r <= 1 + 1e-9 && r > 0.95)
            return finish(std::move(scene), guess, hint->sizedFeetPerPoint * scale, b.leaders());
        sized = search(hint->sizedFeetPerPoint * scale);
    } else {
        sized = search(bare);
        // Where the dimensions beside the plan keep the bent from most of the view,
        // their values go to the notes; where that is not enough, the text is set
        // smaller, down to the smallest size that reads.
        // The sketches keep their size; they are laid out for a view that holds them.
        if (values && share(sized) < kFill) {
            compact = true;
            sized = search(bare);
        }
        cramped = share(sized) < (kFill + kTooSmall) / 2;
        while (values && share(sized) < kFill && o.textPt - 1 >= kSmallestTextPt) {
            // Text that alone overflows at this size does so at the next one too, when it keeps
            // more of the view than the size shrinks by.
            const double next = o.textPt - 1;
            if (sized.overflow && sized.textOnly * next / o.textPt > 1.02) {
                o.textPt = next;
                continue;
            }
            o.textPt = next;
            sized = search(bare);
        }
        // Too small even then: the drawing takes the view's width at its own text
        // size and runs on below the view.
        tooSmall = share(sized) < kTooSmall;
        if (tooSmall && viewHeight > 0) {
            o.textPt = options.textPt;
            viewHeight = o.viewHeightPt = 0;
            bare = fitOf(geometry);
            sized = search(bare);
        }
    }
    // Text wider than the view even so: the cap at half its width, the labels running on past it.
    if (sized.overflow && g.length.v > 0) sized.fpp = g.length.v / (0.5 * widthPt);
    // The labels are placed once, at the scale the drawing is shown at. Where
    // the few that had to move widen it, it is laid out a little smaller; where
    // that does not hold it either, it spills over the view's margin.
    // Where the last layout had to go a little smaller for its moved labels, this one starts there.
    const double grown = hinted && !sized.overflow ? hint->feetPerPoint / hint->sizedFeetPerPoint : 1;
    double fpp = sized.fpp * grown;
    Builder first(in, g, o, fpp, compact, true);
    Scene scene = first.build();
    int leaders = first.leaders();
    for (double r = fitOf(scene) / fpp, x = fpp; !sized.overflow && r > 1 + 1e-9;) {
        x *= std::max(1.02, r);
        if (x > sized.fpp * 1.5) break;
        Builder b(in, g, o, x, compact, true);
        Scene next = b.build();
        r = fitOf(next) / x;
        if (r <= 1 + 1e-9) {
            scene = std::move(next);
            fpp = x;
            leaders = b.leaders();
        }
    }
    return finish(std::move(scene), fpp, sized.fpp, leaders);
}

} // namespace tw::drawing
