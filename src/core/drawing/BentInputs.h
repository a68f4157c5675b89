// SPDX-License-Identifier: Apache-2.0
// What the drawing of a bent is made from: the project's inputs as the form
// shows them, each with the control it comes from, and the elevations of
// one bent. Reading the program is done once, here; the geometry is a pure
// function of this record, so tests build records directly.
#pragma once

#include "core/model/Choices.h"
#include "core/model/Controls.h"

#include <array>
#include <optional>
#include <string>

namespace tw {
class Project;
}

namespace tw::drawing {

// One input: the control it comes from and its text as the form shows it.
struct Input {
    CtlId id;
    std::string text;

    // The value, when the text is a number.
    std::optional<double> number() const;
    bool empty() const;
    friend bool operator==(const Input&, const Input&) = default;
};

// An angle typed as degrees, minutes and seconds.
struct AngleInput {
    Input degrees, minutes, seconds;

    // In degrees, when the degrees are a number (empty minutes or seconds count 0).
    std::optional<double> value() const;
    // As drawings read it: 75°30'15.5".
    std::string text() const;
    friend bool operator==(const AngleInput&, const AngleInput&) = default;
};

enum class Skew { None, Right, Left };

struct BentInputs {
    BentInputs(); // every input named by its control, every text empty

    std::optional<BentType> type; // none for a text that names no bent type
    std::string typeText;
    std::array<std::string, 3> projectInfo;
    int beams = 0; // 1 to 20; 0 when none is chosen

    Input capLength, capWidth, capDepth;
    Input transWidth, longWidth; // fillet legs
    Input bearingDistance;       // front face of the cap to the center of the bearing
    Input endPostWidth, endPostLength, wingwallLength;
    Input pileBoxDistance1, pileBoxDistance2;
    std::array<Input, 20> capSteps;    // the last of `beams` is the closing step
    std::array<Input, 21> centerlines; // 0..19 entered, 20 the closing distance

    Skew skew = Skew::None;
    bool anglesAlike = true; // one beam angle (row 0) for every beam
    std::array<AngleInput, 20> beamAngles;

    bool wingsParallel = true; // one angle (the left one) for both wingwalls
    AngleInput leftWing, rightWing;
    int pileBoxes = 0; // per wingwall, 0 to 3

    bool batteredDrawn = false;
    int battered = 0;                   // 1 to 6
    std::array<Input, 7> batterSpacing; // 0..5 entered, 6 the closing spacing
    std::string pileType;

    // The bent drawn in elevation.
    std::string bentLabel;      // "Bent 3", or what the title calls the bent being entered
    bool bottomComputed = true; // the engine works out the bottom of the cap
    Input bottomLeft, bottomRight;
    std::array<Input, 20> stepElevations;
    bool leftLevel = true, rightLevel = true; // a wingwall with one top elevation
    Input leftTop, leftFrontTop, leftEndTop;
    Input rightTop, rightFrontTop, rightEndTop;
    Input leftEndPostTop, rightEndPostTop;
    Input backwallLeftTop, backwallCenterTop, backwallRightTop;

    friend bool operator==(const BentInputs&, const BentInputs&) = default;
};

// Where the engineer is looking: the control with the focus and the bent
// table's current row.
struct Looking {
    std::optional<CtlId> focus;
    int currentRow = 0;
};

// The inputs of the project and the elevations of one bent: row `row` of the
// bent table, or with no row given, the bent the engineer is looking at: the
// entry fields while one of them has the focus or holds a value, else the
// selected row, else the first row, else the (empty) entry fields.
BentInputs readBentInputs(const Project& project, std::optional<int> row = std::nullopt, const Looking& at = {});

// The control whose shapes stand for `focused`: the three parts of an angle
// are one angle on the drawing, shown by its degrees.
CtlId drawnControl(const CtlId& focused);

// Whether an input is seen in the elevation (the bent's elevations, the cap
// steps and depth) or in the plan (every other input); none for a control
// that is no input.
std::optional<bool> inElevation(const CtlId& id);

} // namespace tw::drawing
