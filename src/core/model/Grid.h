// The bent table as the grid holds it: a header row 0 and one row per bent,
// every cell a text. Row operations that the grid refuses raise the same
// run-time errors the old grid control did, so commands report them alike.
#pragma once

#include <string>
#include <vector>

namespace tw {

class Grid {
  public:
    Grid();

    int rows() const { return static_cast<int>(cells_.size()); }
    int cols() const { return cols_; }
    void setRows(int n);
    void setCols(int n);

    const std::string& cell(int r, int c) const;
    void setCell(int r, int c, const std::string& text);
    const std::vector<std::string>& rowCells(int r) const;

    // Adds a row from tab-separated cell texts at `position` (-1: at the end).
    void addItem(const std::string& tabbedCells, int position = -1);
    void removeItem(int r);

    int colWidth(int c) const { return widths_.at(c); }
    void setColWidth(int c, int twips);
    bool colCentred(int c) const { return centred_.at(c) != 0; }
    void setColCentred(int c, bool centred);

    // Current row and selection end (the other end of a multi-row selection).
    int row() const { return row_; }
    int rowSel() const { return rowSel_; }
    void setRow(int r);
    void setRowSel(int r);
    void select(int r, int end);

  private:
    int cols_ = 7;
    std::vector<std::vector<std::string>> cells_;
    std::vector<int> widths_;
    std::vector<char> centred_;
    int row_ = 0;
    int rowSel_ = 0;
};

} // namespace tw
