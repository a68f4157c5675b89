// SPDX-License-Identifier: Apache-2.0
#include "core/model/Measures.h"

#include "core/model/Numeric.h"

#include <cmath>
#include <cstdio>
#include <numeric>

namespace tw {

namespace {

constexpr const char* kDegree = "\xC2\xB0";

std::string twoDigits(long long v) { return (v < 10 ? "0" : "") + std::to_string(v); }

// The whole units of `magnitude` counted in steps of 1/`per`, rounded half away from zero.
long long steps(double magnitude, double per) { return std::llround(std::abs(magnitude) * per); }

std::string feetAndInches(double feet) {
    const long long sixteenths = steps(feet, 12 * 16);
    const long long ft = sixteenths / 192, inches = sixteenths % 192 / 16;
    long long num = sixteenths % 16, den = 16;
    std::string out = (feet < 0 && sixteenths > 0 ? "-" : "") + std::to_string(ft) + "'-" + std::to_string(inches);
    if (num > 0) {
        const long long g = std::gcd(num, den);
        num /= g;
        den /= g;
        out += " " + std::to_string(num) + "/" + std::to_string(den);
    }
    return out + "\"";
}

// Four decimals at most, as the fields hold them; two at least, so that a column of them lines up.
std::string decimalFeet(double feet) {
    const long long tenThousandths = steps(feet, 10000);
    std::string decimals = std::to_string(tenThousandths % 10000);
    decimals.insert(0, 4 - decimals.size(), '0');
    while (decimals.size() > 2 && decimals.back() == '0')
        decimals.pop_back();
    return (feet < 0 && tenThousandths > 0 ? "-" : "") + std::to_string(tenThousandths / 10000) + "." + decimals + "'";
}

// The decimals typed after the point, up to an exponent; none for an exponent form.
int typedDecimals(std::string_view t) {
    if (t.find_first_of("eE") != std::string_view::npos) return 0;
    const auto point = t.find('.');
    if (point == std::string_view::npos) return 0;
    int n = 0;
    for (std::size_t i = point + 1; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i)
        ++n;
    return n;
}

} // namespace

std::string_view unitsName(LengthUnits units) {
    return units == LengthUnits::DecimalFeet ? "decimal-feet" : "feet-inches";
}

std::optional<LengthUnits> unitsNamed(std::string_view name) {
    for (LengthUnits u : {LengthUnits::FeetInches, LengthUnits::DecimalFeet})
        if (name == unitsName(u)) return u;
    return std::nullopt;
}

std::string formatLength(double feet, LengthUnits units) {
    if (!std::isfinite(feet)) return "?";
    return units == LengthUnits::DecimalFeet ? decimalFeet(feet) : feetAndInches(feet);
}

std::string lengthText(std::string_view typed, LengthUnits units) {
    const std::string t = trim(typed);
    if (!isNumeric(t)) return t;
    return formatLength(leadingNumber(t), units);
}

std::string elevationText(std::string_view typed) {
    const std::string t = trim(typed);
    if (!isNumeric(t)) return t;
    const int decimals = std::max(2, typedDecimals(t));
    const double v = leadingNumber(t);
    const int size = std::snprintf(nullptr, 0, "%.*f", decimals, v);
    std::string number(static_cast<std::size_t>(size), '\0');
    std::snprintf(number.data(), number.size() + 1, "%.*f", decimals, v);
    return "EL. " + number;
}

namespace {

std::string angleOfTenths(long long tenths, bool negative) { // tenths of a second
    const long long d = tenths / 36000, m = tenths % 36000 / 600, s = tenths % 600 / 10, t = tenths % 10;
    std::string out =
        (negative && tenths > 0 ? "-" : "") + std::to_string(d) + kDegree + twoDigits(m) + "'" + twoDigits(s);
    if (t > 0) out += "." + std::to_string(t);
    return out + "\"";
}

} // namespace

std::string formatAngle(double degrees) {
    if (!std::isfinite(degrees)) return "?";
    return angleOfTenths(steps(degrees, 36000), degrees < 0);
}

std::string angleText(std::string_view degrees, std::string_view minutes, std::string_view seconds) {
    const std::string d = trim(degrees), m = trim(minutes), s = trim(seconds);
    if (d.empty() && m.empty() && s.empty()) return "";
    auto part = [](const std::string& t) { return t.empty() || isNumeric(t); };
    if (!part(d) || !part(m) || !part(s)) return d + kDegree + m + "'" + s + "\"";
    // Counted in tenths of a second from the parts as typed, so that 59.95" is the half it reads as.
    // The sign of the degrees carries the whole angle.
    const double tenths = std::abs(leadingNumber(d)) * 36000 + leadingNumber(m) * 600 + leadingNumber(s) * 10;
    if (!std::isfinite(tenths)) return "?";
    return angleOfTenths(std::llround(std::abs(tenths)), d.starts_with('-'));
}

} // namespace tw
