// SPDX-License-Identifier: Apache-2.0
// The elevation of one bent: the cap and its steps, the backwall and end posts, the wingwalls unfolded.
#include "core/drawing/DrawingBuilder.h"

#include "core/model/Numeric.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing::build {

double Builder::topAt(double x) const {
    for (std::size_t k = 0; k < g_.stepTop.size(); ++k)
        if (x <= g_.stepX[k + 1]) return g_.stepTop[k].v;
    return g_.stepTop.back().v;
}

void Builder::elevation(Scene& s) {
    capElevation(s);
    if (g_.endPosts) backwall(s);
    stepElevations(s);
    const double lowest = bottomElevations(s);
    if (on(kMinDepth) && (g_.bottomComputed || prompts()) &&
        !noted("Minimum cap depth", in_.capDepth, g_.depth, g_.depth.v < 1.4 * line_))
        minimumDepth(s);
    // Measured below the bottom's labels, so no extension line crosses them.
    if (on(kCapSteps)) capSteps(s, lowest);
    settle(s);

    // The wingwalls unfolded below, each under its end of the cap (in a sketch, the one about them).
    if (isEndBent(*in_.type) && (!prompts() || on(kWingwallTops))) {
        Scene wings;
        developedWingwalls(wings);
        settle(wings);
        const Box above = s.bounds(), own = wings.bounds();
        append(s, std::move(wings), {0, above.minY - 1.5 * line_ - own.maxY});
    }
}

void Builder::capElevation(Scene& s) {
    const double L = g_.length.v;
    const std::size_t n = g_.stepTop.size();
    const double bl = g_.bottomLeft.v, br = g_.bottomRight.v;
    std::vector<Point> cap = {{0, bl}, {L, br}};
    for (std::size_t k = n; k-- > 0;) {
        cap.push_back({g_.stepX[k + 1], g_.stepTop[k].v});
        cap.push_back({g_.stepX[k], g_.stepTop[k].v});
    }
    Shape& body = s.polyline(cap, true, outline());
    body.fill = kConcrete;
    tagged(body, in_.capLength.id, g_.length.mark, kOutline);
    tagged(s.line({0, bl}, {L, br}, outline()), in_.bottomLeft.id, worse(g_.bottomLeft.mark, g_.bottomRight.mark),
           kOutline);
    for (std::size_t k = 0; k < n; ++k)
        tagged(s.line({g_.stepX[k], g_.stepTop[k].v}, {g_.stepX[k + 1], g_.stepTop[k].v}, outline(0.5)),
               in_.stepElevations[k].id, g_.stepTop[k].mark, kOutline);
}

void Builder::stepElevations(Scene& s) {
    const std::size_t n = g_.stepTop.size();
    if (prompts()) {
        if (!on(kStepElevations)) return;
        // A sketch's prompts stand above the steps, turned upright when they crowd.
        bool upright = false;
        for (std::size_t k = 0; k < n; ++k)
            upright = upright ||
                      widthOf(say(in_.stepElevations[k], g_.stepTop[k])) + 0.4 * line_ > g_.stepX[k + 1] - g_.stepX[k];
        for (std::size_t k = 0; k < n; ++k) {
            const Point at{(g_.stepX[k] + g_.stepX[k + 1]) / 2, g_.stepTop[k].v + 0.25 * line_};
            const std::string t = say(in_.stepElevations[k], g_.stepTop[k]);
            if (upright && lineCount(t) == 1)
                text(s, at, t, in_.stepElevations[k].id, g_.stepTop[k].mark, HAlign::Left, VAlign::Middle, 90);
            else
                text(s, at, t, in_.stepElevations[k].id, g_.stepTop[k].mark, HAlign::Center, VAlign::Bottom);
        }
        return;
    }
    // The elevations of the top: each step's, and where a backwall stands on the
    // steps, its tops and the end posts' too, in one row of labels above it all.
    std::vector<Callout> items;
    double base = -1e300;
    if (on(kStepElevations))
        for (std::size_t k = 0; k < n; ++k) {
            const double x0 = g_.stepX[k], x1 = g_.stepX[k + 1], top = g_.stepTop[k].v;
            items.push_back({{(x0 + x1) / 2, top},
                             say(in_.stepElevations[k], g_.stepTop[k]),
                             in_.stepElevations[k].id,
                             g_.stepTop[k].mark,
                             std::min(x0, x1),
                             std::max(x0, x1)});
            base = std::max(base, top);
        }
    if (g_.endPosts && on(kBackwallTops)) {
        const double L = g_.length.v, we = g_.postWidth.v;
        struct Top {
            Point at;
            const Input* input;
            const Value* value;
        };
        const Top tops[] = {{{we / 2, g_.leftPostTop.v}, &in_.leftEndPostTop, &g_.leftPostTop},
                            {{we, g_.backwallLeftTop.v}, &in_.backwallLeftTop, &g_.backwallLeftTop},
                            {{L / 2, g_.backwallCenterTop.v}, &in_.backwallCenterTop, &g_.backwallCenterTop},
                            {{L - we, g_.backwallRightTop.v}, &in_.backwallRightTop, &g_.backwallRightTop},
                            {{L - we / 2, g_.rightPostTop.v}, &in_.rightEndPostTop, &g_.rightPostTop}};
        for (const auto& [at, input, value] : tops) {
            base = std::max(base, at.y);
            // A top not entered yet shows by its dashed outline; a "?" there would only crowd the others.
            if (value->mark != Mark::Placeholder)
                items.push_back({at, say(*input, *value), input->id, value->mark, at.x, at.x});
        }
    }
    callouts(s, std::move(items), base, 1, !g_.endPosts);
}

