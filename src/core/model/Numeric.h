// SPDX-License-Identifier: Apache-2.0
// What counts as a number, and how numbers become field texts. Decided once
// here and used by the field formatter, the closing values and the file writer.
#pragma once

#include <string>
#include <string_view>

namespace tw {

// Blanks and tabs removed from both ends.
std::string trim(std::string_view s);

// A decimal number with optional sign, point and exponent, blanks around
// allowed ("12", "-0.5", " 3. ", ".25", "1E-08"). Empty text is not numeric.
bool isNumeric(std::string_view text);

// The value of the number the text begins with (after leading blanks); 0
// when it begins with none ("12ft" is 12, "" and "abc" are 0).
double leadingNumber(std::string_view text);

// The field formatter: a number written with exactly `decimals` decimals
// (leading zero, "-" sign, halves rounded away from zero), then only the
// rightmost digits + decimals + 1 characters kept. Not a number gives "".
std::string formatField(int digits, int decimals, std::string_view text);

// A single-precision value as text, with up to seven significant digits.
std::string singleToText(float value);

} // namespace tw
