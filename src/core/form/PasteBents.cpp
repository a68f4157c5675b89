// SPDX-License-Identifier: Apache-2.0
#include "core/form/PasteBents.h"

#include "core/Quoting.h"

#include "core/benttable/BentEntry.h"
#include "core/benttable/BentRows.h"
#include "core/benttable/PastedCells.h"
#include "core/form/BentCommands.h"
#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <cctype>

namespace tw {

namespace {

// The most bents the input file's two-column count can hold.
constexpr int kMostBents = 99;

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

// A first line whose bent number holds a letter is a heading, of another table when it is not this one's.
std::optional<std::string> otherHeading(const Record& first, const BentTable& table) {
    const std::string number = trim(first.cells.front());
    if (std::none_of(number.begin(), number.end(), [](unsigned char c) { return std::isalpha(c); })) return {};
    for (int c = 0; c < table.cols(); ++c) {
        const std::string cell = trim(first.cells[static_cast<size_t>(c)]);
        if (cell != table.cell(0, c))
            return "line " + std::to_string(first.line) + " is a heading, but not this bent table's: column " +
                   std::to_string(c + 1) + " is \"" + printableText(cell) + "\" where the table has \"" +
                   table.cell(0, c) + "\"";
    }
    return {};
}

// Everything that can be known of the rows before any goes in: their width, what each cell holds, how many
// bents they make. The first that fails stops the paste before it begins.
std::optional<std::pair<int, std::string>> refusal(const Session& s, const std::vector<Record>& records) {
    const BentTable& table = s.table();
    const BentType type = *bentTypeOf(s.text(Ctl::cboTybent));
    const int beams = s.project().beams();
    for (const auto& r : records) {
        const int n = static_cast<int>(r.cells.size());
        if (n == table.cols()) continue;
        return std::pair{r.line, "Line " + std::to_string(r.line) + " holds " + std::to_string(n) +
                                     (n == 1 ? " column" : " columns") + ", but the bent table of a " +
                                     s.text(Ctl::cboTybent) + " with " + s.text(Ctl::cboNoBeam) + " beams has " +
                                     std::to_string(table.cols()) + ": " + columnList(table) + "."};
    }
    if (!records.empty())
        if (auto heading = otherHeading(records.front(), table)) return std::pair{records.front().line, *heading};
    for (const auto& r : records)
        for (int c = 0; c < table.cols(); ++c)
            if (auto problem =
                    pastedCellProblem(type, beams, c, table.cell(0, c), trim(r.cells[static_cast<size_t>(c)])))
                return std::pair{r.line, *problem};
    const int held = table.rows() - 1;
    if (held + static_cast<int>(records.size()) > kMostBents) {
        const auto& hundredth = records[static_cast<size_t>(std::max(kMostBents - held, 0))];
        return std::pair{hundredth.line, "the bent table would hold " + std::to_string(held + records.size()) +
                                             " bents, and a project holds " + std::to_string(kMostBents) +
                                             " at the most"};
    }
    return std::nullopt;
}

} // namespace

PasteOutcome pasteBents(Session& s, const std::string& pasted) {
    PasteOutcome outcome;
    if (!bentTypeOf(s.text(Ctl::cboTybent))) return outcome;
    const std::string text = spreadsheetText(pasted);
    std::vector<Record> records = readDelimited(text, separatorOf(text));
    if (!records.empty() && isHeading(records.front().cells, s.table())) records.erase(records.begin());
    if (const auto refused = refusal(s, records)) {
        const auto& [line, why] = *refused;
        // The width message names its line already; the others say where they stand.
        const bool named = why.starts_with("Line ");
        s.message((named ? why : "Line " + std::to_string(line) + ", " + why + ".") + " Nothing was pasted.", kAppTitle,
                  MsgButtons::OK, MsgIcon::Critical);
        outcome.refusedLine = line;
        if (!named) outcome.refusal = why;
        return outcome;
    }
    s.foldTableChanges(true);
    const struct Unfold {
        Session& s;
        ~Unfold() { s.foldTableChanges(false); }
    } unfold{s};
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
