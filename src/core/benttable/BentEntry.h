// SPDX-License-Identifier: Apache-2.0
// The checks that guard Add, Insert and Replace: the entry fields of one bent
// looked at in their fixed order, and the row they make.
#pragma once

#include "core/model/Choices.h"
#include "core/model/Controls.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tw {

class Project;

// The first check that failed: what the user is told, and where the focus goes.
struct EntryRefusal {
    std::string message;
    std::optional<CtlId> focus;
};

// The row of the entry fields (cells each followed by a tab), or the first
// check that failed. With `repeatCheck` a bent number already in the register
// is refused (once the counter counts a bent).
std::variant<std::string, EntryRefusal> checkEntry(const Project& project, bool repeatCheck);

// Bent numbers are compared without regard to case.
bool sameBentNumber(const std::string& a, const std::string& b);

// The entry fields a bent leaves empty once it entered the table, for this bent type.
std::vector<CtlId> enteredFields(std::optional<BentType> type);

} // namespace tw
