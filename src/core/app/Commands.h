// SPDX-License-Identifier: Apache-2.0
// Everything the user does, one type a verb, as the window and the replay
// report it. UserActions::apply takes any of them.
#pragma once

#include "core/form/Form.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tw::cmd {

// The focus comes to a control: a click into it, the Tab key.
struct Focus {
    Target target;
};
// One key press into a text box, through its key filter; `at` is the caret
// and selection the user left, when the front end knows better.
struct Key {
    Target target;
    int key = 0;
    std::optional<Selection> at;
};
// The control gets the focus, then one key press per character (UTF-8).
struct Type {
    Target target;
    std::string text;
};
// The text changes without the key filter and without a focus change (a
// paste, a cut); the caret ends at `at`, or after the text. A combo box
// shows the item of that text, if any, without its change handler.
struct Edit {
    Target target;
    std::string text;
    std::optional<Selection> at;
};
// The control loses the focus (or, without it, runs its leave handler).
struct Leave {
    Target target;
};
// An item of a combo box is picked (the main form's combo boxes take the focus first).
struct Choose {
    Target target;
    int index = 0;
};
// A button takes the focus and is pressed; a menu item or a label is clicked without moving the focus.
struct Click {
    Target target;
};
struct DoubleClick {
    Target target;
};
// The toolbar button with this key.
struct Toolbar {
    std::string key;
};
// Tab `tab` of SSTab1 comes to the front.
struct Tab {
    int tab = 0;
};
// The grid's current row and selection end.
struct SelectRows {
    int row = 0;
    int end = 0;
};
// The window's own close button: the form unloads (the main form asks first).
struct Close {
    FormId form = FormId::Main;
};
// One whole step of the project's history back, or forward again.
struct Undo {};
struct Redo {};
// A project file given without Open's dialog (dropped on the window): what
// Open does once its dialog gave the path.
struct OpenPath {
    std::string path;
};
// Bent rows from a spreadsheet (tab- or comma-separated, the heading row
// optional), each added as Add adds a typed bent; one step of the history.
struct PasteBents {
    std::string text;
};
// The project of a recovery file comes back on the form.
struct Restore {
    std::string recovery;
};
// The closing values worked out again now, as a change of tab does.
struct BringUpToDate {};

} // namespace tw::cmd

namespace tw {

using Command = std::variant<cmd::Focus, cmd::Key, cmd::Type, cmd::Edit, cmd::Leave, cmd::Choose, cmd::Click,
                             cmd::DoubleClick, cmd::Toolbar, cmd::Tab, cmd::SelectRows, cmd::Close, cmd::Undo,
                             cmd::Redo, cmd::Restore, cmd::PasteBents, cmd::OpenPath, cmd::BringUpToDate>;

// The keys of the toolbar's buttons, in their order.
const std::vector<std::string>& toolbarKeys();

} // namespace tw
