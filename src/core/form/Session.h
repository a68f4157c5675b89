// SPDX-License-Identifier: Apache-2.0
// The running program as its handlers see it: the project, the forms that
// show it, the focus, and the ports to the user and the platform. Handlers
// read through the const accessors and change things only through the
// setters below, each of which records what it changed (ChangeLog): the
// history undoes whole steps from that record, and the window redraws what
// it names.
#pragma once

#include "core/Errors.h"
#include "core/form/Changes.h"
#include "core/form/Form.h"
#include "core/model/Project.h"
#include "core/ports.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tw {

inline constexpr const char* kAppTitle = "Norvale-Tarnwick";

class Session {
  public:
    Session(UserPorts& user, SystemPorts& system, std::string programDir);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    UserPorts& user;
    SystemPorts& system;
    const std::string programDir;

    // --- What there is to see.
    const Project& project() const { return project_; }
    const BentTable& table() const { return project_.table(); }
    const Form& form(FormId f) const { return forms_[static_cast<size_t>(f)]; }
    const Form& main() const { return form(FormId::Main); }
    const Control& ctl(const Target& t) const { return form(t.form).at(t.id); }
    // The text of a text box, the selected item of a combo box, a caption;
    // for an input of the main form, its value in the project.
    std::string text(const Target& t) const;
    int listIndex(const Target& t) const;
    GridSelection selection() const { return selection_; }
    std::optional<CtlId> focus() const { return focus_; }
    // The tab in front of SSTab1.
    int currentTab() const { return ctl(Ctl::SSTab1).value; }
    // The file dialog's file name: the working copy of the current file path.
    const std::string& dialogFileName() const { return dialogFileName_; }
    // Where the last Run put the engine's outputs: their base name, folder included.
    const std::string& runOutputBase() const { return runOutputBase_; }
    // The main form has been unloaded: the program ends.
    bool mainUnloaded() const { return mainUnloaded_; }
    // What the status bar says (a word that needs no answer), empty when nothing.
    const std::string& statusText() const { return status_; }

    // --- Values of the project. A text set by the program leaves the caret
    // at its end with nothing selected.
    void setText(const Target& t, const std::string& text);
    // Selecting a list position runs the main form's change handler, as the
    // old controls did when the program set their position.
    void setListIndex(const Target& t, int index);
    // The item with this exact text; a text the list does not hold is refused
    // with a run-time error.
    void setComboText(const Target& t, const std::string& text);
    // A combo box showing this text without its change handler (a paste into
    // it): its item when it has one, else no item.
    void showComboText(const Target& t, const std::string& text);
    // The bent table, changed by `edit`; the grid's selection stays inside it.
    void changeTable(const std::function<void(BentTable&)>& edit);
    void setBentCounter(std::int16_t n);
    void setBentRegister(std::vector<std::string> numbers);
    void setSaveFailed(bool failed);
    void setCurrentFile(const std::string& path);

    // --- Properties of the forms.
    void setVisible(const Target& t, bool visible);
    void setEnabled(const Target& t, bool enabled);
    void setLocked(const Target& t, bool locked);
    void setColor(const Target& t, BackColor color);
    void setCaption(const Target& t, const std::string& caption);
    void setTop(const Target& t, std::optional<int> top);
    void setLeft(const Target& t, std::optional<int> left);
    void setItems(const Target& t, std::vector<std::string> items);
    // A scroll bar's or the tab control's value.
    void setValue(const Target& t, int value);
    void setCaret(const Target& t, Selection caret);
    void selectAll(const Target& t);
    // The range of a scroll bar, set once when the form loads (not a change anyone undoes).
    void setScrollRange(const CtlId& bar, int min, int max, int largeChange, int smallChange);
    void setFormCaption(FormId f, const std::string& caption);
    void placeForm(FormId f, int left, int top);
    // Loads a form (without showing its window); loads it and shows its window;
    // unloads a loaded form and closes its window.
    void load(FormId f);
    void showForm(FormId f);
    void closeForm(FormId f);
    void select(int row, int end);
    void setDialogFileName(const std::string& path) { dialogFileName_ = path; }
    void setRunOutputBase(const std::string& base) { runOutputBase_ = base; }
    void setMainUnloaded() { mainUnloaded_ = true; }
    // The bytes of the file last read or written, as they were then: a file
    // changed since by someone else is told from one that is as we left it.
    struct OnDisk {
        std::string path;
        std::string bytes;
    };
    const std::optional<OnDisk>& onDisk() const { return onDisk_; }
    void setOnDisk(std::optional<OnDisk> d) { onDisk_ = std::move(d); }

