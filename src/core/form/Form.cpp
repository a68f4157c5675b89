// SPDX-License-Identifier: Apache-2.0
#include "core/form/Form.h"

#include <array>
#include <stdexcept>

namespace tw {

namespace {
constexpr std::array<std::string_view, kFormCount> kFormNames = {"frmMain",     "frmSplash",   "frmAbout",
                                                                 "frmIPrinter", "frmViewTest", "frmPicView"};
} // namespace

std::string_view formName(FormId f) { return kFormNames[static_cast<size_t>(f)]; }

std::optional<FormId> formNamed(std::string_view name) {
    for (size_t i = 0; i < kFormNames.size(); ++i)
        if (kFormNames[i] == name) return static_cast<FormId>(i);
    return std::nullopt;
}

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
    if (it == controls_.end()) throw std::out_of_range(std::string(name()) + " has no control " + toString(id));
    return it->second;
}

const Control& Form::at(const CtlId& id) const {
    auto it = controls_.find(id);
    if (it == controls_.end()) throw std::out_of_range(std::string(name()) + " has no control " + toString(id));
    return it->second;
}

} // namespace tw
