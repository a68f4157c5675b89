// Everything the user does, as the window and the replay report it. Each
// action moves the focus the way the old forms did (the control that loses
// it is left first, the one that gains it runs its focus handler), runs the
// handlers in their order, and ends a run-time error in the standard error
// box. The window and the replay call only these, so a replay script is a
// faithful record of a session in the window.
#pragma once

#include "core/model/Controls.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

class App;

// A control on one of the forms; the main form's when no form is named.
struct Target {
    Target(const CtlId& id) : id(id) {} // NOLINT(google-explicit-constructor): the main form is the common case
    Target(Ctl c) : id(c) {}            // NOLINT(google-explicit-constructor)
    Target(std::string form, const CtlId& id) : form(std::move(form)), id(id) {}
    std::string form = "frmMain";
    CtlId id;
};

// Where the caret stands in a text box, and what is selected from there.
struct Selection {
    int start = 0;
    int length = 0;
};

class UserActions {
  public:
    explicit UserActions(App& app) : app_(app) {}

    // The focus comes to a control: a click into it, the Tab key.
    void focus(const Target& t);
    // One key press into a text box, through its key filter; `at` is the
    // caret and selection the user left, when the front end knows better.
    void key(const Target& t, int key, std::optional<Selection> at = {});
    // The control gets the focus, then one key press per character.
    void type(const Target& t, std::string_view utf8);
    // The text changes without the key filter and without a focus change (a
    // paste, a cut); the caret ends at `at`, or after the text. A combo box
    // shows the item of that text, if any, without its change handler.
    void edit(const Target& t, const std::string& text, std::optional<Selection> at = {});
    void leave(const Target& t);
    // An item of a combo box is picked (the main form's combo boxes take the focus first).
    void choose(const Target& t, int index);
    // A button takes the focus and is pressed; a menu item or a label is clicked without moving the focus.
    void click(const Target& t);
    void doubleClick(const Target& t);
    void toolbar(const std::string& key);
    void selectTab(int tab);
    // The grid's current row and selection end.
    void selectRows(int row, int end);
    // The window's own close button: the form unloads (the main form asks first).
    void closeWindow(const std::string& form);
    // The project of a recovery file comes back on the form; false when the file could not be read.
    bool restore(const std::string& recovery);

    // Called after each action: the window shows its outcome.
    void afterEach(std::function<void()> f) { after_.push_back(std::move(f)); }

  private:
    template <class Body> void act(Body&& body);
    void focusOn(const Target& t);
    void keyInto(const Target& t, int key, std::optional<Selection> at);

    App& app_;
    std::vector<std::function<void()>> after_;
};

} // namespace tw
