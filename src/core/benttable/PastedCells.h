// SPDX-License-Identifier: Apache-2.0
// What a spreadsheet may put into the bent table: only what typing into the
// entry fields could, so that every row written reads back as it went in.
#pragma once

#include "core/model/Choices.h"

#include <optional>
#include <string>

namespace tw {

// Why `cell` of column `column` (headed `heading`) cannot go into the bent
// table of `type` with `beams` beams: a bent number that is not one or two
// digits, or a number the field's key filter would not take or that does
// not fit its file columns. Nothing when it can; an empty cell is for Add's
// checks to judge.
std::optional<std::string> pastedCellProblem(BentType type, int beams, int column, const std::string& heading,
                                             const std::string& cell);

} // namespace tw
