// SPDX-License-Identifier: Apache-2.0
// Bent rows from a spreadsheet into the bent table: each row goes into the
// entry fields and through Add, so it meets the checks a typed bent meets.
#pragma once

#include <optional>
#include <string>

namespace tw {

class Session;

struct PasteOutcome {
    int added = 0;
    // The line of the text where the row that was refused starts.
    std::optional<int> refusedLine;
    // Why, when the rows were refused before any went in because of what a
    // cell holds or how many they are (the box says it with its line).
    std::string refusal;
};

// Pastes tab- or comma-separated rows, the heading row optional. Rows are
// refused before any is added when their cell count does not fit the table,
// a cell holds what typing could not enter (a bent number of more than two
// digits, a number wider than its field), or they would make more than 99
// bents; a row that Add refuses stops the paste, the rows before it stay.
PasteOutcome pasteBents(Session& s, const std::string& text);

} // namespace tw
