// SPDX-License-Identifier: Apache-2.0
// The placement of a drawing's labels clear of one another, of the numbers'
// bubbles and of the lines.
#pragma once

#include "core/drawing/LabelBoxes.h"
#include "core/drawing/Scene.h"
#include "core/drawing/TextMetrics.h"

namespace tw::drawing {

// Moves each label that overlaps a label already placed, a bubble or a line
// drawn for another input to the nearest free place, with a leader back to
// where it belonged when it had to go far; a label that finds no room clear
// of the lines still goes clear of every other label. Labels marked `pinned`
// are placed first, then those of dimensions, then the rest in their order.
// Then keeps room in the scene's bounds for every label.
void placeLabels(Scene& scene, double feetPerPoint);

} // namespace tw::drawing
