// SPDX-License-Identifier: Apache-2.0
// The items of the choice inputs, in the order the form lists them, each
// beside the code the input file stores for it. No list is ever sorted:
// positions are part of the defaults. "Yes" is stored "0" and "No" "1": the
// engine's convention.
#pragma once

#include "core/model/Controls.h"

#include <optional>
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

struct ChoiceItem {
    std::string text;
    // What the input file stores; nothing where the file writes the text itself or holds no such input.
    std::optional<std::string> code;
};

// The items of a choice input; empty for a control that is not one.
const std::vector<ChoiceItem>& choices(Ctl ctl);
// The item texts alone, as a combo box lists them.
std::vector<std::string> choiceTexts(Ctl ctl);

std::optional<std::string> codeOf(Ctl ctl, const std::string& text);
std::optional<std::string> textOfCode(Ctl ctl, const std::string& code);

} // namespace tw
