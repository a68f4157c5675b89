// SPDX-License-Identifier: Apache-2.0
// The drawing of a bent: the plan and the elevation of its geometry with
// dimensions and labels, and a title block. Text is sized in points on the
// page; the room kept for it around the geometry depends on how many feet a
// point stands for, so a drawing is laid out for the size it is shown at.
#pragma once

#include "core/drawing/BentGeometry.h"
#include "core/drawing/DrawOptions.h"
#include "core/drawing/Labels.h"
#include "core/drawing/Scene.h"
#include "core/model/Measures.h"

#include <string>

namespace tw::drawing {

// The drawing with the room for its text worked out for `feetPerPoint`.
Scene drawBent(const BentInputs& in, const DrawOptions& options, double feetPerPoint);

// The margin the window's drawing pane keeps around the drawing, as a
// fraction of its size on each side: little, so that the bent fills it.
inline constexpr double kPaneMargin = 0.02;

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
