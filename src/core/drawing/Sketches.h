// SPDX-License-Identifier: Apache-2.0
// The explanatory sketches: the bent of a typical project of each bent type,
// drawn by the same code as the live drawing, each sketch showing the inputs
// of its subject labelled with the prompts the form asks them by.
#pragma once

#include "core/drawing/BentDrawing.h"

#include <optional>
#include <string>

namespace tw::drawing {

// The size a sketch is meant to be seen at, in points: text is 9 points there.
inline constexpr double kSketchWidthPt = 720;
inline constexpr double kSketchHeightPt = 450;

struct Sketch {
    BentInputs inputs;
    DrawOptions options;
};

// The sketch a small picture's base name or a full-size picture's key
// stands for ("bdapb", "cbwbw", "cwbw"); none for any other name.
std::optional<Sketch> sketchNamed(const std::string& name);

// A typical project of a bent type, every input filled in.
BentInputs typicalProject(BentType type);

} // namespace tw::drawing
