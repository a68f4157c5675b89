// SPDX-License-Identifier: Apache-2.0
// The largest project the program allows: 99 bents, 20 beams, an end bent
// with backwall, every field filled.
#pragma once

#include "FakePorts.h"

namespace tw::bench {

void fillLargestProject(Session& s);
// The largest project opened from its file: a fresh history.
void loadLargestProject(App& app);
// Fills the entry fields with one valid bent numbered `number`.
void fillEntry(App& app, const std::string& number);

} // namespace tw::bench
