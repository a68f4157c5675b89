// SPDX-License-Identifier: Apache-2.0
// How the drawing of a bent is built: one builder for the plan, the
// elevation and the title block, laid out for one scale. Its parts live in
// files by what they draw (the annotations, the plan, the elevation, the
// title block); this header is theirs alone.
#pragma once

#include "core/drawing/BentGeometry.h"
#include "core/drawing/DrawOptions.h"
#include "core/drawing/Labels.h"
#include "core/drawing/PointMath.h"
#include "core/drawing/Scene.h"

#include <string>
#include <vector>

namespace tw::drawing::build {

inline constexpr double kArrowPt = 7;         // the painter's arrowheads
inline constexpr std::size_t kWrap = 24;      // characters a line of a prompt
inline constexpr std::size_t kTitleLines = 3; // a line of the title block that runs longer is cut short

inline constexpr Color kInk{0, 0, 0};
inline constexpr Color kConcrete{232, 232, 232};
inline constexpr Color kDarker{200, 200, 200};
inline constexpr Color kCenterInk{0, 84, 160};
inline constexpr Color kDimInk{60, 60, 60};

inline Pen outline(double width = 0.35) { return {kInk, width, LineStyle::Solid}; }
inline Pen centerline() { return {kCenterInk, 0, LineStyle::Center}; }
inline Pen thin() { return {kDimInk, 0, LineStyle::Solid}; }

// The less trusted of two marks.
Mark worse(Mark a, Mark b);

// Greedy word wrap; a prompt reads better on a few short lines.
std::string wrap(const std::string& text, std::size_t width);

// Positions as near to the wanted ones (ascending) as they can be, in their
// order, at least `pitch` apart.
std::vector<double> spreadOut(const std::vector<double>& wanted, double pitch);

// The input a shape shows, by its control name; none for notes.
struct Src {
    std::string name;
    Src() = default;
    Src(const CtlId& id) : name(toString(id)) {} // NOLINT(google-explicit-constructor)
};

// A label of a row: what it names, and the room along the row it may take in place.
struct Callout {
    Point target;
    std::string text;
    Src source;
    Mark mark = Mark::Normal;
    double slotLo = 0, slotHi = 0;
};

class Builder {
  public:
    // With `place`, the labels are placed clear of everything; without, the
    // drawing is only being sized and keeps room for each label where it is drawn.
    Builder(const BentInputs& in, const BentGeometry& g, const DrawOptions& o, double feetPerPoint,
            bool compact = false, bool place = true)
        : in_(in), g_(g), o_(o), compact_(compact), place_(place), pt_(feetPerPoint), em_(o.textPt * feetPerPoint),
          line_(o.textPt * kLineSpacing * feetPerPoint) {}
    Scene build();
    // Labels that had to go to a leader.
    int leaders() const { return leaders_; }

