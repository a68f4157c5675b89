// SPDX-License-Identifier: Apache-2.0
// What the status bar keeps saying while it holds: the traps the legacy
// file format keeps, told in words instead of changed.
#pragma once

#include <string>
#include <vector>

namespace tw {

class Session;

// After a Delete the file still lists the old number of bents (Delete does
// not lower the count): said right after the Delete, until the next save,
// bent-table command or project; empty while the count and the table agree.
std::string unloweredCountNote(const Session& s);

// Closing values that differ from what their families give now (a cap
// length changed, a row typed and not yet left): which, and when they will
// be brought up to date; empty while all agree.
std::string staleClosingNote(const Session& s);

// Every note that stands now, in the order the status bar shows them.
std::vector<std::string> standingNotes(const Session& s);

} // namespace tw
