// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_box.h"

#include <iterator>

#include "controls/checked_row.h"

namespace kelvor {

std::size_t ListBox::checked(int row) const {
    return checkedRow(row, rows_.size());
}

void ListBox::addRows(std::vector<std::string> texts) {
    if (texts.empty()) return;
    const int first = static_cast<int>(rows_.size());
    std::move(texts.begin(), texts.end(), std::back_inserter(rows_));
    tellRows(RowChange::Kind::inserted, first, static_cast<int>(rows_.size()) - 1);
}

void ListBox::removeRow(int row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(checked(row)));
    if (selectedRow_ > row || selectedRow_ == static_cast<int>(rows_.size())) --selectedRow_;
    tellRows(RowChange::Kind::removed, row, row);
    tell(Aspect::selection);
}

void ListBox::setText(int row, const std::string& text) {
    rows_[checked(row)] = text;
    tellRows(RowChange::Kind::changed, row, row);
}

void ListBox::clear() {
    rows_.clear();
    selectedRow_ = -1;
    tellRows(RowChange::Kind::renewed, 0, -1);
    tell(Aspect::selection);
}

void ListBox::setSelectedRow(int row) {
    if (row != -1) checked(row);
    change(selectedRow_, row, Aspect::selection);
}

std::optional<std::string> ListBox::selectedText() const {
    if (selectedRow_ < 0) return std::nullopt;
    return rows_[static_cast<std::size_t>(selectedRow_)];
}

void ListBox::doubleClick(int row) {
    setSelectedRow(row);
    doubleClicked.raise();
}

}  // namespace kelvor
