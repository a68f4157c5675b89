// SPDX-License-Identifier: Apache-2.0
// The File menu's recent projects: the last ones opened or saved, newest
// first, kept in the settings store under a key of their own.
#pragma once

#include <optional>
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
// The project of mnuRecentFile(index), or none when the menu has no such
// entry or its file is no longer there: it then leaves the list with a note
// in the status bar.
std::optional<std::string> recentFileToOpen(Session& s, int index);

} // namespace tw
