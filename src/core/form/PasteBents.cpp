// SPDX-License-Identifier: Apache-2.0
#include "core/form/PasteBents.h"

#include "core/benttable/BentEntry.h"
#include "core/benttable/BentRows.h"
#include "core/form/BentCommands.h"
#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

bool isHeading(const Cells& cells, const BentTable& table) {
    if (static_cast<int>(cells.size()) != table.cols()) return false;
    for (int c = 0; c < table.cols(); ++c)
        if (trim(cells[static_cast<size_t>(c)]) != table.cell(0, c)) return false;
    return true;
}

std::string columnList(const BentTable& table) {
    std::string list;
    for (int c = 0; c < table.cols(); ++c)
        list += (c ? ", " : "") + table.cell(0, c);
    return list;
}

} // namespace

PasteOutcome pasteBents(Session& s, const std::string& pasted) {
    PasteOutcome outcome;
    if (!bentTypeOf(s.text(Ctl::cboTybent))) return outcome;
    const std::string text = spreadsheetText(pasted);
    std::vector<Record> records = readDelimited(text, separatorOf(text));
    const BentTable& table = s.table();
    if (!records.empty() && isHeading(records.front().cells, table)) records.erase(records.begin());
    for (const auto& r : records) {
        const int n = static_cast<int>(r.cells.size());
        if (n == table.cols()) continue;
        s.message("Line " + std::to_string(r.line) + " holds " + std::to_string(n) + (n == 1 ? " column" : " columns") +
                      ", but the bent table of a " + s.text(Ctl::cboTybent) + " with " + s.text(Ctl::cboNoBeam) +
                      " beams has " + std::to_string(table.cols()) + ": " + columnList(table) + ". Nothing was pasted.",
                  kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        outcome.refusedLine = r.line;
        return outcome;
    }
    for (const auto& r : records) {
        Cells cells;
        for (const auto& c : r.cells)
            cells.push_back(trim(c));
        loadBentFields(s, cells, [](const std::string& c) { return !c.empty(); });
        // Each field is formatted as on leaving it after typing, so the row holds what typing would have given.
        for (const auto& id : enteredFields(bentTypeOf(s.text(Ctl::cboTybent))))
            if (!s.text(id).empty()) s.leave(id);
        const int before = s.table().rows();
        bentCommand(s, 0);
        if (s.table().rows() == before) {
            outcome.refusedLine = r.line;
            return outcome;
        }
        ++outcome.added;
    }
    return outcome;
}

} // namespace tw
