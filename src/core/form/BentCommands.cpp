// SPDX-License-Identifier: Apache-2.0
#include "core/form/BentCommands.h"
#include "core/form/Events.h"
#include "core/form/MainForm.h"

#include "core/benttable/BentEntry.h"
#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <functional>

namespace tw {

namespace {

void raiseCounter(Session& s) {
    if (s.project().bentCounter == INT16_MAX) throw RuntimeError(err::kOverflow, "Overflow");
    s.setBentCounter(static_cast<std::int16_t>(s.project().bentCounter + 1));
}

std::optional<BentType> bentType(const Session& s) { return bentTypeOf(s.text(Ctl::cboTybent)); }

// The row the entry fields make, or nothing when a check refused them (the
// user told, the focus where the check says).
std::optional<std::string> checkedRow(Session& s, bool repeatCheck) {
    auto result = checkEntry(s.project(), repeatCheck);
    if (auto* refusal = std::get_if<EntryRefusal>(&result)) {
        s.message(refusal->message, kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        if (refusal->focus) moveFocus(s, *refusal->focus);
        return std::nullopt;
    }
    if (repeatCheck) {
        auto numbers = s.project().bentRegister;
        numbers.push_back(trim(s.text(Ctl::txtBentNoPI)));
        s.setBentRegister(std::move(numbers));
    }
    return std::get<std::string>(std::move(result));
}

void clearEntryFields(Session& s, bool resetBottomOfCap) {
    const auto type = bentType(s);
    for (const auto& id : enteredFields(type)) {
        s.setText(id, "");
        // The bottom-of-cap choice returns to "Yes" between the bottom-of-cap fields and the wingwalls.
        if (id.ctl == Ctl::txtBtRCapPI && resetBottomOfCap) choose(s, Ctl::cboBtomCalPI, 0);
    }
}

void add(Session& s) {
    if (!bentType(s)) return;
    auto row = checkedRow(s, true);
    if (!row) return;
    s.changeTable([&](BentTable& t) { t.addItem(*row); });
    raiseCounter(s);
    clearEntryFields(s, true);
}

void insert(Session& s) {
    if (!bentType(s)) return;
    if (s.selection().end == 0) {
        s.message("Please select the row to insert!", kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    auto row = checkedRow(s, true);
    if (!row) return;
    const int at = s.selection().end;
    s.changeTable([&](BentTable& t) { t.addItem(*row, at); });
    raiseCounter(s);
    clearEntryFields(s, bentType(s) != BentType::Intermediate);
}

void replace(Session& s) {
    if (!bentType(s)) return;
    auto row = checkedRow(s, false);
    if (!row) return;
    if (s.selection().row == 0) s.select(1, 1);
    const int r = s.selection().row;
    s.changeTable([&](BentTable& t) {
        t.addItem(*row, r);
        t.removeItem(r + 1);
    });
    clearEntryFields(s, true);
}

void loadWingwall(Session& s, const std::string& front, const std::string& end, Ctl choice, Ctl single, Ctl two,
                  Ctl level, Ctl frontField, Ctl endField) {
    const bool same = front == end;
    choose(s, choice, same ? 0 : 1);
    s.setVisible(single, same);
    s.setVisible(two, !same);
    if (same) {
        s.setText(level, front);
    } else {
        s.setLeft(two, 0);
        s.setText(frontField, front);
        s.setText(endField, end);
    }
}

void edit(Session& s) {
    if (!bentType(s)) return;
    const int r = s.selection().row;
    if (r == 0) return;
    if (s.selection().end > r) {
        s.message("Please select only one row", kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    std::vector<std::string> cells = s.table().rowCells(r);
    for (auto& c : cells)
        c = trim(c);
    loadBentFields(s, cells, [](const std::string& c) { return isNumeric(c); });
}

void remove(Session& s) {
    // With no bent there is no current row to delete: the grid refuses.
    if (s.table().rows() < 2) throw RuntimeError(err::kGridInvalidRow, "Invalid Row value");
    const int r = s.selection().row;
    const std::string number = trim(s.table().cell(r, 0));
    auto numbers = s.project().bentRegister;
    const auto it =
        std::find_if(numbers.begin(), numbers.end(), [&](const std::string& n) { return sameBentNumber(n, number); });
    if (it != numbers.end()) {
        numbers.erase(it);
        s.setBentRegister(std::move(numbers));
    }
    s.changeTable([&](BentTable& t) {
        if (t.rows() == 2) {
            // The grid will not remove its last bent row directly.
            t.addItem("");
            t.removeItem(1);
            t.setRows(1);
        } else {
            t.removeItem(r);
        }
    });
}

void removeAll(Session& s) {
    if (s.table().rows() == 1) return;
    if (s.message("Are you sure about delete all record?", "Delete Confirmation", MsgButtons::YesNo, MsgIcon::None) !=
        MsgAnswer::Yes)
        return;
    s.setBentCounter(0);
    s.changeTable([](BentTable& t) { t.setRows(1); });
    s.setBentRegister({});
}

} // namespace

void loadBentFields(Session& s, const std::vector<std::string>& cells,
                    const std::function<bool(const std::string&)>& bottomGiven) {
    const auto type = bentType(s);
    if (!type) return;
    auto cell = [&](int c) {
        return c < static_cast<int>(cells.size()) ? cells[static_cast<size_t>(c)] : std::string();
    };
    s.setText(Ctl::txtBentNoPI, cell(0));
    const std::string left = cell(1), right = cell(2);
    if (bottomGiven(left) || bottomGiven(right)) {
        choose(s, Ctl::cboBtomCalPI, 1);
        s.setText(Ctl::txtBtLCapPI, left);
        s.setText(Ctl::txtBtRCapPI, right);
    } else {
        choose(s, Ctl::cboBtomCalPI, 0);
        s.setText(Ctl::txtBtLCapPI, "");
        s.setText(Ctl::txtBtRCapPI, "");
    }
    const int n = s.project().beams();
    for (int i = 0; i < n; ++i)
        s.setText(CtlId(Ctl::txtEStepPI, i), cell(i + 3));
    if (!isEndBent(*type)) return;
    loadWingwall(s, cell(n + 3), cell(n + 5), Ctl::cboTPLwinwall, Ctl::Frame12, Ctl::Frame11,
                 Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd);
    loadWingwall(s, cell(n + 4), cell(n + 6), Ctl::cboTPRwingwall, Ctl::Frame10, Ctl::Frame9,
                 Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd);
    if (*type != BentType::EndWithBackwall) return;
    const Ctl backwall[] = {Ctl::txtTopLeftEndPost, Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall,
                            Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall};
    for (int k = 0; k < 5; ++k)
        s.setText(backwall[k], cell(n + 7 + k));
}

void bentCommand(Session& s, int index) {
    static void (*const commands[])(Session&) = {add, insert, replace, edit, remove, removeAll};
    if (index >= 0 && index <= 5) commands[index](s);
}

void moveBentUp(Session& s) {
    const int r = s.selection().row;
    if (r < 2) return;
    s.changeTable([&](BentTable& t) { t.swapRows(r - 1, r); });
    s.select(r - 1, r - 1);
}

void moveBentDown(Session& s) {
    const int r = s.selection().row;
    if (r == 0 || r == s.table().rows() - 1) return;
    s.changeTable([&](BentTable& t) { t.swapRows(r, r + 1); });
    s.select(r + 1, r + 1);
}

} // namespace tw
