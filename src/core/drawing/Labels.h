// SPDX-License-Identifier: Apache-2.0
// The placement of a drawing's labels, once, at the scale the drawing is
// shown at: clear of one another, of the bubbles and circles, and of every
// line drawn (outlines, centerlines, dimension and extension lines,
// arrowheads, leaders).
#pragma once

#include "core/drawing/LabelBoxes.h"
#include "core/drawing/Scene.h"
#include "core/drawing/TextMetrics.h"

namespace tw::drawing {

// Leaves a label where it is drawn when nothing is in its way; else moves
// it to the nearest free place, a little way along or across its text, and
// where that fails, further off with a leader back to what it names. Labels
// marked `pinned` stay (a number in its bubble), then dimensions' labels are
// placed, then the others in their order. Then keeps room in the scene's
// bounds for every label. Returns how many labels went to a leader.
int placeLabels(Scene& scene, double feetPerPoint);

// Keeps room in the scene's bounds for every label where it is drawn now,
// without moving any: a drawing being sized, whose labels are placed later.
void keepLabelRoom(Scene& scene, double feetPerPoint);

} // namespace tw::drawing