    // --- Focus (main form). Moving it runs the leave handler of the control
    // that loses it, then the focus handler of the one that gains it.
    void setFocus(const CtlId& id);
    void leaveFocus();
    // The leave handler of a control that does not hold the focus.
    void leave(const CtlId& id);
    // The focus put somewhere without a handler running (an undo shows its field).
    void placeFocus(std::optional<CtlId> id);

    // --- Words to the user.
    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) {
        return user.message(text, title, buttons, icon);
    }
    // The standard error box; the dialog-cancel number is passed over.
    void reportError(const RuntimeError& e, const std::string& title = "Error");
    // Runs a command body; a run-time error, or any other failure, ends it
    // in the standard error box. True when the body ran to its end.
    bool guarded(const std::function<void()>& body, const std::string& errorTitle = "Error");
    // A word that needs no answer: the status bar of the window, standard error headless.
    void notice(const std::string& text);
    // A notice that lasts a moment: about a key `field` refused, gone when
    // a key is taken in another field; or about the project just opened,
    // gone with the next key taken anywhere. A bent-table command ends either.
    void hint(const std::string& text, std::optional<CtlId> field = std::nullopt);
    // The hint standing, and the field it is about.
    bool hinting() const { return hinting_; }
    // Ends the hint standing, but not one about `taken`, the field a key was just taken in.
    void clearHint(std::optional<CtlId> taken = std::nullopt);
    // A Delete just left the bent count above the bents held: said until the next act.
    void noteUnloweredCount(bool noted) { countNoted_ = noted; }
    bool unloweredCountNoted() const { return countNoted_; }

    // --- The record of changes.
    void mark(ChangeEntry mark) { log_.push_back(std::move(mark)); }
    // While on, the table's changes extend the first one logged: a paste of
    // n rows keeps one table before and after, not n of them.
    void foldTableChanges(bool on) {
        foldTable_ = on;
        tableAt_.reset();
    }
    // The project as it stands is what its file holds (a save, an open, a
    // new project), or what no file holds (a save cut short, a recovered
    // project); the history starts afresh.
    void markSaved();
    void markUnsaved();
    void startAfresh() { mark(change::Checkpoint{change::Checkpoint::Fresh}); }
    // The project as it was last saved, opened or started afresh; none while no file holds it.
    const std::optional<Project>& savedProject() const { return savedProject_; }
    // The project holds changes that no file holds.
    bool unsavedChanges() const { return !savedProject_ || !savedProject_->sameWork(project_); }
    // What changed since the last call.
    ChangeLog takeLog();
    // Puts back the values before (or after) the entries, in the order that
    // does it; what that changes is recorded like any change.
    void apply(const ChangeLog& entries, bool after);

  private:
    Control& mut(const Target& t) { return forms_[static_cast<size_t>(t.form)].at(t.id); }
    template <class T> void setProp(const Target& t, Prop p, T Control::*member, T value);
    void setInput(int index, InputValue v);
    void clampSelection();
    void setFocusTo(std::optional<CtlId> id);
    void applyProperty(const change::Property& c, bool after);
    void applyFormProperty(const change::FormProperty& c, bool after);

    Project project_;
    std::array<Form, kFormCount> forms_;
    GridSelection selection_;
    std::optional<CtlId> focus_;
    std::string dialogFileName_;
    std::string runOutputBase_;
    bool mainUnloaded_ = false;
    std::string status_;
    bool hinting_ = false;
    bool countNoted_ = false;
    std::optional<CtlId> hintField_;
    std::optional<Project> savedProject_;
    std::optional<OnDisk> onDisk_;
    ChangeLog log_;
    bool foldTable_ = false;
    std::optional<std::size_t> tableAt_; // the entry the table's changes extend
};

} // namespace tw
