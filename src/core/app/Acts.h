// SPDX-License-Identifier: Apache-2.0
// The engineer's acts on the project and its files, each by name, and the
// one table of what starts each: its menu item or button on the form, its
// toolbar key, its shortcuts and icon. The window builds its menus and
// toolbar from it, the user's actions and the replay map a click or a key
// to an act through it.
#pragma once

#include "core/model/Controls.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

enum class Act : std::uint8_t {
    New,
    Open,
    OpenRecent,
    Save,
    SaveAs,
    Print,
    Run,
    Exit,
    Undo,
    Redo,
    Help,
    About,
    AddBent,
    InsertBent,
    ReplaceBent,
    EditBent,
    DeleteBent,
    DeleteAllBents,
    MoveBentUp,
    MoveBentDown,
};

struct ActRow {
    Act act;
    // The act's name in the engineer's words.
    const char* name;
    // The menu item or button that starts it; an index of -1 stands for
    // every item of an array (the recent projects).
    CtlId control;
    // The key of its toolbar button, and the button's place from the left (0: none).
    const char* toolbarKey;
    int toolbarPlace;
    // Key sequences in portable text ("Ctrl+Shift+S"), '|' between
    // alternatives; empty for none.
    const char* shortcuts;
    // The icon's name in the desktop's icon theme; empty for none.
    const char* themeIcon;
};

// Every act, in the order of the menus.
const std::vector<ActRow>& acts();
const ActRow& actRow(Act act);
// The control that starts the act; `index` picks the item of an array.
CtlId actControl(Act act, int index);
// The act a click on this control starts, if any.
const ActRow* actOf(const CtlId& control);
const ActRow* actOfToolbarKey(std::string_view key);
// The keys of the toolbar's buttons, in their order.
const std::vector<std::string>& toolbarKeys();
// An act's shortcuts, one key sequence each.
std::vector<std::string> shortcutsOf(const ActRow& row);

// An act of the bent table: its step in the history is named after the bent.
bool isBentAct(Act act);

} // namespace tw
