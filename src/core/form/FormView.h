// SPDX-License-Identifier: Apache-2.0
// What the forms show of the work: every control's properties (visible,
// enabled, colour, caption, caret, items), the windows loaded, the grid's
// selection, the focus and the status bar's word. Each setter records what
// it changed in the document's record, so that an undo puts the view back
// with the values; none runs a handler.
#pragma once

#include "core/form/Changes.h"
#include "core/form/Form.h"
#include "core/ports.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tw {

class Document;

class FormView {
  public:
    FormView(Document& doc, UserPorts& user);
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    const Form& form(FormId f) const { return forms_[static_cast<size_t>(f)]; }
    const Form& main() const { return form(FormId::Main); }
    const Control& ctl(const Target& t) const { return form(t.form).at(t.id); }
    GridSelection selection() const { return selection_; }
    std::optional<CtlId> focus() const { return focus_; }
    // The tab in front of SSTab1.
    int currentTab() const { return ctl(Ctl::SSTab1).value; }
    // The main form has been unloaded: the program ends.
    bool mainUnloaded() const { return mainUnloaded_; }
    void setMainUnloaded() { mainUnloaded_ = true; }

    // --- Properties of the controls; a text set by the program leaves the
    // caret at its end with nothing selected.
    void setControlText(const Target& t, const std::string& text);
    void setControlListIndex(const Target& t, int index);
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
    // The range of a scroll bar, set once when the form loads (not a change anyone undoes).
    void setScrollRange(const CtlId& bar, int min, int max, int largeChange, int smallChange);

    // --- The forms themselves. Loads a form (without showing its window);
    // loads it and shows its window; unloads a loaded form and closes its window.
    void setFormCaption(FormId f, const std::string& caption);
    void placeForm(FormId f, int left, int top);
    void load(FormId f);
    void showForm(FormId f);
    void closeForm(FormId f);

    // --- The grid's selection, inside the bent table.
    void select(int row, int end);
    void clampSelection();

    // --- The focus, put somewhere without a handler running: moving it
    // with the handlers of the fields left and entered is the caller's.
    void placeFocus(std::optional<CtlId> id);

    // --- Words that need no answer: the status bar of the window, standard error headless.
    const std::string& statusText() const { return status_; }
    void notice(const std::string& text);
    // A notice that lasts a moment: about a key `field` refused, gone when
    // a key is taken in another field; or about the project just opened,
    // gone with the next key taken anywhere. A bent-table command ends either.
    void hint(const std::string& text, std::optional<CtlId> field = std::nullopt);
    bool hinting() const { return hinting_; }
    // Ends the hint standing, but not one about `taken`, the field a key was just taken in.
    void clearHint(std::optional<CtlId> taken = std::nullopt);
    // A Delete just left the bent count above the bents held: said until the next act.
    void noteUnloweredCount(bool noted) { countNoted_ = noted; }
    bool unloweredCountNoted() const { return countNoted_; }

    // Puts back the value before (or after) one entry about the view; false
    // for an entry about anything else. The selection is put back apart,
    // once the table it selects in stands.
    bool putBack(const ChangeEntry& e, bool after);
    void putBackSelection(const ChangeLog& entries, bool after);

  private:
    Control& mut(const Target& t) { return forms_[static_cast<size_t>(t.form)].at(t.id); }
    template <class T> void setProp(const Target& t, Prop p, T Control::*member, T value);
    void putBackProperty(const change::Property& c, bool after);
    void putBackFormProperty(const change::FormProperty& c, bool after);
    void setSelection(GridSelection s);

    Document& doc_;
    UserPorts& user_;
    std::array<Form, kFormCount> forms_;
    GridSelection selection_;
    std::optional<CtlId> focus_;
    bool mainUnloaded_ = false;
    std::string status_;
    bool hinting_ = false;
    bool countNoted_ = false;
    std::optional<CtlId> hintField_;
};

} // namespace tw
