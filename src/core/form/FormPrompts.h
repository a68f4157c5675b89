// SPDX-License-Identifier: Apache-2.0
// Prompts the window shows beside inputs that have no label of the legacy
// form of their own; the window and the checker's report both say them.
#pragma once

#include "core/model/Controls.h"

#include <string>

namespace tw {

// The question beside a choice: "Select the type of bent". Empty for a
// control whose prompt is a label of the form (or no choice at all).
std::string choicePrompt(Ctl choice);

// The label of the form that asks an end bent's question (cboWingParallel:
// lblCCWingPwall); the choice itself for any other.
Ctl questionLabel(Ctl choice);

// A beam-centerline distance, 0 to 20: "Left end to beam 1", "Beam 1 to
// beam 2", ..., and the closing one, "Last beam to right end".
std::string centerlinePrompt(int index);

} // namespace tw
