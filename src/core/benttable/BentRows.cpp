// SPDX-License-Identifier: Apache-2.0
#include "core/benttable/BentRows.h"

#include "core/model/BentTable.h"
#include "core/model/Utf8.h"

#include <algorithm>

namespace tw {

std::string spreadsheetText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return std::string(bytes.substr(3));
    const bool little = bytes.starts_with("\xFF\xFE"), big = bytes.starts_with("\xFE\xFF");
    if (!little && !big) return std::string(bytes);
    std::string out;
    auto unit = [&](size_t i) {
        const auto a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
        return static_cast<char32_t>(little ? a | b << 8 : a << 8 | b);
    };
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
        char32_t c = unit(i);
        if (c >= 0xD800 && c < 0xDC00 && i + 3 < bytes.size() && unit(i + 2) >= 0xDC00 && unit(i + 2) < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
            i += 2;
        } else if (c >= 0xD800 && c < 0xE000) {
            c = 0xFFFD; // half of a pair
        }
        out += utf8Encode(c);
    }
    return out;
}

std::vector<Record> readDelimited(const std::string& text, char separator) {
    std::vector<Record> records;
    Record current;
    std::string cell;
    bool quoted = false, started = false;
    int line = 1;
    current.line = 1;
    auto endCell = [&] {
        current.cells.push_back(std::move(cell));
        cell.clear();
        started = false;
    };
    auto endRecord = [&] {
        endCell();
        // A row of empty cells is what a spreadsheet exports below its data.
        const bool blank =
            std::all_of(current.cells.begin(), current.cells.end(), [](const std::string& c) { return c.empty(); });
        if (!blank) records.push_back(std::move(current));
        current = Record{};
        current.line = line;
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
                cell += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                if (c == '\n') ++line;
                cell += c;
            }
            continue;
        }
        if (c == '"' && !started) {
            quoted = started = true;
        } else if (c == separator) {
            endCell();
        } else if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            continue; // the LF ends the record
        } else if (c == '\n') {
            ++line;
            endRecord();
        } else {
            cell += c;
            started = true;
        }
    }
    if (!cell.empty() || started || !current.cells.empty()) endRecord();
    return records;
}

char separatorOf(const std::string& text) {
    const std::string first = text.substr(0, text.find('\n'));
    return first.find('\t') != std::string::npos ? '\t' : ',';
}

std::string csvRecord(const Cells& cells) {
    std::string out;
    for (size_t i = 0; i < cells.size(); ++i) {
        if (i) out += ',';
        const std::string& c = cells[i];
        if (c.find_first_of(",\"\r\n") == std::string::npos && (c.empty() || (c.front() != ' ' && c.back() != ' '))) {
            out += c;
            continue;
        }
        out += '"';
        for (char ch : c) {
            if (ch == '"') out += '"';
            out += ch;
        }
        out += '"';
    }
    return out + "\r\n";
}

namespace {

std::vector<int> rowsOf(const BentTable& table, int from, int to) {
    std::vector<int> rows{0};
    for (int r = std::max(from, 1); r <= to && r < table.rows(); ++r)
        rows.push_back(r);
    return rows;
}

} // namespace

std::string tableCsv(const BentTable& table, int from, int to) {
    std::string out;
    for (int r : rowsOf(table, from, to))
        out += csvRecord(table.rowCells(r));
    return out;
}

std::string tableTsv(const BentTable& table, int from, int to) {
    std::string out;
    for (int r : rowsOf(table, from, to)) {
        const auto& cells = table.rowCells(r);
        for (size_t c = 0; c < cells.size(); ++c)
            out += (c ? "\t" : "") + cells[c];
        out += '\n';
    }
    return out;
}

} // namespace tw
