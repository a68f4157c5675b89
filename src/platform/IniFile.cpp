// SPDX-License-Identifier: Apache-2.0
#include "platform/Platform.h"

#include "platform/FileRead.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace tw {

namespace {

std::string lower(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
    return s;
}

std::string trimBlanks(const std::string& s) {
    size_t b = s.find_first_not_of(" \t\r\n");
    if (b == std::string::npos) return "";
    size_t e = s.find_last_not_of(" \t\r\n");
    return s.substr(b, e - b + 1);
}

} // namespace

std::string readIniRaw(const std::string& path, const std::string& section, const std::string& key,
                       const std::string& defaultValue) {
    constexpr size_t kMax = 255;
    // Only a regular file of a settings file's size: a pipe or a device reads as no file.
    const ReadResult file = readRegularFile(path, kMaxIniBytes);
    std::istringstream in(file.bytes);
    std::string result = defaultValue;
    if (!file.errorNumber) {
        const std::string wantSection = lower(section);
        const std::string wantKey = lower(key);
        bool inSection = false;
        std::string line;
        while (std::getline(in, line)) {
            std::string t = trimBlanks(line);
            if (t.empty() || t[0] == ';') continue;
            if (t[0] == '[') {
                auto close = t.find(']');
                inSection = close != std::string::npos && lower(trimBlanks(t.substr(1, close - 1))) == wantSection;
                continue;
            }
            if (!inSection) continue;
            auto eq = t.find('=');
            if (eq == std::string::npos || lower(trimBlanks(t.substr(0, eq))) != wantKey) continue;
            std::string value = trimBlanks(t.substr(eq + 1));
            if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
                value = value.substr(1, value.size() - 2);
            result = value;
            break;
        }
    }
    if (result.size() > kMax) result.resize(kMax);
    return result;
}

} // namespace tw
