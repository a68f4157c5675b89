// SPDX-License-Identifier: Apache-2.0
// Load, reset and unload of the main form, its caption, and the rules that
// show, hide and place its sections.
#pragma once

#include "core/form/Form.h"
#include "core/model/Controls.h"

#include <string>

namespace tw {

class Session;

// Centres the main form, resets it and sets up the scrolled panes.
void loadMainForm(Session& s);

// Puts every input, the bent table and its bookkeeping back to the defaults.
void resetForm(Session& s);
// Gives the input its default: the text, or the list position (whose change
// handler runs, as the old controls did).
void applyDefault(Session& s, const CtlId& id);

// The window caption: the bare title, or the title and the current file's name.
// With `fileCurrent` and a dialog file name, that name becomes the current file.
void setMainCaption(Session& s, bool fileCurrent);
// True while a file is current, judged the old way: by the caption.
bool hasCurrentFile(const Session& s);

// What the main window's status bar says: its message, or else the notes
// that stand now (out-of-date closing values, a count Delete left), or else
// its permanent text, the current file (or that the project has none).
std::string statusBarText(const Session& s);

// Brings tab `tab` of SSTab1 to the front, its change handler running.
void selectTab(Session& s, int tab);

// The sections and repeated rows the bent type, the number of beams and the
// options show, hide, label and place.
void applyBentType(Session& s);
// Rows for the number of beams: cap steps, step elevations, beam angles, centerline distances.
void applyBeamCount(Session& s);
void applyBeamAngleRows(Session& s);
// A list position (or the item of this text) is chosen, and the main
// form's change handler runs for an input, as when the user picks it.
void choose(Session& s, const Target& t, int index);
void chooseText(Session& s, const Target& t, const std::string& text);
// A combo box's change handler; a tab's.
void applyChoice(Session& s, Ctl c);
void applyTab(Session& s, int tab);
// Lays out the bent table's columns for the bent type and number of beams
// the form shows; a text that names no bent type lays out nothing.
void relayoutColumns(Session& s);

// Asks "Are you sure you want to exit?"; on Yes closes every form. Returns
// whether the main form was unloaded.
bool unloadMainForm(Session& s);

} // namespace tw
