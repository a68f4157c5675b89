// SPDX-License-Identifier: Apache-2.0
// What a drawing of a bent is asked to show, and how its values read.
#pragma once

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

// The smallest text a drawing laid out for a view is set in, in points.
inline constexpr double kSmallestTextPt = 7;

} // namespace tw::drawing
