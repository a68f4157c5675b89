// SPDX-License-Identifier: Apache-2.0
// The bent table as the project holds it: a heading row 0 and one row per
// bent, every cell a text. Rows are shared between copies of the table and
// replaced, never changed, so a copy costs a pointer a row: the history keeps
// the tables it replaced. Operations the old grid refused raise the same
// run-time errors it did, so commands report them alike.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tw {

class BentTable {
  public:
    using Row = std::vector<std::string>;

    BentTable();

    // Rows and columns as the grid counts them: the heading row included.
    int rows() const { return static_cast<int>(rows_.size()); }
    int cols() const { return cols_; }
    void setRows(int n);
    void setCols(int n);

    const std::string& cell(int r, int c) const;
    void setCell(int r, int c, const std::string& text);
    const Row& rowCells(int r) const;
    // Row r is the very row of `other` (not only the same texts): a cheap test of what changed.
    bool sharesRow(const BentTable& other, int r) const;

    // Adds a row from tab-separated cell texts at `position` (-1: at the end).
    void addItem(const std::string& tabbedCells, int position = -1);
    void removeItem(int r);
    // Rows a and b change places.
    void swapRows(int a, int b);

    int colWidth(int c) const { return widths_.at(static_cast<size_t>(c)); }
    void setColWidth(int c, int twips);
    bool colCentred(int c) const { return centred_.at(static_cast<size_t>(c)) != 0; }
    void setColCentred(int c, bool centred);

    friend bool operator==(const BentTable& a, const BentTable& b);

  private:
    void checkRow(int r) const;
    void checkCol(int c) const;

    int cols_ = 7;
    std::vector<std::shared_ptr<const Row>> rows_;
    std::vector<int> widths_;
    std::vector<char> centred_;
};

} // namespace tw
