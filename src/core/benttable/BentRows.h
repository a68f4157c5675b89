// SPDX-License-Identifier: Apache-2.0
// Bent rows as a spreadsheet holds them: comma-separated (RFC 4180) or
// tab-separated text, read into records and written back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tw {

class BentTable;

using Cells = std::vector<std::string>;

// One record of delimited text and the line it starts on (from 1).
struct Record {
    Cells cells;
    int line = 0;
};

// Text as spreadsheets export it, as UTF-8: a byte-order mark goes, and
// text in UTF-16 (which begins with one) is turned into UTF-8.
std::string spreadsheetText(std::string_view bytes);

// Reads delimited text. A cell in double quotes may hold the separator, line
// breaks and doubled quotes; CR LF and LF both end a record. Blank lines and
// rows of empty cells are skipped.
std::vector<Record> readDelimited(const std::string& text, char separator);
// The separator of pasted text: a tab when its first line holds one, else a comma.
char separatorOf(const std::string& text);

// One CSV record, each cell quoted where it needs to be, ended by CR LF.
std::string csvRecord(const Cells& cells);
// Rows `from` to `to` of the table, the heading row first: as CSV, or as
// tab-separated lines (what spreadsheets paste).
std::string tableCsv(const BentTable& table, int from, int to);
std::string tableTsv(const BentTable& table, int from, int to);

} // namespace tw
