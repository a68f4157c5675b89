// SPDX-License-Identifier: Apache-2.0
#include "core/model/Numeric.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tw {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the number at the start of s (0 when none): sign, digits, point, exponent.
size_t numberLength(std::string_view s) {
    size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t digits = 0;
    while (i < s.size() && isDigit(s[i]))
        ++i, ++digits;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && isDigit(s[i]))
            ++i, ++digits;
    }
    if (digits == 0) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
        size_t expDigits = 0;
        while (j < s.size() && isDigit(s[j]))
            ++j, ++expDigits;
        if (expDigits > 0) i = j;
    }
    return i;
}

// Rounds a plain decimal text (sign, digits, optional point) to `decimals`
// places, halves away from zero, exactly on the digits.
std::string roundDecimalText(std::string_view s, int decimals) {
    bool negative = false;
    size_t i = 0;
    if (s[i] == '+' || s[i] == '-') negative = s[i++] == '-';
    std::string intPart, fracPart;
    while (i < s.size() && isDigit(s[i]))
        intPart += s[i++];
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && isDigit(s[i]))
            fracPart += s[i++];
    }
    if (intPart.empty()) intPart.push_back('0');
    bool roundUp = static_cast<int>(fracPart.size()) > decimals && fracPart[decimals] >= '5';
    fracPart.resize(decimals, '0');
    std::string digits = intPart + fracPart;
    if (roundUp) {
        int k = static_cast<int>(digits.size()) - 1;
        while (k >= 0 && digits[k] == '9')
            digits[k--] = '0';
        if (k >= 0)
            ++digits[k];
        else
            digits.insert(digits.begin(), '1');
    }
    std::string whole = digits.substr(0, digits.size() - decimals);
    std::string frac = digits.substr(digits.size() - decimals);
    size_t nz = whole.find_first_not_of('0');
    whole = nz == std::string::npos ? "0" : whole.substr(nz);
    bool zero = whole == "0" && frac.find_first_not_of('0') == std::string::npos;
    std::string out;
    if (negative && !zero) out.push_back('-');
    out.append(whole);
    if (decimals > 0) {
        out.push_back('.');
        out.append(frac);
    }
    return out;
}

} // namespace

std::string trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && isBlank(s[b]))
        ++b;
    while (e > b && isBlank(s[e - 1]))
        --e;
    return std::string(s.substr(b, e - b));
}

bool isNumeric(std::string_view text) {
    std::string t = trim(text);
    if (t.empty()) return false;
    return numberLength(t) == t.size();
}

double leadingNumber(std::string_view text) {
    size_t b = 0;
    while (b < text.size() && isBlank(text[b]))
        ++b;
    std::string_view s = text.substr(b);
    size_t n = numberLength(s);
    if (n == 0) return 0.0;
    return std::strtod(std::string(s.substr(0, n)).c_str(), nullptr);
}

std::string formatField(int digits, int decimals, std::string_view text) {
    if (!isNumeric(text)) return "";
    std::string t = trim(text);
    std::string fixed;
    if (t.find_first_of("eE") != std::string::npos) {
        char buf[512];
        std::snprintf(buf, sizeof buf, "%.*f", decimals + 12, std::strtod(t.c_str(), nullptr));
        fixed = roundDecimalText(buf, decimals);
    } else {
        fixed = roundDecimalText(t, decimals);
    }
    const size_t width = static_cast<size_t>(digits + decimals + 1);
    if (fixed.size() > width) fixed = fixed.substr(fixed.size() - width);
    return fixed;
}

std::string singleToText(float value) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.7g", static_cast<double>(value));
    return buf;
}

} // namespace tw
