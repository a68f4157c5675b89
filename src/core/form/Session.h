// SPDX-License-Identifier: Apache-2.0
// What a handler works on: the document and the forms' view of it, with the
// ports to the user and the platform. A field of the main form that holds
// an input reads and writes the project; any other control, the form. The
// setters only set and record (ChangeLog); the handlers an event runs are
// dispatched by whoever made the event (Events.h, UserActions).
#pragma once

#include "core/Errors.h"
#include "core/form/Document.h"
#include "core/form/FormView.h"
#include "core/form/Forms.h"
#include "core/ports.h"

#include <functional>
#include <string>

namespace tw {

class Session : public Document, public FormView {
  public:
    Session(UserPorts& user, SystemPorts& system, std::string programDir);

    UserPorts& user;
    SystemPorts& system;
    const std::string programDir;

    // The text of a text box, the selected item of a combo box, a caption;
    // for an input of the main form, its value in the project.
    std::string text(const Target& t) const;
    int listIndex(const Target& t) const;
    void setText(const Target& t, const std::string& text);
    void setListIndex(const Target& t, int index);
    // The item with this exact text; a text the list does not hold is refused
    // with a run-time error.
    void setComboText(const Target& t, const std::string& text);
    // A combo box showing this text without its change handler (a paste into
    // it): its item when it has one, else no item.
    void showComboText(const Target& t, const std::string& text);
    void selectAll(const Target& t);
    // The bent table, changed by `edit`; the grid's selection stays inside it.
    void changeTable(const std::function<void(BentTable&)>& edit);
    // What a Delete noted of the count is past once the file holds the project.
    void markSaved();

    // --- Words to the user.
    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) {
        return user.message(text, title, buttons, icon);
    }
    // The standard error box; the dialog-cancel number is passed over.
    void reportError(const RuntimeError& e, const std::string& title = "Error");
    // Runs a command body; a run-time error, or any other failure, ends it
    // in the standard error box. True when the body ran to its end.
    bool guarded(const std::function<void()>& body, const std::string& errorTitle = "Error");

    // Puts back the values before (or after) the entries, in the order that
    // does it; what that changes is recorded like any change.
    void apply(const ChangeLog& entries, bool after);
};

// An input of the main form: its value lives in the project.
bool holdsInput(const Target& t);

} // namespace tw
