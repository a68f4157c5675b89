// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/BentDrawing.h"

#include "core/drawing/Prompts.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tw::drawing {

namespace {

constexpr double kArrowPt = 7;         // the painter's arrowheads
constexpr std::size_t kWrap = 24;      // characters a line of a prompt
constexpr std::size_t kTitleLines = 3; // a line of the title block that runs longer is cut short

const Color kInk{0, 0, 0};
const Color kConcrete{232, 232, 232};
const Color kDarker{200, 200, 200};
const Color kCenterInk{0, 84, 160};
const Color kDimInk{60, 60, 60};

Pen outline(double width = 0.35) { return {kInk, width, LineStyle::Solid}; }
Pen centerline() { return {kCenterInk, 0, LineStyle::Center}; }
Pen thin() { return {kDimInk, 0, LineStyle::Solid}; }

Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
Point operator*(Point a, double k) { return {a.x * k, a.y * k}; }
double length(Point a) { return std::hypot(a.x, a.y); }
Point unitOf(Point a) {
    const double l = length(a);
    return l > 0 ? a * (1 / l) : Point{1, 0};
}
Point leftNormal(Point u) { return {-u.y, u.x}; }
double degreesOf(Point u) { return std::atan2(u.y, u.x) * 180 / std::numbers::pi; }

Mark worse(Mark a, Mark b) {
    if (a == Mark::Error || b == Mark::Error) return Mark::Error;
    if (a == Mark::Placeholder || b == Mark::Placeholder) return Mark::Placeholder;
    return Mark::Normal;
}

// Greedy word wrap; a prompt reads better on a few short lines.
std::string wrap(const std::string& text, std::size_t width) {
    std::string out, line;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t blank = text.find(' ', start);
        if (blank == std::string::npos) blank = text.size();
        const std::string word = text.substr(start, blank - start);
        if (!line.empty() && line.size() + 1 + word.size() > width) {
            out += (out.empty() ? "" : "\n") + line;
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
        start = blank + 1;
    }
    if (!line.empty()) out += (out.empty() ? "" : "\n") + line;
    return out;
}

// The input a shape shows, by its control name; none for notes.
struct Src {
    std::string name;
    Src() = default;
    Src(const CtlId& id) : name(toString(id)) {} // NOLINT(google-explicit-constructor)
};

int lineCount(const std::string& text) { return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

class Builder {
  public:
    Builder(const BentInputs& in, const BentGeometry& g, const DrawOptions& o, double feetPerPoint,
            bool compact = false)
        : in_(in), g_(g), o_(o), compact_(compact), pt_(feetPerPoint), em_(o.textPt * feetPerPoint),
          line_(o.textPt * kLineSpacing * feetPerPoint) {}

    Scene build() {
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

  private:
    static void append(Scene& to, Scene&& from, Point shift) {
        for (auto& s : from.shapes) {
            for (auto& p : s.points)
                p = p + shift;
            s.center = s.center + shift;
            to.shapes.push_back(std::move(s));
        }
    }

    // The plan above the elevation, or beside it when that gives the view a larger drawing.
    void arrange(Scene& scene, Scene&& plan, Scene&& elevation) const {
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

    bool on(unsigned topic) const { return (o_.topics & topic) != 0; }
    bool prompts() const { return o_.labels == Labels::Prompts; }
    double ems(double points) const { return points * pt_; }

    // ---- labels ----

    // What a label says: the input's text as the form shows it, "?" for a
    // value not entered, or the input's prompt.
    std::string say(const Input& input, const Value& v) const {
        if (prompts()) return wrap(promptOf(input.id, in_), kWrap);
        if (v.mark == Mark::Placeholder) return "?";
        return trim(input.text);
    }
    std::string sayAngle(const AngleInput& a, const Value& v) const {
        if (prompts()) return wrap(promptOf(a.degrees.id, in_), kWrap);
        return v.mark == Mark::Placeholder ? "?" : a.text();
    }
    // A closing value as the form computes and shows it.
    std::string sayClosing(const CtlId& id, const Value& v) const {
        if (prompts()) return wrap(promptOf(id, in_), kWrap);
        if (v.mark == Mark::Placeholder) return "?";
        return formatField(4, 4, singleToText(static_cast<float>(v.v)));
    }

    double widthOf(const std::string& s, double sizePt) const { return textWidthEm(s) * sizePt * pt_; }
    double widthOf(const std::string& s) const { return widthOf(s, o_.textPt); }
    double heightOf(const std::string& s) const { return (lineCount(s) * kLineSpacing) * em_; }

    Shape& text(Scene& s, Point at, const std::string& t, const Src& source, Mark mark, HAlign h = HAlign::Left,
                VAlign v = VAlign::Baseline, double angle = 0, double sizePt = 0) {
        if (sizePt <= 0) sizePt = o_.textPt;
        // The painter stacks further lines below the first; a block meant to
        // end at the anchor, or to centre on it, starts higher.
        const double extra = (lineCount(t) - 1) * kLineSpacing * sizePt * pt_;
        const double rise = v == VAlign::Bottom ? extra : v == VAlign::Middle ? extra / 2 : 0;
        const double a = angle * std::numbers::pi / 180;
        at = at + Point{-std::sin(a), std::cos(a)} * rise;
        Shape& shape = s.text(at, t, sizePt, h, v);
        shape.angle = angle;
        shape.source = source.name;
        shape.mark = mark;
        shape.level = kDimensions;
        shape.pen.color = kInk;
        return shape;
    }

    Shape& tagged(Shape& s, const Src& source, Mark mark, int level) {
        s.source = source.name;
        s.mark = mark;
        s.level = level;
        return s;
    }

    // A label beside a line through `at` with direction `u`, on the side `away`
    // points to, `gap` feet from the line: along the line when `along`, else across it.
    void labelBeside(Scene& s, Point at, Point u, Point away, double gap, const std::string& t, const Src& source,
                     Mark mark, bool along) {
        double angle = degreesOf(u);
        if (!along) angle += 90;
        while (angle > 90.5)
            angle -= 180;
        while (angle <= -89.5)
            angle += 180;
        const double a = angle * std::numbers::pi / 180;
        const Point dir{std::cos(a), std::sin(a)}, up = leftNormal(dir);
        const Point base = at + away * gap;
        if (along) {
            const bool upwards = up.x * away.x + up.y * away.y > 0;
            text(s, base, t, source, mark, HAlign::Center, upwards ? VAlign::Bottom : VAlign::Top, angle);
        } else {
            const bool forwards = dir.x * away.x + dir.y * away.y > 0;
            text(s, base, t, source, mark, forwards ? HAlign::Left : HAlign::Right, VAlign::Middle, angle);
        }
    }

    // A dimension from a to b, its line `offset` feet to the left of a->b. The
    // label runs along the line when it fits between the arrows, else across it.
    // Returns how far beyond the line the label reaches.
    double dimension(Scene& s, Point a, Point b, double offset, const std::string& label, const Src& source, Mark mark,
                     bool across = false) {
        const Point u = unitOf(b - a), n = leftNormal(u) * (offset < 0 ? -1.0 : 1.0);
        const double len = length(b - a);
        const bool oneLine = label.find('\n') == std::string::npos;
        const bool fits = widthOf(label) + 2 * ems(kArrowPt) <= len;
        Shape& d = s.dimension(a, b, offset, "");
        tagged(d, source, mark, kDimensions);
        d.pen = thin();
        d.height = o_.textPt;
        const Point mid = (a + b) * 0.5 + leftNormal(u) * offset;
        const double gap = ems(kLabelGapPt);
        if (fits && !across && oneLine) {
            d.text = label;
            return gap + heightOf(label);
        }
        if (fits && !across) {
            labelBeside(s, mid, u, n, gap, label, source, mark, true);
            return gap + heightOf(label);
        }
        // Clear of the extension lines' overshoot.
        const double clear = gap + ems(4);
        labelBeside(s, mid, u, n, clear, label, source, mark, false);
        return clear + widthOf(label);
    }

    // Dimensions end to end along a row: from xs[i] to xs[i+1] at height `at`,
    // their line at `row`. All labels turn across the row when one does not fit.
    // Returns the lowest point the row's labels reach.
    double chain(Scene& s, const std::vector<double>& xs, double at, double row, const std::vector<std::string>& labels,
                 const std::vector<CtlId>& sources, const std::vector<Mark>& marks) {
        bool across = false;
        for (std::size_t i = 0; i + 1 < xs.size(); ++i)
            across = across || (lineCount(labels[i]) == 1 &&
                                widthOf(labels[i]) + 2 * ems(kArrowPt) > std::abs(xs[i + 1] - xs[i]));
        double reach = 0;
        for (std::size_t i = 0; i + 1 < xs.size(); ++i) {
            // The offset is to the left of the direction measured: a distance that runs
            // backwards (a negative closing distance) keeps its line in the row all the same.
            const double offset = (row - at) * (xs[i + 1] < xs[i] ? -1 : 1);
            reach = std::max(
                reach, dimension(s, {xs[i], at}, {xs[i + 1], at}, offset, labels[i], sources[i], marks[i], across));
        }
        return row - reach;
    }

    // ---- plan ----

    void pile(Scene& s, Point c, Point u, const CtlId& source, Mark mark) {
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
            shape = &s.polyline({c + u * -half + v * -half, c + u * half + v * -half, c + u * half + v * half,
                                 c + u * -half + v * half},
                                true, outline(0.25));
        }
        shape->fill = Color{150, 150, 150};
        tagged(*shape, source, mark, kOutline);
    }

    void plan(Scene& s) {
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

    // The label of each beam's angle: every beam when they differ, the first one when they are all alike.
    std::vector<bool> angleLabelled() const {
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
    const AngleInput& angleInput(std::size_t i) const {
        return in_.anglesAlike ? in_.beamAngles[0] : in_.beamAngles[i];
    }

    // Where the beam centerlines end behind the cap and their numbers stand.
    struct BeamEnds {
        double back;          // the centerlines run at least this far back
        double radius;        // of a number's circle
        std::vector<int> row; // numbers too close for one row stand a row or more further back
        double top;           // above every number
        double reach(std::size_t i) const { return back + row[i] * 2.2 * radius; }
    };
    BeamEnds beamEnds() const {
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

    void beams(Scene& s) {
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

    void battered(Scene& s) {
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

    void wingwalls(Scene& s) {
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
                tagged(s.line(w->end, start, {kDimInk, 0, LineStyle::Dotted}), a.degrees.id, w->angle.mark,
                       kDimensions);
            labelBeside(s, start + w->direction * (widthOf(t) / 2), w->direction, leftNormal(w->direction), 0, t,
                        a.degrees.id, w->angle.mark, true);
        }
    }

    // The dimensions of a row of distances across the cap, the last one closing to its right end.
    double spacingChain(Scene& s, const std::vector<Value>& spacing, const std::vector<Value>& positions,
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

    // A value that a dimension beside the plan would show; in a narrow view it
    // goes to the notes under the drawing instead.
    bool noted(const std::string& what, const Input& input, const Value& v, bool crowded) {
        if (!crowded) return false;
        notes_.push_back({prompts() ? promptOf(input.id, in_) : what + " " + say(input, v), input.id, v.mark});
        return true;
    }

    void planDimensions(Scene& s) {
        const double L = g_.length.v, W = g_.width.v, d = g_.bearing.v;
        const bool end = isEndBent(*in_.type);
        const double step = 2.2 * line_;

        // Across the front: beam spacings, battered pile spacings, the cap length.
        double row = -line_ - 1.2 * line_;
        if (on(kBeamSpacing))
            row = spacingChain(s, g_.spacing, g_.beamX, in_.centerlines.data(), 20, d, row) - step + line_;
        if (on(kBatteredPiles) && !g_.batteredX.empty())
            row = spacingChain(s, g_.batteredSpacing, g_.batteredX, in_.batterSpacing.data(), 6, W / 2, row) - step +
                  line_;
        if (on(kCapLength))
            dimension(s, {0, 0}, {L, 0}, row, say(in_.capLength, g_.length), in_.capLength.id, g_.length.mark);

        // The right end: the cap width, then the end post's length.
        double right = 1.5 * line_;
        if (on(kCapWidth) && !noted("Cap width", in_.capWidth, g_.width, compact_))
            right += dimension(s, {L, 0}, {L, W}, -right, say(in_.capWidth, g_.width), in_.capWidth.id, g_.width.mark) +
                     line_;
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

    // ---- elevation ----

    // The top of the cap at `x`.
    double topAt(double x) const {
        for (std::size_t k = 0; k < g_.stepTop.size(); ++k)
            if (x <= g_.stepX[k + 1]) return g_.stepTop[k].v;
        return g_.stepTop.back().v;
    }

    void elevation(Scene& s) {
        capElevation(s);
        if (g_.endPosts) backwall(s);
        if (on(kStepElevations)) stepElevations(s);
        const double lowest = bottomElevations(s);
        if (on(kMinDepth) && (g_.bottomComputed || prompts()) &&
            !noted("Minimum cap depth", in_.capDepth, g_.depth, g_.depth.v < 1.4 * line_))
            minimumDepth(s);
        // Measured below the bottom's labels, so no extension line crosses them.
        if (on(kCapSteps)) capSteps(s, lowest);
        placeLabels(s, pt_);

        // The wingwalls unfolded below, each under its end of the cap (in a sketch, the one about them).
        if (isEndBent(*in_.type) && (!prompts() || on(kWingwallTops))) {
            Scene wings;
            developedWingwalls(wings);
            placeLabels(wings, pt_);
            const Box above = s.bounds(), own = wings.bounds();
            append(s, std::move(wings), {0, above.minY - 1.5 * line_ - own.maxY});
        }
    }

    // The cap: its bottom, then its stepped top from the right end back to the left.
    void capElevation(Scene& s) {
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

    // Step elevations above each step; turned upright when they crowd.
    void stepElevations(Scene& s) {
        const std::size_t n = g_.stepTop.size();
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
    }

    // The bottom's elevations under its ends, or where the program works it out a note
    // saying so; returns how far down the cap and these labels reach.
    double bottomElevations(Scene& s) {
        const double L = g_.length.v, bl = g_.bottomLeft.v, br = g_.bottomRight.v;
        double lowest = std::min(bl, br);
        if (!on(kBottom)) return lowest;
        if (g_.bottomComputed && !prompts()) {
            const std::string note = "Bottom of cap computed by the program";
            text(s, {L / 2, lowest - 0.3 * line_}, note, in_.bottomLeft.id, Mark::Placeholder, HAlign::Center,
                 VAlign::Top);
            return lowest - (0.3 * line_ + heightOf(note));
        }
        const std::string l = say(in_.bottomLeft, g_.bottomLeft), r = say(in_.bottomRight, g_.bottomRight);
        text(s, {0.3 * line_, bl - 0.3 * line_}, l, in_.bottomLeft.id, g_.bottomLeft.mark, HAlign::Left, VAlign::Top);
        text(s, {L - 0.3 * line_, br - 0.3 * line_}, r, in_.bottomRight.id, g_.bottomRight.mark, HAlign::Right,
             VAlign::Top);
        return lowest - (0.3 * line_ + std::max(heightOf(l), heightOf(r)));
    }

    // The minimum depth, measured down from the lowest step.
    void minimumDepth(Scene& s) {
        const std::size_t n = g_.stepTop.size();
        std::size_t k = 0;
        for (std::size_t i = 1; i < n; ++i)
            if (g_.stepTop[i].v < g_.stepTop[k].v) k = i;
        const double x = g_.stepX[k] + std::min(1.5 * line_, (g_.stepX[k + 1] - g_.stepX[k]) / 2);
        const double top = g_.stepTop[k].v;
        dimension(s, {x, top}, {x, top - g_.depth.v}, 0, say(in_.capDepth, g_.depth), in_.capDepth.id, g_.depth.mark,
                  true);
    }

    // The lengths of the cap steps, in a row of dimensions at `lowest` and below.
    void capSteps(Scene& s, double lowest) {
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

    // Each wingwall as if unfolded from its end of the cap and moved in under it: the
    // front face of the cap on the inside, the end of the wingwall on the outside.
    void developedWingwalls(Scene& s) {
        const double L = g_.length.v, gap = 2 * line_;
        const std::string captions[] = {"Left wingwall, unfolded", "Right wingwall, unfolded"};
        // The right one keeps clear of the left one and of its caption.
        const double leftLength = g_.left->length.v, rightLength = g_.right->length.v;
        const double rightStart =
            std::max({L - rightLength, leftLength + gap,
                      leftLength / 2 + (widthOf(captions[0]) + widthOf(captions[1])) / 2 + line_ - rightLength / 2});
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
            text(s, {(x0 + x1) / 2, base - 0.3 * line_}, captions[left ? 0 : 1], in_.wingwallLength.id, w->length.mark,
                 HAlign::Center, VAlign::Top);
            if (!on(kWingwallTops)) continue;
            // The elevations stand above the top, as the steps' do: the one of a level top at
            // its middle, those of a sloped top at its two ends, each clear of the slope.
            const double above = 0.25 * line_;
            if (level) {
                text(s, {(x0 + x1) / 2, std::max(a.y, b.y) + above}, say(front, w->frontTop), front.id,
                     w->frontTop.mark, HAlign::Center, VAlign::Bottom);
                continue;
            }
            auto topAlong = [&](double x) {
                x = std::clamp(x, std::min(x0, x1), std::max(x0, x1));
                return a.y + (b.y - a.y) * (x - x0) / (x1 - x0);
            };
            const std::string tf = say(front, w->frontTop), te = say(back, w->endTop);
            const double fw = widthOf(tf), ew = widthOf(te);
            text(s, {x0, std::max(a.y, topAlong(x0 + dir * fw)) + above}, tf, front.id, w->frontTop.mark,
                 left ? HAlign::Right : HAlign::Left, VAlign::Bottom);
            // Two prompts do not fit side by side over the wall: the end's stands past the end.
            if (prompts())
                text(s, {x1 + dir * above, b.y}, te, back.id, w->endTop.mark, left ? HAlign::Right : HAlign::Left,
                     VAlign::Bottom);
            else
                text(s, {x1, std::max(b.y, topAlong(x1 - dir * ew)) + above}, te, back.id, w->endTop.mark,
                     left ? HAlign::Left : HAlign::Right, VAlign::Bottom);
        }
    }

    void backwall(Scene& s) {
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
            // A top not entered yet shows by its dashed outline; a "?" there would only crowd the steps'.
            // The top stands beside the post, outside the cap, where the extension lines of
            // the width above the post leave it room.
            if (on(kBackwallTops) && (top->mark != Mark::Placeholder || prompts())) {
                const bool leftPost = x0 == 0.0;
                text(s, {leftPost ? x0 - 0.3 * line_ : x0 + we + 0.3 * line_, top->v}, say(*input, *top), input->id,
                     top->mark, leftPost ? HAlign::Right : HAlign::Left, VAlign::Top);
            }
            if (on(kEndPosts))
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
        if (!on(kBackwallTops)) return;
        // The labels hang inside the backwall when it is tall enough to hold them above the
        // steps' labels, else they stand on its top.
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

    // ---- title block ----

    // How many ems of text at `sizePt` a line of the title block holds: as wide as
    // the view, or where the view is not known, as the drawing.
    double titleRoomEm(const Box& drawn, double sizePt) const {
        const double widthPt = o_.viewWidthPt > 0 ? o_.viewWidthPt : std::max(40 * o_.textPt, drawn.width() / pt_);
        return widthPt / sizePt;
    }

    // The title block under the drawing: the bent type and the bent, the project's
    // lines (each cut short after a few lines), the notes and the problems.
    void title(Scene& scene) {
        const Box drawn = scene.bounds();
        Scene s;
        const double top = drawn.empty ? 0 : drawn.minY - line_;
        const double x0 = drawn.empty ? 0 : drawn.minX, x1 = drawn.empty ? 0 : drawn.maxX;
        tagged(s.line({x0, top}, {x1, top}, thin()), {}, Mark::Normal, kNotes);
        const double headPt = o_.textPt + 2;
        std::string lines;
        for (const auto& l : in_.projectInfo)
            if (!trim(l).empty())
                lines += (lines.empty() ? "" : "\n") + fitText(trim(l), titleRoomEm(drawn, o_.textPt), kTitleLines);
        const std::string head =
            fitText(in_.typeText + "  \xE2\x80\x94  " + (o_.heading.empty() ? in_.bentLabel : o_.heading),
                    titleRoomEm(drawn, headPt), kTitleLines);
        double y = top - 0.4 * line_;
        text(s, {x0, y}, head, {}, Mark::Normal, HAlign::Left, VAlign::Top, 0, headPt).level = kNotes;
        y -= lineCount(head) * headPt * kLineSpacing * pt_ + 0.2 * line_;
        if (!lines.empty()) {
            text(s, {x0, y}, lines, {}, Mark::Normal, HAlign::Left, VAlign::Top).level = kNotes;
            y -= heightOf(lines) + 0.2 * line_;
        }
        // Notes flow along the lines the view leaves them.
        double x = x0;
        const double room = o_.viewWidthPt > 0 ? o_.viewWidthPt * pt_ : 1e9;
        for (const auto& n : notes_) {
            const double w = widthOf(n.text);
            if (x > x0 && x - x0 + w > room) {
                x = x0;
                y -= line_;
            }
            text(s, {x, y}, n.text, n.source, n.mark, HAlign::Left, VAlign::Top).level = kNotes;
            x += w + widthOf(n.text.back() == ',' ? " " : "   ");
        }
        if (!notes_.empty()) y -= line_ + 0.2 * line_;
        if (on(kProblems) && !g_.problems.empty()) {
            std::string problems;
            for (const auto& p : g_.problems)
                problems += (problems.empty() ? "" : "\n") + fitText(p, titleRoomEm(drawn, o_.textPt));
            text(s, {x0, y}, problems, {}, Mark::Error, HAlign::Left, VAlign::Top).level = kNotes;
        }
        placeLabels(s, pt_);
        append(scene, std::move(s), {0, 0});
    }

    struct Note {
        std::string text;
        Src source;
        Mark mark;
    };

    const BentInputs& in_;
    const BentGeometry& g_;
    const DrawOptions& o_;
    bool compact_ = false;
    std::vector<Note> notes_;
    double pt_;   // feet a point
    double em_;   // the text size in feet
    double line_; // a line of text in feet
};

} // namespace

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
