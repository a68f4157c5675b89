// SPDX-License-Identifier: Apache-2.0
// The one way a command changes the work: its body runs as one step (a
// failure ends in the standard error box, the history takes the step with
// its label, the listeners hear what changed), and Undo and Redo walk the
// history. The program (App) is the funnel; the user's actions go through it.
#pragma once

#include "core/form/Changes.h"
#include "core/model/Controls.h"

#include <functional>
#include <optional>
#include <string>

namespace tw {

class Session;

class Funnel {
  public:
    virtual ~Funnel() = default;
    // What the step's body works on.
    virtual Session& working() = 0;
    virtual ChangeSet perform(const std::function<void()>& body, const std::string& label = {},
                              std::optional<CtlId> control = {}, std::optional<int> row = {}) = 0;
    virtual ChangeSet walkHistory(bool forward) = 0;
};

} // namespace tw
