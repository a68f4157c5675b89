// SPDX-License-Identifier: Apache-2.0
#include "core/model/BentTable.h"

#include "core/Errors.h"

#include <algorithm>

namespace tw {

namespace {
constexpr int kDefaultWidth = 960;

[[noreturn]] void badRow() { throw RuntimeError(err::kGridInvalidRow, "Invalid Row value"); }

std::shared_ptr<const BentTable::Row> emptyRow(int cols) {
    return std::make_shared<const BentTable::Row>(static_cast<size_t>(cols));
}
} // namespace

BentTable::BentTable() {
    rows_.assign(1, emptyRow(cols_));
    widths_.assign(static_cast<size_t>(cols_), kDefaultWidth);
    centred_.assign(static_cast<size_t>(cols_), 0);
}

void BentTable::checkRow(int r) const {
    if (r < 0 || r >= rows()) badRow();
}

void BentTable::checkCol(int c) const {
    if (c < 0 || c >= cols_) throw RuntimeError(err::kInvalidProperty, "Invalid Col value");
}

void BentTable::setRows(int n) {
    if (n < 1) throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    if (n < rows()) rows_.resize(static_cast<size_t>(n));
    while (rows() < n)
        rows_.push_back(emptyRow(cols_));
}

void BentTable::setCols(int n) {
    if (n < 1) throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    if (n == cols_) return;
    cols_ = n;
    for (auto& r : rows_) {
        auto resized = std::make_shared<Row>(*r);
        resized->resize(static_cast<size_t>(n));
        r = std::move(resized);
    }
    widths_.resize(static_cast<size_t>(n), kDefaultWidth);
    centred_.resize(static_cast<size_t>(n), 0);
}

const std::string& BentTable::cell(int r, int c) const {
    checkRow(r);
    checkCol(c);
    return (*rows_[static_cast<size_t>(r)])[static_cast<size_t>(c)];
}

void BentTable::setCell(int r, int c, const std::string& text) {
    checkRow(r);
    checkCol(c);
    auto& row = rows_[static_cast<size_t>(r)];
    if ((*row)[static_cast<size_t>(c)] == text) return;
    auto changed = std::make_shared<Row>(*row);
    (*changed)[static_cast<size_t>(c)] = text;
    row = std::move(changed);
}

const BentTable::Row& BentTable::rowCells(int r) const {
    checkRow(r);
    return *rows_[static_cast<size_t>(r)];
}

bool BentTable::sharesRow(const BentTable& other, int r) const {
    return r >= 0 && r < rows() && r < other.rows() &&
           rows_[static_cast<size_t>(r)] == other.rows_[static_cast<size_t>(r)];
}

void BentTable::addItem(const std::string& tabbedCells, int position) {
    if (position == -1) position = rows();
    if (position < 0 || position > rows()) throw RuntimeError(err::kInvalidCall, "Invalid procedure call or argument");
    auto row = std::make_shared<Row>(static_cast<size_t>(cols_));
    size_t start = 0;
    for (int c = 0; c < cols_; ++c) {
        const auto tab = tabbedCells.find('\t', start);
        (*row)[static_cast<size_t>(c)] =
            tabbedCells.substr(start, tab == std::string::npos ? std::string::npos : tab - start);
        if (tab == std::string::npos) break;
        start = tab + 1;
    }
    rows_.insert(rows_.begin() + position, std::move(row));
}

void BentTable::removeItem(int r) {
    if (r < 1 || r >= rows()) badRow();
    if (rows() == 2) throw RuntimeError(err::kGridLastRow, "Cannot remove last non-fixed row");
    rows_.erase(rows_.begin() + r);
}

void BentTable::swapRows(int a, int b) {
    checkRow(a);
    checkRow(b);
    std::swap(rows_[static_cast<size_t>(a)], rows_[static_cast<size_t>(b)]);
}

void BentTable::setColWidth(int c, int twips) {
    checkCol(c);
    widths_[static_cast<size_t>(c)] = twips;
}

void BentTable::setColCentred(int c, bool centred) {
    checkCol(c);
    centred_[static_cast<size_t>(c)] = centred ? 1 : 0;
}

bool operator==(const BentTable& a, const BentTable& b) {
    if (a.cols_ != b.cols_ || a.rows() != b.rows() || a.widths_ != b.widths_ || a.centred_ != b.centred_) return false;
    for (size_t r = 0; r < a.rows_.size(); ++r)
        if (a.rows_[r] != b.rows_[r] && *a.rows_[r] != *b.rows_[r]) return false;
    return true;
}

} // namespace tw
