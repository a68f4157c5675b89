// SPDX-License-Identifier: Apache-2.0
// The one way in for what the user does. Every action is a typed command
// (Commands.h); applying it moves the focus the way the old forms did (the
// control that loses it is left first, the one that gains it runs its focus
// handler), runs the handlers in their order, ends a run-time error in the
// standard error box, records the step in the history, and tells every
// listener what changed. The window and the replay call only these, so a
// replay script is a faithful record of a session in the window.
#pragma once

#include "core/app/Commands.h"
#include "core/form/Changes.h"
#include "core/form/PasteBents.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

class Funnel;

class UserActions {
  public:
    explicit UserActions(Funnel& funnel) : funnel_(funnel) {}

    // Carries out one command; what it changed.
    ChangeSet apply(const Command& c);

    // The same, one verb at a time.
    void focus(const Target& t) { apply(cmd::Focus{t}); }
    void key(const Target& t, int key, std::optional<Selection> at = {}) { apply(cmd::Key{t, key, at}); }
    void type(const Target& t, std::string_view utf8) { apply(cmd::Type{t, std::string(utf8)}); }
    void edit(const Target& t, const std::string& text, std::optional<Selection> at = {}) {
        apply(cmd::Edit{t, text, at});
    }
    void leave(const Target& t) { apply(cmd::Leave{t}); }
    void choose(const Target& t, int index) { apply(cmd::Choose{t, index}); }
    void click(const Target& t) { apply(cmd::Click{t}); }
    void doubleClick(const Target& t) { apply(cmd::DoubleClick{t}); }
    void toolbar(const std::string& key) { apply(cmd::Toolbar{key}); }
    void selectTab(int tab) { apply(cmd::Tab{tab}); }
    void selectRows(int row, int end) { apply(cmd::SelectRows{row, end}); }
    void closeWindow(FormId form) { apply(cmd::Close{form}); }
    void undo() { apply(cmd::Undo{}); }
    void redo() { apply(cmd::Redo{}); }
    // What a paste of bent rows added, and the line of the row it stopped at.
    PasteOutcome pasteBents(const std::string& text, bool over = false);
    // False when the recovery file could not be read.
    bool restore(const std::string& recovery);
    // Reads the project's file again, as another program left it.
    void reload() { apply(cmd::Reload{}); }
    // One of the engineer's acts; `index` picks the recent project to open.
    ChangeSet act(Act act, int index = 0);

    // Hears of every change, whatever made it: the window redraws what the
    // set names, the recovery keeper and the drawing pane take note.
    void onChange(std::function<void(const ChangeSet&)> listener) { listeners_.push_back(std::move(listener)); }

    // The funnel tells what a step changed, whoever asked for the step.
    void tell(const ChangeSet& changes);

  private:
    Funnel& funnel_;
    std::vector<std::function<void(const ChangeSet&)>> listeners_;
};

} // namespace tw
