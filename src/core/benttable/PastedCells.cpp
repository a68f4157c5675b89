// SPDX-License-Identifier: Apache-2.0
#include "core/benttable/PastedCells.h"

#include "core/Quoting.h"
#include "core/model/Columns.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Utf8.h"

#include <algorithm>

namespace tw {

namespace {

constexpr size_t kShownCharacters = 40;

// The cell as a message may quote it: its first characters, none of them a control.
std::string shown(const std::string& cell) {
    const auto characters = utf8Decode(cell);
    if (characters.size() <= kShownCharacters) return "\"" + printableText(cell) + "\"";
    std::string cut;
    for (size_t i = 0; i + 1 < kShownCharacters; ++i)
        cut += utf8Encode(characters[i]);
    return "\"" + printableText(cut) + "\u2026\"";
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// What the field's key filter lets a user type: digits, a point where the
// field has decimals, a minus first where it takes one.
bool typable(const std::string& text, const InputRule& rule) {
    size_t i = rule.minus && text.starts_with('-') ? 1 : 0;
    bool digits = false, point = false;
    for (; i < text.size(); ++i) {
        if (isDigit(text[i]))
            digits = true;
        else if (text[i] == '.' && rule.point && !point)
            point = true;
        else
            return false;
    }
    return digits;
}

std::string nines(int n) { return std::string(static_cast<size_t>(std::max(n, 1)), '9'); }

} // namespace

std::optional<std::string> pastedCellProblem(BentType type, int beams, int column, const std::string& heading,
                                             const std::string& cell) {
    if (cell.empty()) return std::nullopt;
    const std::string where = "column \"" + heading + "\": " + shown(cell);
    const CtlId field = columnSource(type, beams, column);
    if (field.ctl == Ctl::txtBentNoPI) {
        // Two columns in the file; a third digit would shift the whole record.
        if (cell.size() > 2 || !std::all_of(cell.begin(), cell.end(), isDigit))
            return where + " is not a bent number of one or two digits";
        return std::nullopt;
    }
    const InputRule& rule = inputRule(field);
    if (!typable(cell, rule))
        return where + " is not a number as the field takes it (digits, one \".\" and a leading \"-\")";
    // Formatted as leaving the field formats it, it must keep every digit in its columns.
    if (formatField(rule.digits, rule.decimals, cell) != formatField(1000, rule.decimals, cell)) {
        const std::string decimals = rule.decimals ? "." + nines(rule.decimals) : std::string();
        return where + " does not fit the field, which holds -" + nines(rule.digits - 1) + decimals + " to " +
               nines(rule.digits) + decimals;
    }
    return std::nullopt;
}

} // namespace tw
