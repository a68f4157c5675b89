// The bent table's commands: the entry checks that guard Add, Insert and
// Replace, and the row operations.
#pragma once

#include <optional>
#include <string>

namespace tw {

class App;

// Checks the entry fields in their fixed order and builds the row (cells
// each followed by a tab). On the first failure the user is told, the
// focus moves where the check says, and nothing is returned. With
// `repeatCheck` the trimmed bent number joins the register, and leaves it
// again on any failure.
std::optional<std::string> checkAndBuildRow(App& app, bool repeatCheck);

// Bent numbers are compared without regard to case.
bool sameBentNumber(const std::string& a, const std::string& b);

// Empties the entry fields after a bent entered the table.
void clearEntryFields(App& app, bool resetBottomOfCap);

} // namespace tw
