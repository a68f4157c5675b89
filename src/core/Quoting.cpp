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
