// SPDX-License-Identifier: Apache-2.0
// A window as plain data: every control with what the program's logic shows
// of it (visible, enabled, locked, colour, caption, place, caret). The values
// of the main form's inputs are the project's, not the form's. The Qt view
// mirrors this; tests read it directly.
#pragma once

#include "core/model/Controls.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

// The windows of the program.
enum class FormId { Main, Splash, About, Printer, Preview, Picture };
inline constexpr int kFormCount = 6;
// "frmMain", "frmSplash", "frmAbout", "frmIPrinter", "frmViewTest", "frmPicView".
std::string_view formName(FormId f);
std::optional<FormId> formNamed(std::string_view name);

// A control on one of the forms; the main form's when no form is named.
struct Target {
    Target(const CtlId& id) : id(id) {} // NOLINT(google-explicit-constructor): the main form is the common case
    Target(Ctl c) : id(c) {}            // NOLINT(google-explicit-constructor)
    Target(FormId form, const CtlId& id) : form(form), id(id) {}
    FormId form = FormId::Main;
    CtlId id;
    friend bool operator==(const Target&, const Target&) = default;
};

// Where the caret stands in a text box, and what is selected from there.
struct Selection {
    int start = 0;
    int length = 0;
    friend bool operator==(const Selection&, const Selection&) = default;
};

enum class Kind {
    TextBox,
    ComboBox,
    Label,
    Frame,
    Button,
    Menu,
    ScrollBar,
    Picture,
    Grid,
    Tab,
    Toolbar,
    Dialog,
    RichText
};

enum class BackColor { Normal, Yellow, Red };

struct Control {
    Kind kind = Kind::Label;
    std::string text;    // text boxes and rich text of the forms other than the main one
    std::string caption; // labels, frames, buttons, menus
    std::vector<std::string> items;
    int listIndex = -1; // combo boxes of the forms other than the main one
    bool visible = true;
    bool enabled = true;
    bool locked = false;
    BackColor color = BackColor::Normal;
    std::optional<int> top; // twips
    std::optional<int> left;
    int selStart = 0;
    int selLength = 0;
    int maxLength = 0; // 0: no limit
    // Scroll bars.
    int min = 0;
    int max = 0;
    int value = 0;
    int largeChange = 1;
    int smallChange = 1;
    // Layout sizes of panes (twips), where the logic needs them.
    int height = 0;

    // What a script's `show` prints: the selected item of a combo box, the
    // caption of a label, frame, button or menu, the text otherwise.
    std::string displayText() const;
    bool isCombo() const { return kind == Kind::ComboBox; }
    bool hasCaption() const;
};

class Form {
  public:
    Form() = default;
    explicit Form(FormId id) : id_(id) {}

    FormId id() const { return id_; }
    std::string_view name() const { return formName(id_); }

    std::string caption;
    int top = 0;
    int left = 0;
    int width = 0;
    int height = 0;
    bool loaded = false;

    Control& add(const CtlId& id, Control c);
    bool has(const CtlId& id) const { return controls_.count(id) != 0; }
    Control& at(const CtlId& id);
    const Control& at(const CtlId& id) const;
    const std::map<CtlId, Control>& controls() const { return controls_; }

  private:
    FormId id_ = FormId::Main;
    std::map<CtlId, Control> controls_;
};

} // namespace tw
