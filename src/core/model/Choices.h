// The item lists of the choice inputs, in the order the form shows them.
// No list is ever sorted: positions are part of the defaults.
#pragma once

#include "core/model/Controls.h"

#include <string>
#include <vector>

namespace tw {

inline constexpr const char* kEndWithoutBackwall = "Pile End Bent without Backwall";
inline constexpr const char* kEndWithBackwall = "Pile End Bent with Backwall";
inline constexpr const char* kIntermediate = "Pile Intermediate Bent";

enum class BentType { Intermediate, EndWithBackwall, EndWithoutBackwall };
// The bent type a text names; any other text names none.
std::optional<BentType> bentTypeOf(const std::string& text);
inline bool isEndBent(BentType t) { return t != BentType::Intermediate; }

// The items of a choice input; empty for a control that is not one.
const std::vector<std::string>& choiceItems(Ctl ctl);

} // namespace tw