  private:
    static void append(Scene& to, Scene&& from, Point shift);
    // The labels of a finished part placed, or room kept for them.
    void settle(Scene& s);
    // The plan above the elevation, or beside it when that gives the view a larger drawing.
    void arrange(Scene& scene, Scene&& plan, Scene&& elevation) const;
    bool on(unsigned topic) const { return (o_.topics & topic) != 0; }
    bool prompts() const { return o_.labels == Labels::Prompts; }
    double ems(double points) const { return points * pt_; }
    // What a label says: the input's text as the form shows it, "?" for a
    // value not entered, or the input's prompt.
    std::string say(const Input& input, const Value& v) const;
    std::string sayAngle(const AngleInput& a, const Value& v) const;
    // A closing value as the form computes and shows it.
    std::string sayClosing(const CtlId& id, const Value& v) const;
    double widthOf(const std::string& s, double sizePt) const { return textWidthEm(s) * sizePt * pt_; }
    double widthOf(const std::string& s) const { return widthOf(s, o_.textPt); }
    double heightOf(const std::string& s) const { return (lineCount(s) * kLineSpacing) * em_; }
    Shape& text(Scene& s, Point at, const std::string& t, const Src& source, Mark mark, HAlign h = HAlign::Left,
                VAlign v = VAlign::Baseline, double angle = 0, double sizePt = 0);
    Shape& tagged(Shape& s, const Src& source, Mark mark, int level);
    // A label beside a line through `at` with direction `u`, on the side `away`
    // points to, `gap` feet from the line: along the line when `along`, else across it.
    Shape& labelBeside(Scene& s, Point at, Point u, Point away, double gap, const std::string& t, const Src& source,
                       Mark mark, bool along);
    // A dimension from a to b, its line `offset` feet to the left of a->b. The
    // label runs along the line when it fits between the arrows, else across it.
    // Returns how far beyond the line the label reaches.
    double dimension(Scene& s, Point a, Point b, double offset, const std::string& label, const Src& source, Mark mark,
                     bool across = false);
    // Dimensions end to end along a row: from xs[i] to xs[i+1] at height `at`,
    // their line at `row`. Their labels run along the lines where every one fits
    // between its arrows, else they stand across the row below (see `callouts`).
    // Returns the lowest point the row's labels reach.
    double chain(Scene& s, const std::vector<double>& xs, double at, double row, const std::vector<std::string>& labels,
                 const std::vector<CtlId>& sources, const std::vector<Mark>& marks);
    // Labels of a row on the side `dir` (+1 up, -1 down) of the level `base`:
    // level, each at what it names, where `level` and each fits its room; else
    // upright side by side, spread along the row where they crowd and then
    // tied to what they name. Returns the furthest level the labels reach.
    double callouts(Scene& s, std::vector<Callout> items, double base, double dir, bool level);
    void pile(Scene& s, Point c, Point u, const CtlId& source, Mark mark);
    void plan(Scene& s);
    // The label of each beam's angle: every beam when they differ, the first one when they are all alike.
    std::vector<bool> angleLabelled() const;
    const AngleInput& angleInput(std::size_t i) const {
        return in_.anglesAlike ? in_.beamAngles[0] : in_.beamAngles[i];
    }
    // The beams' numbers in their circles above the ends of the centerlines, spread
    // out and tied to them where they crowd; returns the top of the highest.
    double beamNumbers(Scene& s, const std::vector<Point>& ends);
    void beams(Scene& s);
    void battered(Scene& s);
    void wingwalls(Scene& s);
    // Each wingwall's angle, along it past its end.
    void wingwallAngles(Scene& s);
    // Where that label starts, and its length.
    std::pair<Point, double> wingwallAngleAt(const Wingwall& w) const;
    // The dimensions of a row of distances across the cap, the last one closing to its right end.
    double spacingChain(Scene& s, const std::vector<Value>& spacing, const std::vector<Value>& positions,
                        const Input* inputs, std::size_t closingItem, double at, double row);
    // A value that a dimension beside the plan would show; in a narrow view it
    // goes to the notes under the drawing instead.
    bool noted(const std::string& what, const Input& input, const Value& v, bool crowded);
    void planDimensions(Scene& s);
    // The top of the cap at `x`.
    double topAt(double x) const;
    void elevation(Scene& s);
    // The cap: its bottom, then its stepped top from the right end back to the left.
    void capElevation(Scene& s);
    // Step elevations above each step; turned upright when they crowd.
    void stepElevations(Scene& s);
    // The bottom's elevations under its ends, or where the program works it out a note
    // saying so; returns how far down the cap and these labels reach.
    double bottomElevations(Scene& s);
    // The minimum depth, measured down from the lowest step.
    void minimumDepth(Scene& s);
    // The lengths of the cap steps, in a row of dimensions at `lowest` and below.
    void capSteps(Scene& s, double lowest);
    // Each wingwall as if unfolded from its end of the cap and moved in under it: the
    // front face of the cap on the inside, the end of the wingwall on the outside.
    void developedWingwalls(Scene& s);
    void backwall(Scene& s);
    // How many ems of text at `sizePt` a line of the title block holds: as wide as
    // the view, or where the view is not known, as the drawing.
    double titleRoomEm(const Box& drawn, double sizePt) const;
    double titleRoomPt(const Box& drawn) const;
    // The title block under the drawing: the bent type and the bent, the project's
    // lines (each cut short after a few lines), the notes and the problems.
    void title(Scene& scene);
    // The units the lengths read in and a bar of a round length, under the drawing.
    void legend(Scene& scene);
    struct Note {
        std::string text;
        Src source;
        Mark mark;
    };
    const BentInputs& in_;
    const BentGeometry& g_;
    const DrawOptions& o_;
    bool compact_ = false;
    bool place_ = true;
    int leaders_ = 0;
    std::vector<Note> notes_;
    double pt_;   // feet a point
    double em_;   // the text size in feet
    double line_; // a line of text in feet
};

} // namespace tw::drawing::build
