// The running program as data: its forms, the bent table and the project's
// bookkeeping, the event handlers, and the ports to the outside world. Every
// front end (window, replay, tests) drives the program through this class.
#pragma once

#include "core/Errors.h"
#include "core/UserActions.h"
#include "core/model/Form.h"
#include "core/model/Grid.h"
#include "core/model/ProjectState.h"
#include "core/ports.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace tw {

inline constexpr const char* kAppTitle = "Norvale-Tarnwick";

inline constexpr const char* kFrmMain = "frmMain";
inline constexpr const char* kFrmSplash = "frmSplash";
inline constexpr const char* kFrmAbout = "frmAbout";
inline constexpr const char* kFrmIPrinter = "frmIPrinter";
inline constexpr const char* kFrmViewTest = "frmViewTest";
inline constexpr const char* kFrmPicView = "frmPicView";

enum class Event { GotFocus, LostFocus, KeyPress, Change, Click, DblClick, Scroll };

struct EventArgs {
    int index = -1;   // item of a control array, tab number, toolbar button...
    int key = 0;      // KeyPress: the key code in, the accepted code (or 0) out
    std::string text; // toolbar key
};

class App;
using Handler = std::function<void(App&, EventArgs&)>;

class App {
  public:
    App(UserPorts& user, SystemPorts& system, std::string programDir);
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    UserPorts& user;
    SystemPorts& system;
    std::string programDir;

    // Every form of the program, loaded or not.
    Form& form(const std::string& name);
    bool hasForm(const std::string& name) const { return forms_.count(name) != 0; }
    const std::map<std::string, Form>& forms() const { return forms_; }
    Form& main() { return form(kFrmMain); }
    const Form& main() const { return forms_.at(kFrmMain); }

    // The bent table and its bookkeeping.
    Grid grid;
    std::int16_t bentCounter = 0;
    std::vector<std::string> bentRegister;
    bool saveFailed = false;

    // The project as it was last saved, opened or started afresh; what
    // differs from it is the user's unsaved work.
    ProjectState savedProject;
    void markSaved() { savedProject = captureProject(*this); }
    // No file holds the project as it stands (a save was cut short, a project was recovered).
    void markUnsaved() { savedProject = ProjectState{}; }
    bool modified() const { return captureProject(*this) != savedProject; }

    // The file dialog's file name: the working copy of the current file path.
    std::string dialogFileName;
    // The current file path (empty while the project has no file).
    std::string currentFile;
    // Where the last Run put the engine's outputs: their base name, folder included.
    std::string runOutputBase;

    // What the user does enters here: the window and the replay call nothing else.
    UserActions actions{*this};

    // Handlers, by form, control name and event; array items share one.
    void on(const std::string& form, Ctl ctl, Event ev, Handler h);
    // What a form does when it unloads, besides closing its window.
    void onUnload(const std::string& form, std::function<void(App&)> h) { unloadHandlers_[form] = std::move(h); }
    // Runs the handler of the event, if any. Run-time errors escape to the caller.
    bool fire(const std::string& form, const CtlId& id, Event ev, EventArgs& args);
    bool fire(const CtlId& id, Event ev) {
        EventArgs a;
        a.index = id.index;
        return fire(kFrmMain, id, ev, a);
    }

    // frmMain controls.
    Control& ctl(const CtlId& id) { return main().at(id); }
    const Control& ctl(const CtlId& id) const { return main().at(id); }
    // The text of a text box, the selected item of a combo box, a caption.
    std::string text(const CtlId& id) const { return ctl(id).displayText(); }
    // A text set by the program: the caret goes to its end, nothing selected.
    void setText(const CtlId& id, const std::string& text);
    void setCaption(const CtlId& id, const std::string& caption) { ctl(id).caption = caption; }
    void setVisible(const CtlId& id, bool visible) { ctl(id).visible = visible; }
    void setTop(const CtlId& id, int top) { ctl(id).top = top; }
    // Selecting a list position runs the combo box's change handler, as the
    // old controls did when the program set their position.
    void setListIndex(const CtlId& id, int index);
    // Selects the item with this exact text; a text the list does not hold is
    // refused with a run-time error.
    void setComboText(const CtlId& id, const std::string& text);
    int listIndex(const CtlId& id) const { return ctl(id).listIndex; }
    void selectAll(const CtlId& id);

    // Focus (frmMain). Moving it runs the leave handler of the control that
    // loses it, then the focus handler of the one that gains it.
    std::optional<CtlId> focus() const { return focus_; }
    void setFocus(const CtlId& id);
    void leaveFocus();

    // Message boxes through the ports.
    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) {
        return user.message(text, title, buttons, icon);
    }
    // The standard error box; the dialog-cancel number is passed over.
    void reportError(const RuntimeError& e, const std::string& title = "Error");
    // Runs a command body; a run-time error, or any other failure, ends it
    // in the standard error box.
    void guarded(const std::function<void()>& body, const std::string& errorTitle = "Error");

    // Loads a form and shows it; unloads a loaded form (its unload handler
    // first) and closes its window.
    void showForm(const std::string& name);
    void closeForm(const std::string& name);

    // Set when the main form has been unloaded (the program ends).
    bool mainUnloaded = false;

    // Tab currently in front of SSTab1.
    int currentTab() const;

  private:
    std::map<std::string, Form> forms_;
    std::map<std::tuple<std::string, Ctl, Event>, Handler> handlers_;
    std::map<std::string, std::function<void(App&)>> unloadHandlers_;
    std::optional<CtlId> focus_;
};

} // namespace tw
