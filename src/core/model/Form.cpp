#include "core/model/Form.h"

#include <stdexcept>

namespace tw {

bool Control::hasCaption() const {
    switch (kind) {
    case Kind::Label:
    case Kind::Frame:
    case Kind::Button:
    case Kind::Menu: return true;
    default: return false;
    }
}

std::string Control::displayText() const {
    if (kind == Kind::ComboBox)
        return listIndex >= 0 && listIndex < static_cast<int>(items.size()) ? items[listIndex] : text;
    if (kind == Kind::Tab) // the caption of the tab in front
        return value >= 0 && value < static_cast<int>(items.size()) ? items[value] : std::string();
    if (hasCaption()) return caption;
    return text;
}

Control& Form::add(const CtlId& id, Control c) { return controls_[id] = std::move(c); }

Control& Form::at(const CtlId& id) {
    auto it = controls_.find(id);
    if (it == controls_.end()) throw std::out_of_range(name_ + " has no control " + toString(id));
    return it->second;
}

const Control& Form::at(const CtlId& id) const {
    auto it = controls_.find(id);
    if (it == controls_.end()) throw std::out_of_range(name_ + " has no control " + toString(id));
    return it->second;
}

} // namespace tw