double Builder::bottomElevations(Scene& s) {
    const double L = g_.length.v, bl = g_.bottomLeft.v, br = g_.bottomRight.v;
    double lowest = std::min(bl, br);
    if (!on(kBottom)) return lowest;
    if (g_.bottomComputed && !prompts()) {
        const std::string note = "Bottom of cap computed by the program";
        text(s, {L / 2, lowest - 0.3 * line_}, note, in_.bottomLeft.id, Mark::Placeholder, HAlign::Center, VAlign::Top);
        return lowest - (0.3 * line_ + heightOf(note));
    }
    // Under the two ends, each within its half of the cap, or upright below it where they do not fit.
    const Callout left{{0, bl}, say(in_.bottomLeft, g_.bottomLeft), in_.bottomLeft.id, g_.bottomLeft.mark, 0, L / 2};
    const Callout right{{L, br}, say(in_.bottomRight, g_.bottomRight), in_.bottomRight.id, g_.bottomRight.mark, L / 2,
                        L};
    return callouts(s, {left, right}, lowest, -1, true);
}

void Builder::minimumDepth(Scene& s) {
    const std::size_t n = g_.stepTop.size();
    std::size_t k = 0;
    for (std::size_t i = 1; i < n; ++i)
        if (g_.stepTop[i].v < g_.stepTop[k].v) k = i;
    const double x = g_.stepX[k] + std::min(1.5 * line_, (g_.stepX[k + 1] - g_.stepX[k]) / 2);
    const double top = g_.stepTop[k].v;
    dimension(s, {x, top}, {x, top - g_.depth.v}, 0, say(in_.capDepth, g_.depth), in_.capDepth.id, g_.depth.mark, true);
}

void Builder::capSteps(Scene& s, double lowest) {
    const std::size_t n = g_.stepTop.size();
    std::vector<std::string> labels;
    std::vector<CtlId> sources;
    std::vector<Mark> marks;
    for (std::size_t k = 0; k < n; ++k) {
        const Input& input = in_.capSteps[k];
        labels.push_back(k + 1 == n ? sayClosing(input.id, g_.stepLength[k]) : say(input, g_.stepLength[k]));
        sources.push_back(input.id);
        marks.push_back(g_.stepLength[k].mark);
    }
    chain(s, g_.stepX, lowest, lowest - 1.2 * line_, labels, sources, marks);
}

