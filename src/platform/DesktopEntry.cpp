// SPDX-License-Identifier: Apache-2.0
#include "platform/DesktopEntry.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace tw {

namespace {

std::string env(const char* name) {
    const char* v = std::getenv(name);
    return v ? v : "";
}

std::string trim(const std::string& s) {
    const auto a = s.find_first_not_of(" \t\r");
    if (a == std::string::npos) return {};
    return s.substr(a, s.find_last_not_of(" \t\r") - a + 1);
}

// The string escapes of a desktop entry value.
std::string unescapeValue(const std::string& v) {
    std::string out;
    for (size_t i = 0; i < v.size(); ++i) {
        if (v[i] != '\\' || i + 1 >= v.size()) {
            out += v[i];
            continue;
        }
        switch (v[++i]) {
        case 's': out += ' '; break;
        case 'n': out += '\n'; break;
        case 't': out += '\t'; break;
        case 'r': out += '\r'; break;
        case '\\': out += '\\'; break;
        default: out += '\\'; out += v[i];
        }
    }
    return out;
}

struct Word {
    std::string text;
    bool quoted = false;
};

// Exec's own quoting: blanks separate words; inside double quotes a
// backslash escapes ", `, $ and itself.
std::vector<Word> splitExec(const std::string& exec) {
    std::vector<Word> words;
    size_t i = 0;
    while (i < exec.size()) {
        if (exec[i] == ' ' || exec[i] == '\t') {
            ++i;
            continue;
        }
        Word w;
        while (i < exec.size() && exec[i] != ' ' && exec[i] != '\t') {
            if (exec[i] != '"') {
                w.text += exec[i++];
                continue;
            }
            w.quoted = true;
            for (++i; i < exec.size() && exec[i] != '"'; ++i) {
                if (exec[i] == '\\' && i + 1 < exec.size()) ++i;
                w.text += exec[i];
            }
            if (i < exec.size()) ++i; // the closing quote
        }
        words.push_back(std::move(w));
    }
    return words;
}

bool isFileCode(char c) { return c == 'f' || c == 'F' || c == 'u' || c == 'U'; }

// One word with its field codes worked out: the file placeholder (true), or
// its text with %% made % and the other codes dropped.
bool expandWord(const std::string& word, std::string& text) {
    text.clear();
    for (size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%' || i + 1 >= word.size()) {
            text += word[i];
            continue;
        }
        const char code = word[++i];
        if (isFileCode(code)) return true;
        if (code == '%') text += '%';
    }
    return false;
}

// Quoted the way the program's own command splitter reads it back.
std::string quoteArg(const std::string& a) {
    if (!a.empty() && a.find_first_of(" \t\"") == std::string::npos) return a;
    std::string out = "\"";
    for (char c : a)
        out += c == '"' ? std::string("\"\"\"") : std::string(1, c);
    return out + "\"";
}

} // namespace

std::vector<std::string> xdgDataDirs() {
    std::vector<std::string> dirs;
    std::string home = env("XDG_DATA_HOME");
    if (home.empty() && !env("HOME").empty()) home = env("HOME") + "/.local/share";
    if (!home.empty()) dirs.push_back(home);
    std::string system = env("XDG_DATA_DIRS");
    if (system.empty()) system = "/usr/local/share:/usr/share";
    std::stringstream parts(system);
    for (std::string d; std::getline(parts, d, ':');)
        if (!d.empty()) dirs.push_back(d);
    return dirs;
}

std::string findDesktopEntry(const std::string& id, const std::vector<std::string>& dataDirs) {
    if (id.empty() || id.find('/') != std::string::npos || id.find("..") != std::string::npos) return {};
    std::vector<size_t> dashes;
    for (size_t i = 0; i < id.size(); ++i)
        if (id[i] == '-') dashes.push_back(i);
    // Every way of reading the dashes as subfolders, the plain name first; few ids have more than a handful.
    const size_t ways = dashes.size() <= 10 ? (size_t{1} << dashes.size()) : 1;
    std::error_code ec;
    for (const auto& dir : dataDirs) {
        for (size_t mask = 0; mask < ways; ++mask) {
            std::string relative = id;
            for (size_t k = 0; k < dashes.size(); ++k)
                if (mask & (size_t{1} << k)) relative[dashes[k]] = '/';
            const std::string path = dir + "/applications/" + relative;
            if (std::filesystem::is_regular_file(path, ec)) return path;
        }
    }
    return {};
}

std::optional<std::string> desktopEntryExec(const std::string& text) {
    std::stringstream lines(text);
    bool inEntry = false;
    for (std::string line; std::getline(lines, line);) {
        line = trim(line);
        if (line.empty() || line[0] == '#') continue;
        if (line[0] == '[') {
            inEntry = line == "[Desktop Entry]";
            continue;
        }
        if (!inEntry) continue;
        const auto eq = line.find('=');
        if (eq == std::string::npos || trim(line.substr(0, eq)) != "Exec") continue;
        return unescapeValue(trim(line.substr(eq + 1)));
    }
    return std::nullopt;
}

std::optional<std::string> openCommandFromExec(const std::string& exec) {
    std::string command;
    bool placed = false;
    for (const Word& w : splitExec(exec)) {
        std::string text;
        const bool file = expandWord(w.text, text);
        if (file) {
            if (placed) continue;
            if (command.empty()) return std::nullopt; // no program before the file
            command += " \"%1\"";
            placed = true;
            continue;
        }
        if (text.empty() && !w.quoted && !w.text.empty()) continue; // only field codes
        if (command.empty() && text.empty()) return std::nullopt;   // an empty program
        if (!placed && text.find('%') != std::string::npos) return std::nullopt;
        if (!command.empty()) command += ' ';
        command += quoteArg(text);
    }
    if (command.empty()) return std::nullopt;
    if (!placed) command += " \"%1\"";
    return command;
}

} // namespace tw
