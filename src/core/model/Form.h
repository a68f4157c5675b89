// A window as plain data: every control with the properties the program's
// logic reads and writes. The Qt view mirrors this; tests read it directly.
#pragma once

#include "core/model/Controls.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tw {

// Positions and sizes are in twips, as the old forms were laid out: 15 to a
// pixel on a screen of 96 dots per inch.
inline constexpr int kTwipsPerPixel = 15;

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
    std::string text;    // text boxes, rich text
    std::string caption; // labels, frames, buttons, menus
    std::vector<std::string> items;
    int listIndex = -1;
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
    explicit Form(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }

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
    std::string name_;
    std::map<CtlId, Control> controls_;
};

} // namespace tw
