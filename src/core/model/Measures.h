// SPDX-License-Identifier: Apache-2.0
// Lengths, elevations and angles as the engineer reads them on a drawing, in
// a comparison or in the report's drawings: one formatter for all of them,
// so that a value never reads two ways. The form and the input file keep
// their own texts (four decimals, two, degrees-minutes-seconds in three
// fields); these are for reading only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tw {

// How lengths read: feet and inches to the nearest sixteenth (4'-3",
// 2'-8 3/4"), or decimal feet with the foot mark (4.25').
enum class LengthUnits { FeetInches, DecimalFeet };

// The names the command line and the settings store use: "feet-inches", "decimal-feet".
std::string_view unitsName(LengthUnits units);
std::optional<LengthUnits> unitsNamed(std::string_view name);

// A length in feet.
std::string formatLength(double feet, LengthUnits units);
// A length as typed: "" for a blank, the text itself when it is no number.
std::string lengthText(std::string_view typed, LengthUnits units);

// An elevation as typed, "EL. 300.77": two decimals, or as many as were
// typed where more were; "" for a blank, the text itself when it is no number.
std::string elevationText(std::string_view typed);

// An angle in degrees, minutes and seconds, 90°00'00": minutes and seconds
// with two digits, the seconds' tenth only when there is one; a second
// rounding to 60 carries into the minute, a minute into the degree.
std::string formatAngle(double degrees);
// An angle as typed in its three fields (blank minutes or seconds are 0):
// "" when all three are blank, the degrees' text itself when it is no number.
std::string angleText(std::string_view degrees, std::string_view minutes, std::string_view seconds);

} // namespace tw
