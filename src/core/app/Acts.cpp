// SPDX-License-Identifier: Apache-2.0
#include "core/app/Acts.h"

#include <algorithm>

namespace tw {

const std::vector<ActRow>& acts() {
    static const std::vector<ActRow> rows = {
        {Act::New, "New", CtlId(Ctl::mnuNew), "New", 1, "Ctrl+N", "document-new"},
        {Act::Open, "Open", CtlId(Ctl::mnuOpen), "Open", 2, "Ctrl+O", "document-open"},
        {Act::OpenRecent, "Open Recent", CtlId(Ctl::mnuRecentFile, -1), nullptr, 0, "", ""},
        {Act::Save, "Save", CtlId(Ctl::mnuSave), "Save", 3, "Ctrl+S", "document-save"},
        // Not the platform's own Save As keys: on some desktops there are none.
        {Act::SaveAs, "Save As", CtlId(Ctl::mnuSaveAs), nullptr, 0, "Ctrl+Shift+S", "document-save-as"},
        {Act::Print, "Print", CtlId(Ctl::mnuPrint), "Print", 5, "Ctrl+P", "document-print"},
        {Act::Run, "Run", CtlId(Ctl::mnuRun), "Run", 4, "F5", "media-playback-start"},
        {Act::Exit, "Exit", CtlId(Ctl::mnuExit), "Exit", 6, "Ctrl+Q", "application-exit"},
        {Act::Undo, "Undo", CtlId(Ctl::mnuUndo), "Undo", 7, "Ctrl+Z", "edit-undo"},
        {Act::Redo, "Redo", CtlId(Ctl::mnuRedo), "Redo", 8, "Ctrl+Shift+Z|Ctrl+Y", "edit-redo"},
        {Act::Help, "Tarnwick Help", CtlId(Ctl::mnuTarnwickHelp), nullptr, 0, "F1", "help-contents"},
        {Act::About, "About", CtlId(Ctl::mnuAbout), nullptr, 0, "", ""},
        {Act::AddBent, "Add Bent", CtlId(Ctl::cmdQuantity, 0), nullptr, 0, "", ""},
        {Act::InsertBent, "Insert Bent", CtlId(Ctl::cmdQuantity, 1), nullptr, 0, "", ""},
        {Act::ReplaceBent, "Replace Bent", CtlId(Ctl::cmdQuantity, 2), nullptr, 0, "", ""},
        {Act::EditBent, "Edit Bent", CtlId(Ctl::cmdQuantity, 3), nullptr, 0, "", ""},
        {Act::DeleteBent, "Delete Bent", CtlId(Ctl::cmdQuantity, 4), nullptr, 0, "", ""},
        {Act::DeleteAllBents, "Delete All Bents", CtlId(Ctl::cmdQuantity, 5), nullptr, 0, "", ""},
        {Act::MoveBentUp, "Move Bent Up", CtlId(Ctl::cmdMoveUp), nullptr, 0, "", ""},
        {Act::MoveBentDown, "Move Bent Down", CtlId(Ctl::cmdMoveDown), nullptr, 0, "", ""},
    };
    return rows;
}

const ActRow& actRow(Act act) { return acts()[static_cast<size_t>(act)]; }

CtlId actControl(Act act, int index) {
    CtlId id = actRow(act).control;
    if (id.index < 0 && ctlArraySize(id.ctl) > 0) id.index = index;
    return id;
}

const ActRow* actOf(const CtlId& control) {
    for (const auto& r : acts())
        if (r.control.ctl == control.ctl && (r.control.index < 0 || r.control.index == control.index)) return &r;
    return nullptr;
}

const ActRow* actOfToolbarKey(std::string_view key) {
    for (const auto& r : acts())
        if (r.toolbarKey && key == r.toolbarKey) return &r;
    return nullptr;
}

const std::vector<std::string>& toolbarKeys() {
    static const std::vector<std::string> keys = [] {
        std::vector<const ActRow*> onBar;
        for (const auto& r : acts())
            if (r.toolbarPlace > 0) onBar.push_back(&r);
        std::sort(onBar.begin(), onBar.end(),
                  [](const ActRow* a, const ActRow* b) { return a->toolbarPlace < b->toolbarPlace; });
        std::vector<std::string> k;
        for (const ActRow* r : onBar)
            k.emplace_back(r->toolbarKey);
        return k;
    }();
    return keys;
}

std::vector<std::string> shortcutsOf(const ActRow& row) {
    std::vector<std::string> keys;
    std::string_view rest = row.shortcuts;
    while (!rest.empty()) {
        const size_t bar = rest.find('|');
        keys.emplace_back(rest.substr(0, bar));
        rest = bar == std::string_view::npos ? std::string_view() : rest.substr(bar + 1);
    }
    return keys;
}

bool isBentAct(Act act) { return act >= Act::AddBent && act <= Act::MoveBentDown; }

} // namespace tw
