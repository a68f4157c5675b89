// The application shell: the splash's OK, About, Help.
#pragma once

namespace tw {

class App;

// The user guide that ships in the program folder.
inline constexpr const char* kHelpFile = "tarnwick-help.html";

// Shows the splash window, the first window of the program.
void showSplash(App& app);
} // namespace tw
