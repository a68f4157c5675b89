// The codes the input file stores instead of the choices' texts. "Yes" is
// written "0" and "No" "1": the engine's convention.
#pragma once

#include "core/model/Controls.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tw {

// (item text, code) pairs of a coded choice input.
const std::vector<std::pair<std::string, std::string>>& choiceCodes(Ctl ctl);
std::optional<std::string> codeOf(Ctl ctl, const std::string& text);
std::optional<std::string> textOfCode(Ctl ctl, const std::string& code);

// Record "900": the bent-table columns after the steps, in the engine's
// order (not ascending), as offsets from the number of beams.
const std::vector<int>& endBentColumnOffsets(bool withBackwall);

} // namespace tw
