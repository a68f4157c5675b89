// SPDX-License-Identifier: Apache-2.0
// Delimited text as spreadsheets write it, read into records and written back.
#include "core/benttable/BentRows.h"

#include <gtest/gtest.h>

namespace tw {
namespace {

struct Reading {
    const char* name;
    std::string text;
    char separator;
    std::vector<Cells> cells;
    std::vector<int> lines;
};

TEST(BentRows, RecordsReadAsSpreadsheetsWriteThem) {
    const Reading cases[] = {
        {"plain comma", "1,2,3\n", ',', {{"1", "2", "3"}}, {1}},
        {"no final line break", "1,2", ',', {{"1", "2"}}, {1}},
        {"CR LF lines", "1,2\r\n3,4\r\n", ',', {{"1", "2"}, {"3", "4"}}, {1, 2}},
        {"empty cells kept", "1,,\n", ',', {{"1", "", ""}}, {1}},
        {"rows of empty cells skipped", ",,\n1,,\n,,\n", ',', {{"1", "", ""}}, {2}},
        {"blank lines skipped", "1\n\n\r\n2\n", ',', {{"1"}, {"2"}}, {1, 4}},
        {"separator in quotes", "\"a,b\",c\n", ',', {{"a,b", "c"}}, {1}},
        {"doubled quote", "\"say \"\"hi\"\"\",x\n", ',', {{"say \"hi\"", "x"}}, {1}},
        {"line break in quotes counts", "\"a\nb\",c\nd,e\n", ',', {{"a\nb", "c"}, {"d", "e"}}, {1, 3}},
        {"tabs", "1\t2\t\n", '\t', {{"1", "2", ""}}, {1}},
        {"a comma is a character in tab-separated text", "1,5\t2\n", '\t', {{"1,5", "2"}}, {1}},
        {"a quote inside a cell is kept", "ab\"c,d\n", ',', {{"ab\"c", "d"}}, {1}},
    };
    for (const auto& c : cases) {
        const auto records = readDelimited(c.text, c.separator);
        ASSERT_EQ(records.size(), c.cells.size()) << c.name;
        for (size_t i = 0; i < records.size(); ++i) {
            EXPECT_EQ(records[i].cells, c.cells[i]) << c.name << ", record " << i;
            EXPECT_EQ(records[i].line, c.lines[i]) << c.name << ", record " << i;
        }
    }
}

TEST(BentRows, PastedTextIsTabSeparatedWhenItsFirstLineHoldsATab) {
    EXPECT_EQ(separatorOf("a\tb\nc,d"), '\t');
    EXPECT_EQ(separatorOf("a,b\nc\td"), ',');
    EXPECT_EQ(separatorOf(""), ',');
}

TEST(BentRows, CsvQuotesOnlyWhatNeedsIt) {
    EXPECT_EQ(csvRecord({"7", "", "101.25"}), "7,,101.25\r\n");
    EXPECT_EQ(csvRecord({"a,b", "say \"hi\"", "two\nlines"}), "\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\"\r\n");
    // Blanks around a value survive a spreadsheet only in quotes.
    EXPECT_EQ(csvRecord({" 5", "5 "}), "\" 5\",\"5 \"\r\n");
    for (const Cells& cells : {Cells{"a,b", "\"", ""}, Cells{" x", "y\r\nz"}}) {
        const auto back = readDelimited(csvRecord(cells), ',');
        ASSERT_EQ(back.size(), 1u);
        EXPECT_EQ(back[0].cells, cells);
    }
}

} // namespace
} // namespace tw
