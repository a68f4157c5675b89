// Add, Insert, Replace, Edit, Delete, Delete All, Move up and Move down.
#include "core/App.h"
#include "core/benttable/BentEntry.h"
#include "core/benttable/Layout.h"
#include "core/form/Forms.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <algorithm>

namespace tw {

namespace {

// The widest layout has 32 columns; rows are swapped through 51 cells.
constexpr int kSwapCells = 51;

void raiseCounter(App& app) {
    if (app.bentCounter == INT16_MAX) throw RuntimeError(err::kOverflow, "Overflow");
    ++app.bentCounter;
}

bool knownType(const App& app) { return bentTypeOf(app.text(Ctl::cboTybent)).has_value(); }

void add(App& app) {
    if (!knownType(app)) return;
    auto row = checkAndBuildRow(app, true);
    if (!row) return;
    app.grid.addItem(*row);
    raiseCounter(app);
    clearEntryFields(app, true);
}

void insert(App& app) {
    if (!knownType(app)) return;
    if (app.grid.rowSel() == 0) {
        app.message("Please select the row to insert!", kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    auto row = checkAndBuildRow(app, true);
    if (!row) return;
    app.grid.addItem(*row, app.grid.rowSel());
    raiseCounter(app);
    clearEntryFields(app, bentTypeOf(app.text(Ctl::cboTybent)) != BentType::Intermediate);
}

void replace(App& app) {
    if (!knownType(app)) return;
    auto row = checkAndBuildRow(app, false);
    if (!row) return;
    Grid& g = app.grid;
    if (g.row() == 0) g.setRow(1);
    const int r = g.row();
    g.addItem(*row, r);
    g.removeItem(r + 1);
    clearEntryFields(app, true);
}

void loadWingwall(App& app, const std::string& front, const std::string& end, Ctl choice, Ctl single, Ctl two,
                  Ctl level, Ctl frontField, Ctl endField) {
    const bool same = front == end;
    app.setListIndex(choice, same ? 0 : 1);
    app.setVisible(single, same);
    app.setVisible(two, !same);
    if (same) {
        app.setText(level, front);
    } else {
        app.ctl(two).left = 0;
        app.setText(frontField, front);
        app.setText(endField, end);
    }
}

void edit(App& app) {
    const auto type = bentTypeOf(app.text(Ctl::cboTybent));
    if (!type) return;
    const Grid& g = app.grid;
    const int r = g.row();
    if (r == 0) return;
    if (g.rowSel() > r) {
        app.message("Please select only one row", kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    auto cell = [&](int c) { return trim(g.cell(r, c)); };
    app.setText(Ctl::txtBentNoPI, cell(0));
    const std::string left = cell(1), right = cell(2);
    if (isNumeric(left) || isNumeric(right)) {
        app.setListIndex(Ctl::cboBtomCalPI, 1);
        app.setText(Ctl::txtBtLCapPI, left);
        app.setText(Ctl::txtBtRCapPI, right);
    } else {
        app.setListIndex(Ctl::cboBtomCalPI, 0);
        app.setText(Ctl::txtBtLCapPI, "");
        app.setText(Ctl::txtBtRCapPI, "");
    }
    const int n = beamCount(app);
    for (int i = 0; i < n; ++i)
        app.setText(CtlId(Ctl::txtEStepPI, i), cell(i + 3));
    if (!isEndBent(*type)) return;
    loadWingwall(app, cell(n + 3), cell(n + 5), Ctl::cboTPLwinwall, Ctl::Frame12, Ctl::Frame11,
                 Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd);
    loadWingwall(app, cell(n + 4), cell(n + 6), Ctl::cboTPRwingwall, Ctl::Frame10, Ctl::Frame9,
                 Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd);
    if (*type != BentType::EndWithBackwall) return;
    const Ctl backwall[] = {Ctl::txtTopLeftEndPost, Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall,
                            Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall};
    for (int k = 0; k < 5; ++k)
        app.setText(backwall[k], cell(n + 7 + k));
}

void remove(App& app) {
    Grid& g = app.grid;
    // With no bent there is no current row to delete: the grid refuses.
    if (g.rows() < 2) throw RuntimeError(err::kGridInvalidRow, "Invalid Row value");
    const int r = g.row();
    const std::string number = trim(g.cell(r, 0));
    auto& reg = app.bentRegister;
    auto it = std::find_if(reg.begin(), reg.end(), [&](const std::string& s) { return sameBentNumber(s, number); });
    if (it != reg.end()) reg.erase(it);
    if (g.rows() == 2) {
        // The grid will not remove its last bent row directly.
        g.addItem("");
        g.removeItem(1);
        g.setRows(1);
    } else {
        g.removeItem(r);
    }
}

void removeAll(App& app) {
    if (app.grid.rows() == 1) return;
    if (app.message("Are you sure about delete all record?", "Delete Confirmation", MsgButtons::YesNo, MsgIcon::None) !=
        MsgAnswer::Yes)
        return;
    app.bentCounter = 0;
    app.grid.setRows(1);
    app.bentRegister.clear();
}

void swapRows(Grid& g, int a, int b) {
    const int cols = std::min(g.cols(), kSwapCells);
    for (int c = 0; c < cols; ++c) {
        const std::string t = g.cell(a, c);
        g.setCell(a, c, g.cell(b, c));
        g.setCell(b, c, t);
    }
}

void moveUp(App& app) {
    Grid& g = app.grid;
    const int r = g.row();
    if (r < 2) return;
    swapRows(g, r - 1, r);
    g.setRow(r - 1);
}

void moveDown(App& app) {
    Grid& g = app.grid;
    const int r = g.row();
    if (r == 0 || r == g.rows() - 1) return;
    swapRows(g, r, r + 1);
    g.setRow(r + 1);
}

} // namespace

void installBentTable(App& app) {
    app.on(kFrmMain, Ctl::cmdQuantity, Event::Click, [](App& a, EventArgs& e) {
        static void (*const commands[])(App&) = {add, insert, replace, edit, remove, removeAll};
        if (e.index < 0 || e.index > 5) return;
        a.guarded([&] { commands[e.index](a); });
    });
    app.on(kFrmMain, Ctl::cmdMoveUp, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { moveUp(a); }); });
    app.on(kFrmMain, Ctl::cmdMoveDown, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { moveDown(a); }); });
}

} // namespace tw
