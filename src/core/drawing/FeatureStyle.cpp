// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/FeatureStyle.h"

#include <cctype>
#include <charconv>
#include <cmath>

namespace tw::drawing {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view trimmed(std::string_view s) {
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

std::string upper(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

// Reads the parameters of one tool from `s` at `i` (just after its "(")
// up to the closing ")". GDAL does not escape quotes inside a label's
// text, so a quote closes a string only where a "," or ")" follows it.
std::vector<std::pair<std::string, std::string>> readParams(std::string_view s, size_t& i) {
    std::vector<std::pair<std::string, std::string>> params;
    while (i < s.size() && s[i] != ')') {
        const size_t keyStart = i;
        while (i < s.size() && s[i] != ':' && s[i] != ',' && s[i] != ')')
            ++i;
        const std::string key(trimmed(s.substr(keyStart, i - keyStart)));
        std::string value;
        if (i < s.size() && s[i] == ':') {
            ++i;
            while (i < s.size() && isBlank(s[i]))
                ++i;
            if (i < s.size() && s[i] == '"') {
                ++i;
                for (; i < s.size(); ++i) {
                    if (s[i] == '\\' && i + 1 < s.size() && (s[i + 1] == '"' || s[i + 1] == '\\')) {
                        value += s[++i];
                        continue;
                    }
                    if (s[i] == '"') {
                        size_t next = i + 1;
                        while (next < s.size() && isBlank(s[next]))
                            ++next;
                        if (next >= s.size() || s[next] == ',' || s[next] == ')') {
                            i = next;
                            break;
                        }
                    }
                    value += s[i];
                }
            } else {
                const size_t valueStart = i;
                while (i < s.size() && s[i] != ',' && s[i] != ')')
                    ++i;
                value = std::string(trimmed(s.substr(valueStart, i - valueStart)));
            }
        }
        if (!key.empty()) params.emplace_back(key, std::move(value));
        if (i < s.size() && s[i] == ',') ++i;
    }
    if (i < s.size()) ++i; // the ")"
    return params;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

} // namespace

std::optional<std::string> StyleTool::get(std::string_view key) const {
    for (const auto& [k, v] : params)
        if (k == key) return v;
    return std::nullopt;
}

std::vector<StyleTool> parseFeatureStyle(std::string_view s) {
    std::vector<StyleTool> tools;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && (isBlank(s[i]) || s[i] == ';'))
            ++i;
        const size_t nameStart = i;
        while (i < s.size() && s[i] != '(' && s[i] != ';')
            ++i;
        const std::string_view name = trimmed(s.substr(nameStart, i - nameStart));
        if (i >= s.size() || s[i] == ';') continue; // a reference to a style table, or a stray word
        ++i;
        StyleTool tool;
        tool.name = upper(name);
        tool.params = readParams(s, i);
        if (!tool.name.empty()) tools.push_back(std::move(tool));
    }
    return tools;
}

std::optional<Color> parseStyleColor(std::string_view text) {
    text = trimmed(text);
    if (text.size() != 7 && text.size() != 9) return std::nullopt;
    if (text[0] != '#') return std::nullopt;
    int v[3];
    for (int k = 0; k < 3; ++k) {
        const int hi = hexDigit(text[1 + 2 * k]), lo = hexDigit(text[2 + 2 * k]);
        if (hi < 0 || lo < 0) return std::nullopt;
        v[k] = hi * 16 + lo;
    }
    if (text.size() == 9 && (hexDigit(text[7]) < 0 || hexDigit(text[8]) < 0)) return std::nullopt;
    return Color{static_cast<std::uint8_t>(v[0]), static_cast<std::uint8_t>(v[1]), static_cast<std::uint8_t>(v[2])};
}

std::optional<double> StyleSize::millimetres() const {
    switch (unit) {
    case Unit::Ground: return std::nullopt;
    case Unit::Pixel: return value * 25.4 / 96;
    case Unit::Point: return value * 25.4 / 72;
    case Unit::Millimetre: return value;
    case Unit::Centimetre: return value * 10;
    case Unit::Inch: return value * 25.4;
    }
    return std::nullopt;
}

std::optional<StyleSize> parseStyleSize(std::string_view text) {
    text = trimmed(text);
    StyleSize size;
    const char* end = text.data() + text.size();
    const auto [rest, ec] = std::from_chars(text.data(), end, size.value);
    if (ec != std::errc() || !std::isfinite(size.value)) return std::nullopt;
    const std::string unit = upper(trimmed(std::string_view(rest, static_cast<size_t>(end - rest))));
    if (unit.empty() || unit == "MM")
        size.unit = StyleSize::Unit::Millimetre;
    else if (unit == "G")
        size.unit = StyleSize::Unit::Ground;
    else if (unit == "PX")
        size.unit = StyleSize::Unit::Pixel;
    else if (unit == "PT")
        size.unit = StyleSize::Unit::Point;
    else if (unit == "CM")
        size.unit = StyleSize::Unit::Centimetre;
    else if (unit == "IN")
        size.unit = StyleSize::Unit::Inch;
    else
        return std::nullopt;
    return size;
}

} // namespace tw::drawing
