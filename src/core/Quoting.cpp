// SPDX-License-Identifier: Apache-2.0
#include "core/Quoting.h"

namespace tw {

std::string quote(std::string_view text) {
    std::string out = "\"";
    for (char c : text) {
        switch (c) {
        case '\\': out += "\\\\"; break;
        case '"': out += "\\\""; break;
        case '\t': out += "\\t"; break;
        case '\r': out += "\\r"; break;
        case '\n': out += "\\n"; break;
        default: out += c;
        }
    }
    return out + "\"";
}

std::string oneLine(std::string_view text) {
    const std::string q = quote(text);
    return q.substr(1, q.size() - 2);
}

std::string printableText(std::string_view text) {
    static const char* const kHex = "0123456789ABCDEF";
    std::string out;
    const auto escape = [&](unsigned char b) {
        out += "\\x";
        out += kHex[b >> 4];
        out += kHex[b & 0xF];
    };
    for (size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        const size_t length = c < 0x80                ? 1
                              : c >= 0xC2 && c < 0xE0 ? 2
                              : c >= 0xE0 && c < 0xF0 ? 3
                              : c >= 0xF0 && c < 0xF5 ? 4
                                                      : 0;
        bool whole = length > 0 && i + length <= text.size();
        for (size_t k = 1; whole && k < length; ++k)
            whole = (static_cast<unsigned char>(text[i + k]) & 0xC0) == 0x80;
        // A C1 control is U+0080 to U+009F: C2 80 to C2 9F.
        const bool control =
            c < 0x20 || c == 0x7F || (whole && c == 0xC2 && static_cast<unsigned char>(text[i + 1]) < 0xA0);
        if (!whole || control) {
            for (size_t k = 0; k < (whole ? length : 1); ++k)
                escape(static_cast<unsigned char>(text[i + k]));
            i += whole ? length : 1;
            continue;
        }
        out.append(text.substr(i, length));
        i += length;
    }
    return out;
}

std::optional<std::vector<ScriptWord>> splitScriptLine(std::string_view line, std::string& error) {
    std::vector<ScriptWord> words;
    size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t' || line[i] == '\r'))
            ++i;
        if (i >= line.size()) break;
        ScriptWord w;
        if (line[i] == '"') {
            w.quoted = true;
            ++i;
            bool closed = false;
            while (i < line.size()) {
                char c = line[i++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c != '\\') {
                    w.text += c;
                    continue;
                }
                if (i >= line.size()) break;
                switch (line[i++]) {
                case '\\': w.text += '\\'; break;
                case '"': w.text += '"'; break;
                case 't': w.text += '\t'; break;
                case 'r': w.text += '\r'; break;
                case 'n': w.text += '\n'; break;
                case 'b': w.text += '\b'; break;
                default: error = "unknown escape in a quoted word"; return std::nullopt;
                }
            }
            if (!closed) {
                error = "a quoted word is not closed";
                return std::nullopt;
            }
        } else {
            while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r')
                w.text += line[i++];
        }
        words.push_back(std::move(w));
    }
    return words;
}

} // namespace tw
