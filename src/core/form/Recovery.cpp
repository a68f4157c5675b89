// SPDX-License-Identifier: Apache-2.0
#include "core/form/Recovery.h"

#include "core/form/MainForm.h"
#include "core/form/PutAside.h"
#include "core/form/Session.h"
#include "core/model/Inputs.h"

#include <algorithm>
#include <cstdint>

namespace tw {

namespace {

bool isChoice(const CtlId& id) { return inputRule(id).kind == InputKind::Choice; }

// A choice by its text, its change handler running even where the choice
// stays, as Open sets them: the sections shown follow the last handler, so
// a restored project shows what the same project opened from its file
// shows. A text the list does not hold stands as it was kept.
void chooseKept(Session& s, const CtlId& id, const std::string& text) {
    const auto& items = s.ctl(id).items;
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i] == text) {
            tw::choose(s, id, static_cast<int>(i));
            return;
        }
    s.showComboText(id, text);
}

} // namespace

void restoreRecovery(Session& s, const std::string& recovery) {
    const KeptProject k = parseRecovery(recovery);
    putAsideUnsaved(s, "Restore");
    resetForm(s);
    // The number of beams and the bent type first: their handlers lay out the
    // sections and the bent table and give defaults that the kept texts override.
    const Ctl layout[] = {Ctl::cboDrScale, Ctl::cboNoBeam, Ctl::cboTybent};
    for (Ctl first : layout)
        if (auto it = k.inputs.find(first); it != k.inputs.end()) chooseKept(s, first, it->second);
    for (const bool choices : {true, false})
        for (const auto& id : projectInputs()) {
            const auto it = k.inputs.find(id);
            if (it == k.inputs.end() || isChoice(id) != choices) continue;
            if (!choices)
                s.setText(id, it->second);
            else if (std::find(std::begin(layout), std::end(layout), id.ctl) == std::end(layout))
                chooseKept(s, id, it->second);
        }

    s.changeTable([&](BentTable& g) {
        if (k.columns > 0 && g.cols() != k.columns) g.setCols(k.columns);
        g.setRows(static_cast<int>(k.rows.size()) + 1);
        for (size_t r = 0; r < k.rows.size(); ++r)
            for (int c = 0; c < g.cols(); ++c)
                g.setCell(static_cast<int>(r) + 1, c, k.rows[r][static_cast<size_t>(c)]);
    });
    s.setBentCounter(static_cast<std::int16_t>(k.counter));
    s.setBentRegister(k.bentRegister);

    s.setDialogFileName(k.currentFile);
    setMainCaption(s, !k.currentFile.empty());
    s.setDialogFileName(k.dialogFileName);
    // Whatever the current file holds, it is not this.
    s.markUnsaved();
}

} // namespace tw
