// SPDX-License-Identifier: Apache-2.0
// The drawing of a bent: the plan and the elevation of its geometry with
// dimensions and labels, and a title block. Text is sized in points on the
// page; the room kept for it around the geometry depends on how many feet a
// point stands for, so a drawing is laid out for the size it is shown at.
#pragma once

#include "core/drawing/BentGeometry.h"
#include "core/drawing/Labels.h"
#include "core/drawing/Scene.h"
#include "core/model/Measures.h"

#include <string>

namespace tw::drawing {

// What the labels say: the values as the form shows them, or the prompts
// of the inputs they come from (the explanatory sketches).
enum class Labels { Values, Prompts };

// Groups of dimensions and labels; a sketch shows only those of its subject.
enum Topic : unsigned {
    kBeamSpacing = 1u << 0,
    kCapLength = 1u << 1,
    kCapWidth = 1u << 2,
    kBearing = 1u << 3,
    kBeamAngles = 1u << 4,
    kBeamNumbers = 1u << 5,
    kWingwalls = 1u << 6,
    kPileBoxes = 1u << 7,
    kBatteredPiles = 1u << 8,
    kFillets = 1u << 9,
    kEndPosts = 1u << 10,
    kCapSteps = 1u << 11,
    kStepElevations = 1u << 12,
    kBottom = 1u << 13,
    kWingwallTops = 1u << 14,
    kBackwallTops = 1u << 15,
    kMinDepth = 1u << 16,
    kProblems = 1u << 17,
    kAllTopics = (1u << 18) - 1,
};

struct DrawOptions {
    bool plan = true;
    bool elevation = true;
    Labels labels = Labels::Values;
    LengthUnits units = LengthUnits::FeetInches; // how the values of lengths read
    unsigned topics = kAllTopics;
    bool title = true;
    // Under the drawing, what its lengths read in and a scale bar: a drawing
    // on paper, whose scale is the page's.
    bool legend = false;
    bool projectLines = true; // the project's three lines in the title block
    std::string heading;      // replaces the bent's name in the title block when set
    double textPt = 9;
    // The view the drawing is laid out for, in points (0: not known): it
    // decides whether the elevation goes below the plan or beside it, and
    // how long the lines of the title block may be.
    double viewWidthPt = 0, viewHeightPt = 0;
};

// Levels of the shapes, for a viewer that hides some.
enum Level : int { kOutline = 1, kCenterlines = 2, kDimensions = 3, kNotes = 4 };

// The drawing with the room for its text worked out for `feetPerPoint`.
Scene drawBent(const BentInputs& in, const DrawOptions& options, double feetPerPoint);

// The margin the window's drawing pane keeps around the drawing, as a
// fraction of its size on each side: little, so that the bent fills it.
inline constexpr double kPaneMargin = 0.02;

// The smallest text a drawing laid out for a view is set in, in points.
inline constexpr double kSmallestTextPt = 7;

// How a drawing came out in the view it was laid out for.
struct LayoutReport {
    double feetPerPoint = 0; // the scale it is shown at when fitted, which its labels were placed for
    double textPt = 0;       // the size its text is set in
    bool cramped = false;    // its text keeps the bent from much of the view: the view is small for it
    bool tooSmall = false;   // the view cannot hold its labels even at the smallest text
    int leaders = 0;         // labels that went to a leader
    // The choices made, to start from when the same view lays out a bent much the same.
    bool compact = false;         // the values beside the plan went to the notes
    double sizedFeetPerPoint = 0; // the scale found before the labels were placed
    double bare = 0;              // the scale of the geometry alone
    double viewWidthPt = 0, viewHeightPt = 0;
};

// The drawing laid out to fill a view of `widthPt` by `heightPt` points
// (a height of 0 leaves the height free), with the margin the view keeps
// on each side as a fraction of its size. Its labels are placed once, at the
// scale the view shows it at; its bounds are kept to just that scale. Where
// the dimensions beside the plan would keep the cap from most of the
// view's width, their values are listed in the notes; text shrinks down to
// the smallest size and no further.
// With `hint`, the report of this view's last layout: where the bent is much
// the same, its choices are taken again and its scale is the first guess, so
// that a layout after an edit takes a few rounds.
Scene drawBentToFit(const BentInputs& in, const DrawOptions& options, double widthPt, double heightPt,
                    LayoutReport* report = nullptr, double margin = 0.05, const LayoutReport* hint = nullptr);

// The feet per point at which a scene of `box` fills the view.
double feetPerPointToFit(const Box& box, double widthPt, double heightPt, double margin = 0.05);

} // namespace tw::drawing
