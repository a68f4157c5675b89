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
};

// Pastes tab- or comma-separated rows, the heading row optional. Rows whose
// cell count does not fit the table are refused before any is added; a row
// that Add refuses stops the paste, the rows before it stay.
PasteOutcome pasteBents(Session& s, const std::string& text);

} // namespace tw
