// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace tw {

// Starts the window: the splash, then the main form, which opens `file` (when
// given) as File > Open does. Uses the running QApplication if there is one.
int runGui(int& argc, char** argv, const std::string& programDir, const std::string& file = {});

} // namespace tw
