#pragma once

#include <string>

namespace tw {

// Starts the window: the splash, then the main form.
int runGui(int& argc, char** argv, const std::string& programDir);

} // namespace tw
