// SPDX-License-Identifier: Apache-2.0
// The prompt the form shows for an input, for drawings that explain the
// inputs instead of showing their values.
#pragma once

#include "core/drawing/BentInputs.h"

#include <string>

namespace tw::drawing {

// The prompt of `id` as the form shows it for these inputs (the cap-length
// prompt and the wingwall-angle prompts depend on the bent type and the
// wingwall choice); rows of a repeated input carry their row number.
std::string promptOf(const CtlId& id, const BentInputs& in);

} // namespace tw::drawing