void Builder::developedWingwalls(Scene& s) {
    const double L = g_.length.v, gap = 2 * line_;
    // Each caption on one line where half the cap's length holds it, else on two.
    std::string captions[] = {"Left wingwall, unfolded", "Right wingwall, unfolded"};
    for (auto& c : captions)
        if (widthOf(c) > L / 2 - line_) c.replace(c.find(", ") + 1, 1, "\n");
    // The right one keeps clear of the left one.
    const double leftLength = g_.left->length.v, rightLength = g_.right->length.v;
    const double rightStart = std::max(L - rightLength, leftLength + gap);
    for (const Wingwall* w : {&*g_.left, &*g_.right}) {
        const bool left = w == &*g_.left;
        const double Lw = w->length.v;
        const double dir = left ? -1 : 1;
        const double x0 = left ? Lw : rightStart, x1 = x0 + dir * Lw;
        const double base = left ? g_.bottomLeft.v : g_.bottomRight.v;
        const bool level = left ? in_.leftLevel : in_.rightLevel;
        const Input& front =
            level ? (left ? in_.leftTop : in_.rightTop) : (left ? in_.leftFrontTop : in_.rightFrontTop);
        const Input& back = level ? front : (left ? in_.leftEndTop : in_.rightEndTop);
        Shape& wall = s.polyline({{x0, base}, {x0, w->frontTop.v}, {x1, w->endTop.v}, {x1, base}}, true, outline());
        wall.fill = kDarker;
        tagged(wall, in_.wingwallLength.id, w->length.mark, kOutline);
        const Point a{x0, w->frontTop.v}, b{x1, w->endTop.v}, mid = (a + b) * 0.5;
        tagged(s.line(a, mid, outline(0.5)), front.id, w->frontTop.mark, kOutline);
        tagged(s.line(mid, b, outline(0.5)), back.id, w->endTop.mark, kOutline);
        // Under the wall, or from its outer end inward where the wall is shorter than the caption.
        const std::string& caption = captions[left ? 0 : 1];
        const bool centred = widthOf(caption) <= Lw;
        text(s, {centred ? (x0 + x1) / 2 : x1, base - 0.3 * line_}, caption, in_.wingwallLength.id, w->length.mark,
             centred ? HAlign::Center
             : left  ? HAlign::Left
                     : HAlign::Right,
             VAlign::Top);
        if (!on(kWingwallTops)) continue;
        // The elevations stand above the top, as the steps' do: the one of a level top at
        // its middle, those of a sloped top at its two ends, each clear of the slope.
        const double above = 0.25 * line_;
        if (level) {
            text(s, {(x0 + x1) / 2, std::max(a.y, b.y) + above}, say(front, w->frontTop), front.id, w->frontTop.mark,
                 HAlign::Center, VAlign::Bottom);
            continue;
        }
        auto topAlong = [&](double x) {
            x = std::clamp(x, std::min(x0, x1), std::max(x0, x1));
            return a.y + (b.y - a.y) * (x - x0) / (x1 - x0);
        };
        const std::string tf = say(front, w->frontTop), te = say(back, w->endTop);
        if (!prompts()) {
            // Values over the two halves of the top where each fits its half, else upright above it.
            const double lo = std::min(x0, x1), hi = std::max(x0, x1), mid = (lo + hi) / 2;
            const Callout f{a, tf, front.id, w->frontTop.mark, left ? mid : lo, left ? hi : mid};
            const Callout e{b, te, back.id, w->endTop.mark, left ? lo : mid, left ? mid : hi};
            callouts(s, {f, e}, std::max(a.y, b.y), 1, false);
            continue;
        }
        const double fw = widthOf(tf);
        text(s, {x0, std::max(a.y, topAlong(x0 + dir * fw)) + above}, tf, front.id, w->frontTop.mark,
             left ? HAlign::Right : HAlign::Left, VAlign::Bottom);
        // Two prompts do not fit side by side over the wall: the end's stands past the end.
        text(s, {x1 + dir * above, b.y}, te, back.id, w->endTop.mark, left ? HAlign::Right : HAlign::Left,
             VAlign::Bottom);
    }
}

