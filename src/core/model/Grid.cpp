#include "core/model/Grid.h"

#include "core/Errors.h"

namespace tw {

namespace {
constexpr int kDefaultWidth = 960;

[[noreturn]] void badRow() { throw RuntimeError(err::kGridInvalidRow, "Invalid Row value"); }
} // namespace

Grid::Grid() {
    cells_.assign(1, std::vector<std::string>(cols_));
    widths_.assign(cols_, kDefaultWidth);
    centred_.assign(cols_, 0);
}

void Grid::setRows(int n) {
    if (n < 1) throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    cells_.resize(n, std::vector<std::string>(cols_));
    if (row_ >= n) row_ = n - 1;
    if (rowSel_ >= n) rowSel_ = n - 1;
}

void Grid::setCols(int n) {
    if (n < 1) throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    cols_ = n;
    for (auto& r : cells_)
        r.resize(n);
    widths_.resize(n, kDefaultWidth);
    centred_.resize(n, 0);
}

const std::string& Grid::cell(int r, int c) const {
    if (r < 0 || r >= rows()) badRow();
    if (c < 0 || c >= cols_) throw RuntimeError(err::kInvalidProperty, "Invalid Col value");
    return cells_[r][c];
}

void Grid::setCell(int r, int c, const std::string& text) {
    if (r < 0 || r >= rows()) badRow();
    if (c < 0 || c >= cols_) throw RuntimeError(err::kInvalidProperty, "Invalid Col value");
    cells_[r][c] = text;
}

const std::vector<std::string>& Grid::rowCells(int r) const {
    if (r < 0 || r >= rows()) badRow();
    return cells_[r];
}

void Grid::addItem(const std::string& tabbedCells, int position) {
    if (position == -1) position = rows();
    if (position < 0 || position > rows()) throw RuntimeError(err::kInvalidCall, "Invalid procedure call or argument");
    std::vector<std::string> row(cols_);
    size_t start = 0;
    for (int c = 0; c < cols_; ++c) {
        auto tab = tabbedCells.find('\t', start);
        row[c] = tabbedCells.substr(start, tab == std::string::npos ? std::string::npos : tab - start);
        if (tab == std::string::npos) break;
        start = tab + 1;
    }
    cells_.insert(cells_.begin() + position, std::move(row));
}

void Grid::removeItem(int r) {
    if (r < 1 || r >= rows()) badRow();
    if (rows() == 2) throw RuntimeError(err::kGridLastRow, "Cannot remove last non-fixed row");
    cells_.erase(cells_.begin() + r);
    if (row_ >= rows()) row_ = rows() - 1;
    if (rowSel_ >= rows()) rowSel_ = rows() - 1;
}

void Grid::setColWidth(int c, int twips) {
    if (c < 0 || c >= cols_) throw RuntimeError(err::kInvalidProperty, "Invalid Col value");
    widths_[c] = twips;
}

void Grid::setColCentred(int c, bool centred) {
    if (c < 0 || c >= cols_) throw RuntimeError(err::kInvalidProperty, "Invalid Col value");
    centred_[c] = centred ? 1 : 0;
}

void Grid::setRow(int r) {
    if (r < 0 || r >= rows()) badRow();
    row_ = r;
    rowSel_ = r;
}

void Grid::setRowSel(int r) {
    if (r < 0 || r >= rows()) badRow();
    rowSel_ = r;
}

void Grid::select(int r, int end) {
    setRow(r);
    setRowSel(end);
}

} // namespace tw
