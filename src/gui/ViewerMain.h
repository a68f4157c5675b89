// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace tw {

// A single argument that names a drawing: ends in ".dgn", in any case.
bool isDrawingFileName(const std::string& arg);

// `view DRAWING [--export OUT]` (args without "view"): the drawing in its
// window, or written to OUT without one. 0 when done, 1 when the drawing or
// OUT cannot be read or written (said on stderr, and in a box for the
// window), 2 for wrong arguments. The drawing reader comes from `programDir`.
int runView(int& argc, char** argv, const std::string& programDir, const std::vector<std::string>& args);

} // namespace tw
