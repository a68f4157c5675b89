// SPDX-License-Identifier: Apache-2.0
// The forms of the program as data, in their design-time state.
#pragma once

#include "core/form/Form.h"

#include <string>
#include <vector>

namespace tw {

// Every form with its controls in their design-time state.
std::vector<Form> buildForms();
// How many times buildForms() ran in this process: what shows that a
// command which only reads a file never builds a form.
int formSetsBuilt();

// The tabs of SSTab1, in order. The pile boxes are on tab kPileBoxTab.
const std::vector<std::string>& tabCaptions();
inline constexpr const char* kAppTitle = "Norvale-Tarnwick";

// The caption a label or frame of the main form is made with ("Cap
// Dimensions"); empty for a control made without one.
std::string designCaption(Ctl c);

// "Version 1.0.0": the About box's line.
std::string versionText();
inline constexpr int kPileBoxTab = 2;

// Fixed captions shared by the reset and the handlers.
inline constexpr const char* kDegreeMark = "\u00B0 "; // the degree sign, then a blank
inline constexpr const char* kMinuteMark = "' ";
inline constexpr const char* kSecondMark = "'' ";

} // namespace tw