void Builder::backwall(Scene& s) {
    const double L = g_.length.v, we = g_.postWidth.v;
    const double left = topAt(we * 0.5), right = topAt(L - we * 0.5);
    struct Post {
        double x0, base;
        const Value* top;
        const Input* input;
    };
    for (const auto& [x0, base, top, input] : {Post{0.0, left, &g_.leftPostTop, &in_.leftEndPostTop},
                                               Post{L - we, right, &g_.rightPostTop, &in_.rightEndPostTop}}) {
        Shape& post = s.polyline({{x0, base}, {x0 + we, base}, {x0 + we, top->v}, {x0, top->v}}, true, outline());
        post.fill = kDarker;
        tagged(post, input->id, top->mark, kOutline);
        // A sketch names the top beside the post, outside the cap, where the extension
        // lines of the width above the post leave it room; values stand with the steps'.
        if (on(kBackwallTops) && prompts()) {
            const bool leftPost = x0 == 0.0;
            text(s, {leftPost ? x0 - 0.3 * line_ : x0 + we + 0.3 * line_, top->v}, say(*input, *top), input->id,
                 top->mark, leftPost ? HAlign::Right : HAlign::Left, VAlign::Top);
        }
        // Among the tops' labels a post's width has no room of its own: a value goes to the notes.
        if (on(kEndPosts) && x0 == 0.0 && !noted("End post width", in_.endPostWidth, g_.postWidth, !prompts()))
            dimension(s, {x0, top->v}, {x0 + we, top->v}, 0.75 * line_, say(in_.endPostWidth, g_.postWidth),
                      in_.endPostWidth.id, g_.postWidth.mark);
        else if (on(kEndPosts) && prompts())
            dimension(s, {x0, top->v}, {x0 + we, top->v}, 0.75 * line_, say(in_.endPostWidth, g_.postWidth),
                      in_.endPostWidth.id, g_.postWidth.mark);
    }
    // The backwall stands on the cap between the end posts; its bottom follows the steps.
    std::vector<Point> wall = {{we, g_.backwallLeftTop.v},
                               {L / 2, g_.backwallCenterTop.v},
                               {L - we, g_.backwallRightTop.v},
                               {L - we, topAt(L - we)}};
    for (std::size_t k = g_.stepTop.size(); k-- > 0;) {
        const double x0 = std::max(we, g_.stepX[k]), x1 = std::min(L - we, g_.stepX[k + 1]);
        if (x1 <= x0) continue;
        wall.push_back({x1, g_.stepTop[k].v});
        wall.push_back({x0, g_.stepTop[k].v});
    }
    Shape& body = s.polyline(wall, true, outline());
    body.fill = Color{244, 244, 244};
    tagged(body, in_.backwallCenterTop.id, g_.backwallCenterTop.mark, kOutline);
    const Point a{we, g_.backwallLeftTop.v}, c{L / 2, g_.backwallCenterTop.v}, b{L - we, g_.backwallRightTop.v};
    tagged(s.line(a, c, outline(0.5)), in_.backwallLeftTop.id, g_.backwallLeftTop.mark, kOutline);
    tagged(s.line(c, b, outline(0.5)), in_.backwallRightTop.id, g_.backwallRightTop.mark, kOutline);
    tagged(s.line(c, {c.x, c.y - 0.6 * line_}, centerline()), in_.backwallCenterTop.id, g_.backwallCenterTop.mark,
           kCenterlines);
    if (!on(kBackwallTops) || !prompts()) return;
    // A sketch's prompts hang inside the backwall when it is tall enough to hold them above
    // the steps' labels, else they stand on its top; values stand with the steps'.
    double lowest = 1e9;
    for (const Point& p : {a, c, b})
        lowest = std::min(lowest, p.y - topAt(p.x));
    const bool inside = lowest >= 3 * line_ || prompts();
    const double inset = 0.3 * line_;
    struct Top {
        Point at;
        const Input* input;
        const Value* value;
        HAlign h;
    };
    const Top tops[] = {
        {{a.x + inset, a.y}, &in_.backwallLeftTop, &g_.backwallLeftTop, HAlign::Left},
        {{c.x, c.y - (inside ? 0.6 * line_ : 0)}, &in_.backwallCenterTop, &g_.backwallCenterTop, HAlign::Center},
        {{b.x - inset, b.y}, &in_.backwallRightTop, &g_.backwallRightTop, HAlign::Right}};
    for (const auto& [at, input, value, h] : tops) {
        if (value->mark == Mark::Placeholder && !prompts()) continue;
        text(s, {at.x, at.y + (inside ? -inset : inset)}, say(*input, *value), input->id, value->mark, h,
             inside ? VAlign::Top : VAlign::Bottom);
    }
}

} // namespace tw::drawing::build
