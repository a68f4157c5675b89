// SPDX-License-Identifier: Apache-2.0
#include "core/form/PasteOver.h"

#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

constexpr int kAdd = 0;     // cmdQuantity(0)
constexpr int kReplace = 2; // cmdQuantity(2)

} // namespace

PasteOutcome pasteOverBents(Session& s, const std::string& text) {
    PasteOutcome outcome;
    if (!bentTypeOf(s.text(Ctl::cboTybent))) return outcome;
    const auto records = paste::rows(s, text, outcome, true);
    if (!records) return outcome;
    const paste::EntryFields before = paste::entryFields(s);
    const GridSelection selected = s.selection();
    const FoldedTableChanges folded(s);
    for (const auto& r : *records) {
        // Replace works on the current row: the pasted bent's own.
        const int row = paste::rowOfBent(s, trim(r.cells.front()));
        if (row != 0) s.select(row, row);
        if (!paste::enter(s, r, row != 0 ? kReplace : kAdd, before, outcome)) {
            outcome.refusedLine = r.line;
            break;
        }
        ++(row != 0 ? outcome.replaced : outcome.added);
    }
    s.select(selected.row, selected.end);
    return outcome;
}

} // namespace tw
