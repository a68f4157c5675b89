// SPDX-License-Identifier: Apache-2.0
// The File menu's recent projects: the last ones opened or saved, newest
// first, kept in the settings store under a key of their own.
#pragma once

#include <string>
#include <vector>

namespace tw {

class Session;

// The paths the menu shows, newest first.
std::vector<std::string> recentFiles(const Session& s);
// Fills the menu from the settings store (the window's start).
void showRecentFiles(Session& s);
// `path` was opened or saved: it goes to the top of the list.
void rememberRecentFile(Session& s, const std::string& path);
// mnuRecentFile(index): opens its project as Open does after its dialog;
// a project no longer there leaves the list with a note in the status bar.
void openRecentFile(Session& s, int index);

} // namespace tw
