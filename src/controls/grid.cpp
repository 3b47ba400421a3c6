// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid.h"

#include <algorithm>

#include "base/error.h"

namespace kelvor {

namespace {

void checkIndex(int index, int count) {
    if (index < 0 || index >= count) throw Error(error_number::subscriptOutOfRange, "Subscript out of range");
}

/// An index that stays within `count`.
int nearest(int index, int count) {
    return std::clamp(index, 0, std::max(count - 1, 0));
}

}  // namespace

void Grid::setRows(int rows) {
    if (rows == this->rows()) return;
    cells_.resize(static_cast<std::size_t>(rows), std::vector<Cell>(static_cast<std::size_t>(cols_)));
    row_ = nearest(row_, rows);
    tell(Aspect::list);
}

void Grid::setCols(int cols) {
    if (cols == cols_) return;
    for (auto& row : cells_) row.resize(static_cast<std::size_t>(cols));
    cols_ = cols;
    col_ = nearest(col_, cols);
    tell(Aspect::list);
}

void Grid::setRow(int row) {
    checkIndex(row, rows());
    change(row_, row, Aspect::selection);
}

void Grid::setCol(int col) {
    checkIndex(col, cols_);
    change(col_, col, Aspect::selection);
}

void Grid::setText(const std::string& text) {
    if (text == this->text()) return;
    cells_[static_cast<std::size_t>(row_)][static_cast<std::size_t>(col_)].text = text;
    tellCell();
}

void Grid::setBackColor(int color) {
    if (color == backColor()) return;
    cells_[static_cast<std::size_t>(row_)][static_cast<std::size_t>(col_)].backColor = color;
    tellCell();
}

const Grid::Cell& Grid::cell(int row, int col) const {
    checkIndex(row, rows());
    checkIndex(col, cols_);
    return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
}

void Grid::clear() {
    for (auto& row : cells_) std::fill(row.begin(), row.end(), Cell());
    tell(Aspect::list);
}

bool Grid::goTo(int row, int col) {
    if (!enabled() || !visible()) return false;
    checkIndex(row, rows());
    checkIndex(col, cols_);
    const bool moves = row != row_ || col != col_;
    row_ = row;
    col_ = col;
    if (moves) tell(Aspect::selection);
    return true;
}

void Grid::click(int row, int col) {
    if (goTo(row, col)) clicked.raise();
}

void Grid::move(int row, int col) {
    if (goTo(row, col)) moved.raise();
}

}  // namespace kelvor
