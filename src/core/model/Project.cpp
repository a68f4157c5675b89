// SPDX-License-Identifier: Apache-2.0
#include "core/model/Project.h"

#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <array>
#include <stdexcept>

namespace tw {

namespace {

// Where each control's items start among the project's inputs; -1 for a control that is no input.
const std::array<int, kControlCount>& firstIndex() {
    static const std::array<int, kControlCount> first = [] {
        std::array<int, kControlCount> f;
        f.fill(-1);
        const auto& inputs = projectInputs();
        for (int i = static_cast<int>(inputs.size()) - 1; i >= 0; --i)
            f[static_cast<size_t>(inputs[static_cast<size_t>(i)].ctl)] = i;
        return f;
    }();
    return first;
}

} // namespace

InputValue::InputValue(std::string t, int index)
    : text(std::move(t)), listIndex(index), leading(leadingNumber(text)), numeric(isNumeric(text)) {}

int inputIndex(const CtlId& id) {
    const int first = firstIndex()[static_cast<size_t>(id.ctl)];
    if (first < 0) return -1;
    const int size = ctlArraySize(id.ctl);
    if (size == 0) return id.index < 0 ? first : -1;
    return id.index >= 0 && id.index < size ? first + id.index : -1;
}

int inputCount() { return static_cast<int>(projectInputs().size()); }

Project::Project() : inputs_(static_cast<size_t>(inputCount())) {}

const InputValue& Project::value(const CtlId& id) const {
    const int i = inputIndex(id);
    if (i < 0) throw std::out_of_range("no input " + toString(id));
    return inputs_[static_cast<size_t>(i)];
}

int Project::beams() const { return static_cast<int>(leading(Ctl::cboNoBeam)); }

} // namespace tw
