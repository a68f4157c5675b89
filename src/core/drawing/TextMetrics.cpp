// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/TextMetrics.h"

#include <algorithm>

namespace tw::drawing {

int lineCount(std::string_view text) { return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

double textWidthEm(std::string_view text) {
    double widest = 0, w = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == '\n') {
            widest = std::max(widest, w);
            w = 0;
            continue;
        }
        if ((c & 0xC0) == 0x80) continue; // the rest of a character already counted
        if (c >= '0' && c <= '9')
            w += 0.64;
        else if (c == ' ' || c == '.' || c == ',' || c == ':' || c == ';')
            w += 0.32;
        else if (c == 'i' || c == 'l' || c == 'j' || c == 'I' || c == '\'' || c == '|' || c == '!')
            w += 0.28;
        else if (c == 'f' || c == 't' || c == 'r' || c == '(' || c == ')' || c == '-' || c == '"')
            w += 0.42;
        else if (c == 'm' || c == 'w' || c == 'M' || c == 'W')
            w += 0.98;
        else if (c >= 'A' && c <= 'Z')
            w += 0.74;
        else
            w += 0.62;
    }
    return std::max(widest, w);
}

namespace {

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Where the character after the one at `i` starts.
std::size_t nextChar(std::string_view s, std::size_t i) {
    ++i;
    while (i < s.size() && continues(s[i]))
        ++i;
    return i;
}

} // namespace

std::string fitText(std::string_view text, double roomEm, std::size_t maxLines) {
    std::string out, line;
    std::size_t done = 0; // lines in `out`
    double width = 0;     // of `line`
    bool more = false;    // text left over when the lines ran out
    auto endLine = [&] {
        if (done == maxLines - 1) return false;
        out += (done++ ? "\n" : "") + line;
        line.clear();
        width = 0;
        return true;
    };
    std::size_t i = 0;
    while (i < text.size() && !more) {
        const std::size_t start = text.find_first_not_of(' ', i);
        if (start == std::string_view::npos) break;
        std::size_t end = text.find(' ', start);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view gap = text.substr(i, start - i), word = text.substr(start, end - start);
        const double gapWidth = textWidthEm(gap), wordWidth = textWidthEm(word);
        i = end;
        // The blanks between words stay as typed where both words share a line.
        if (!line.empty() && width + gapWidth + wordWidth <= roomEm) {
            line.append(gap).append(word);
            width += gapWidth + wordWidth;
            continue;
        }
        if (!line.empty() && !endLine()) {
            more = true;
            break;
        }
        if (wordWidth <= roomEm) {
            line.assign(word);
            width = wordWidth;
            continue;
        }
        // A word wider than a line is cut where the line is full (a character a line at least).
        for (std::size_t j = 0; j < word.size();) {
            const std::size_t k = nextChar(word, j);
            const double w = textWidthEm(word.substr(j, k - j));
            if (!line.empty() && width + w > roomEm && !endLine()) {
                more = true;
                break;
            }
            line.append(word.substr(j, k - j));
            width += w;
            j = k;
        }
    }
    if (more) {
        const std::string_view ellipsis = "\xE2\x80\xA6";
        const double room = roomEm - textWidthEm(ellipsis);
        while (!line.empty() && (width > room || line.back() == ' ')) {
            std::size_t last = line.size() - 1;
            while (last > 0 && continues(line[last]))
                --last;
            width -= textWidthEm(std::string_view(line).substr(last));
            line.erase(last);
        }
        line.append(ellipsis);
    }
    if (!line.empty() || done == 0) out += (done ? "\n" : "") + line;
    return out;
}

TextFrame textFrame(const std::string& text, HAlign h, VAlign v) {
    const double w = textWidthEm(text);
    const double extra = (lineCount(text) - 1) * kLineSpacing;
    TextFrame f{0, w, 0, 0};
    if (h == HAlign::Center) f = {-w / 2, w / 2, 0, 0};
    if (h == HAlign::Right) f = {-w, 0, 0, 0};
    double top = kAscent; // of the first line, above the anchor
    switch (v) {
    case VAlign::Baseline: break;
    case VAlign::Bottom: top = kAscent + kDescent; break;
    case VAlign::Middle: top = (kAscent + kDescent) / 2; break;
    case VAlign::Top: top = 0; break;
    }
    f.y1 = top;
    f.y0 = top - kAscent - kDescent - extra;
    return f;
}

} // namespace tw::drawing
