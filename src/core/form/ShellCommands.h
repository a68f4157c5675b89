// SPDX-License-Identifier: Apache-2.0
// The application shell: the splash and its OK, About, Help.
#pragma once

namespace tw {

class Session;

// The user guide that ships in the program folder.
inline constexpr const char* kHelpFile = "tarnwick-help.html";

// Shows the splash window, the first window of the program.
void showSplash(Session& s);
// The splash's OK: the main form loads and shows.
void closeSplash(Session& s);
void showAbout(Session& s);
void showHelp(Session& s);

} // namespace tw
