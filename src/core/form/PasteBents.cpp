// SPDX-License-Identifier: Apache-2.0
#include "core/form/PasteBents.h"
#include "core/form/Events.h"

#include "core/Quoting.h"

#include "core/benttable/BentEntry.h"
#include "core/benttable/BentRows.h"
#include "core/benttable/PastedCells.h"
#include "core/form/BentCommands.h"
#include "core/form/MainForm.h"
#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <cctype>
#include <tuple>
#include <variant>

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
std::optional<std::pair<int, std::string>> refusal(const Session& s, const std::vector<Record>& records, bool over) {
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
    std::vector<const Record*> adding;
    for (size_t i = 0; i < records.size(); ++i) {
        const std::string number = trim(records[i].cells.front());
        if (!over) {
            adding.push_back(&records[i]);
            continue;
        }
        // Pasted over, a bent twice would be replaced by the later row without a word.
        for (size_t j = 0; j < i; ++j)
            if (!number.empty() && sameBentNumber(trim(records[j].cells.front()), number))
                return std::pair{records[i].line,
                                 "bent " + number + " is on line " + std::to_string(records[j].line) + " too"};
        if (paste::rowOfBent(s, number) == 0) adding.push_back(&records[i]);
    }
    const int held = table.rows() - 1;
    if (!adding.empty() && held + static_cast<int>(adding.size()) > kMostBents) {
        const Record& hundredth = *adding[static_cast<size_t>(std::max(kMostBents - held, 0))];
        return std::pair{hundredth.line, "the bent table would hold " + std::to_string(held + adding.size()) +
                                             " bents, and a project holds " + std::to_string(kMostBents) +
                                             " at the most"};
    }
    return std::nullopt;
}

std::string bentList(const std::vector<Record>& records) {
    std::string list;
    for (size_t i = 0; i < records.size(); ++i)
        list += (i == 0 ? "" : i + 1 == records.size() ? " and " : ", ") + trim(records[i].cells.front());
    return list;
}

const Ctl kEntryChoices[] = {Ctl::cboBtomCalPI, Ctl::cboTPLwinwall, Ctl::cboTPRwingwall};
const Ctl kWingwallFrames[] = {Ctl::Frame9, Ctl::Frame10, Ctl::Frame11, Ctl::Frame12};

} // namespace

namespace paste {

EntryFields entryFields(const Session& s) {
    EntryFields f;
    for (const auto& id : enteredFields(bentTypeOf(s.text(Ctl::cboTybent))))
        f.texts.emplace_back(id, s.text(id));
    for (Ctl c : kEntryChoices)
        f.choices.emplace_back(c, s.listIndex(c));
    for (Ctl c : kWingwallFrames)
        f.frames.emplace_back(c, s.ctl(c).visible, s.ctl(c).left);
    f.focus = s.focus();
    return f;
}

void putBack(Session& s, const EntryFields& f) {
    // The choices first: their handlers show the wingwall panels the fields sit on.
    for (const auto& [c, index] : f.choices)
        if (s.listIndex(c) != index) choose(s, c, index);
    for (const auto& [c, visible, left] : f.frames) {
        s.setVisible(c, visible);
        s.setLeft(c, left);
    }
    for (const auto& [id, text] : f.texts)
        s.setText(id, text);
    s.placeFocus(f.focus);
}

std::optional<std::vector<Record>> rows(Session& s, const std::string& pasted, PasteOutcome& outcome, bool over) {
    const std::string text = spreadsheetText(pasted);
    std::vector<Record> records = readDelimited(text, separatorOf(text));
    if (!records.empty() && isHeading(records.front().cells, s.table())) records.erase(records.begin());
    const auto refused = refusal(s, records, over);
    if (!refused) return records;
    const auto& [line, why] = *refused;
    // The width message names its line already; the others say where they stand.
    const bool named = why.starts_with("Line ");
    s.message((named ? why : "Line " + std::to_string(line) + ", " + why + ".") + " Nothing was pasted.", kAppTitle,
              MsgButtons::OK, MsgIcon::Critical);
    outcome.refusedLine = line;
    outcome.refusal = why;
    return std::nullopt;
}

int rowOfBent(const Session& s, const std::string& number) {
    if (number.empty()) return 0;
    for (int r = 1; r < s.table().rows(); ++r)
        if (sameBentNumber(trim(s.table().cell(r, 0)), number)) return r;
    return 0;
}

bool enter(Session& s, const Record& r, int command, const EntryFields& before, const PasteOutcome& outcome) {
    Cells cells;
    for (const auto& c : r.cells)
        cells.push_back(trim(c));
    loadBentFields(s, cells, [](const std::string& c) { return !c.empty(); });
    // Each field is formatted as on leaving it after typing, so the row holds what typing would have given.
    for (const auto& id : enteredFields(bentTypeOf(s.text(Ctl::cboTybent))))
        if (!s.text(id).empty()) leaveField(s, id);
    const auto checked = checkEntry(s.project(), command == 0);
    const int rows = s.table().rows();
    bentCommand(s, command);
    const auto* refused = std::get_if<EntryRefusal>(&checked);
    if (!refused && (command != 0 || s.table().rows() != rows)) return true;
    putBack(s, before);
    const int done = outcome.added + outcome.replaced;
    s.notice("Line " + std::to_string(r.line) + ", bent " + printableText(cells.front()) +
             ", was not pasted: " + (refused ? refused->message : std::string("Add refused it.")) +
             (done == 0   ? " Nothing was pasted."
              : done == 1 ? " The row before it went in; Undo takes it back."
                          : " The " + std::to_string(done) + " rows before it went in; Undo takes them back."));
    return false;
}

} // namespace paste

PasteOutcome pasteBents(Session& s, const std::string& pasted) {
    PasteOutcome outcome;
    if (!bentTypeOf(s.text(Ctl::cboTybent))) return outcome;
    const auto records = paste::rows(s, pasted, outcome, false);
    if (!records) return outcome;
    // The program's own rows copied back, or a revision of them: Add would refuse the first as repeated.
    if (!records->empty() && std::all_of(records->begin(), records->end(), [&](const Record& r) {
            return paste::rowOfBent(s, trim(r.cells.front())) != 0;
        })) {
        const bool one = records->size() == 1;
        s.notice((one ? "Bent " : "Bents ") + printableText(bentList(*records)) + (one ? " is" : " are") +
                 " in the bent table already: Paste Over Bents replaces " + (one ? "it." : "them."));
        outcome.offerOver = true;
        return outcome;
    }
    const paste::EntryFields before = paste::entryFields(s);
    const FoldedTableChanges folded(s);
    for (const auto& r : *records) {
        if (!paste::enter(s, r, 0, before, outcome)) {
            outcome.refusedLine = r.line;
            return outcome;
        }
        ++outcome.added;
    }
    return outcome;
}

} // namespace tw
