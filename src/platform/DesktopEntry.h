// SPDX-License-Identifier: Apache-2.0
// Desktop entries (freedesktop.org): where one lives and how its Exec line
// becomes an open command of the form the program's association rule reads:
// the program and its fixed arguments, a blank, and "%1" in double quotes.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tw {

// $XDG_DATA_HOME, then each of $XDG_DATA_DIRS, with the standard defaults.
std::vector<std::string> xdgDataDirs();

// The file of a desktop-file id under DIR/applications for the first DIR
// that has it; a "-" in the id may stand for a subfolder. Empty when none.
std::string findDesktopEntry(const std::string& id, const std::vector<std::string>& dataDirs);

// The Exec value of the [Desktop Entry] group of an entry's text, its
// escapes (\s, \n, \t, \r, \\) undone; nothing when it has none.
std::optional<std::string> desktopEntryExec(const std::string& text);

// The open command for an Exec value: its program and fixed arguments
// (quoted where they need it), then "%1" in double quotes where the file or
// URL field code stands (at the end when there is none); other field codes
// are dropped. Nothing when the line names no program or holds a literal
// "%" before the file, which the association rule would take for the file.
std::optional<std::string> openCommandFromExec(const std::string& exec);

} // namespace tw
