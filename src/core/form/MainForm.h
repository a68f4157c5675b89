// Load, reset and unload of the main form.
#pragma once

namespace tw {

class App;

// Centres the main form, resets it and sets up the scrolled panes.
void loadMainForm(App& app);

// Puts every input, the bent table and its bookkeeping back to the defaults.
void resetForm(App& app);
void clearBentTable(App& app);
// Empties the cap steps, step elevations and centerline distances of all 20 beams.
void clearBeamRows(App& app);
// Scroll ranges of the four row panes, from their heights.
void setupPanes(App& app);

// The window caption: the bare title, or the title and the current file's name.
// With `fileCurrent` and a dialog file name, that name becomes the current file.
void setMainCaption(App& app, bool fileCurrent);
// True while a file is current, judged the old way: by the caption.
bool hasCurrentFile(const App& app);

// The sections and repeated rows the bent type, the number of beams and the
// options show, hide, label and place.
void applyBentType(App& app);
// Rows for the number of beams: cap steps, step elevations, beam angles, centerline distances.
void applyBeamCount(App& app);
void applyBeamAngleRows(App& app);

// Asks "Are you sure you want to exit?"; on Yes closes every form. Returns
// whether the main form was unloaded.
bool unloadMainForm(App& app);

} // namespace tw
