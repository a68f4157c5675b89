// SPDX-License-Identifier: Apache-2.0
// Bent rows from a spreadsheet into the bent table: each row goes into the
// entry fields and through Add (or, pasted over, through Replace where its
// bent is in the table), so it meets the checks a typed bent meets.
#pragma once

#include "core/benttable/BentRows.h"
#include "core/form/Form.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tw {

class Session;

struct PasteOutcome {
    int added = 0;
    int replaced = 0;
    // The line of the text where the row that was refused starts.
    std::optional<int> refusedLine;
    // Why, when the rows were refused before any went in because of what a
    // cell holds or how many they are (the box says it with its line).
    std::string refusal;
    // Every bent pasted is in the table already: nothing went in, and the
    // status bar offers Paste Over Bents instead.
    bool offerOver = false;
};

// Pastes tab- or comma-separated rows, the heading row optional. Rows are
// refused before any is added when their cell count does not fit the table,
// a cell holds what typing could not enter (a bent number of more than two
// digits, a number wider than its field), or they would make more than 99
// bents; a row that Add refuses stops the paste, the rows before it stay and
// the entry fields are put back as they were.
PasteOutcome pasteBents(Session& s, const std::string& text);

// What the paste roads share.
namespace paste {

// The entry fields as the user left them, to be put back when a pasted row is refused.
struct EntryFields {
    std::vector<std::pair<CtlId, std::string>> texts;
    std::vector<std::pair<Ctl, int>> choices;
    std::vector<std::tuple<Ctl, bool, std::optional<int>>> frames;
    std::optional<CtlId> focus;
};
EntryFields entryFields(const Session& s);
void putBack(Session& s, const EntryFields& fields);

// The rows of the text, the heading row gone, when nothing in them refuses
// the paste; else nothing, the user told and `outcome` saying where. `over`:
// rows whose bent is in the table replace it, so only the others count
// towards the 99, and no bent may come twice.
std::optional<std::vector<Record>> rows(Session& s, const std::string& text, PasteOutcome& outcome, bool over);

// The table's row of bent `number`, 0 when it holds none.
int rowOfBent(const Session& s, const std::string& number);

// One row into the entry fields and through cmdQuantity(`command`); false
// when a check refused it: then the entry fields are as `before` left them
// and the status bar names the row.
bool enter(Session& s, const Record& r, int command, const EntryFields& before, const PasteOutcome& outcome);

} // namespace paste

} // namespace tw
