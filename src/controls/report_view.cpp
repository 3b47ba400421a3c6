// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/report_view.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "controls/checked_row.h"
#include "text/text_order.h"

namespace kelvor {

std::size_t ReportView::checked(int row) const {
    return checkedRow(row, rows_.size());
}

void ReportView::addRows(std::vector<Row> rows) {
    if (rows.empty()) return;
    const int first = static_cast<int>(rows_.size());
    std::move(rows.begin(), rows.end(), std::back_inserter(rows_));
    tellRows(RowChange::Kind::inserted, first, static_cast<int>(rows_.size()) - 1);
}

void ReportView::removeRow(int row) {
    const bool wasSelected = rows_[checked(row)].selected;
    rows_.erase(rows_.begin() + row);
    const bool moves = selectedRow_ > row || selectedRow_ == static_cast<int>(rows_.size());
    const bool currentWent = selectedRow_ == row;
    if (moves) --selectedRow_;
    if (currentWent && selectedRow_ >= 0) rows_[checked(selectedRow_)].selected |= wasSelected;
    tellRows(RowChange::Kind::removed, row, row);
    tell(Aspect::selection);
}

void ReportView::clear() {
    rows_.clear();
    selectedRow_ = -1;
    tellRows(RowChange::Kind::renewed, 0, -1);
}

const std::string& ReportView::cell(int row, int column) const {
    static const std::string none;
    const auto& cells = rows_[checked(row)].cells;
    return static_cast<std::size_t>(column) < cells.size() ? cells[static_cast<std::size_t>(column)] : none;
}

void ReportView::setCell(int row, int column, const std::string& text) {
    auto& cells = rows_[checked(row)].cells;
    cells.resize(std::max(cells.size(), static_cast<std::size_t>(column) + 1));
    cells[static_cast<std::size_t>(column)] = text;
    tellRows(RowChange::Kind::changed, row, row);
}

void ReportView::setSelectedRow(int row) {
    if (row != -1) checked(row);
    for (Row& other : rows_) other.selected = false;
    if (row != -1) rows_[checked(row)].selected = true;
    const bool isOther = std::exchange(selectedRow_, row) != row;
    tell(Aspect::selection);
    if (isOther) chosen.raise();
}

void ReportView::setSelected(int row, bool selected) {
    if (change(rows_[checked(row)].selected, selected, Aspect::selection) && selected) selectedRow_ = row;
}

void ReportView::sortBy(int column, bool ascending) {
    struct Keyed {
        std::string key;
        std::size_t row;
    };
    std::vector<Keyed> order;
    order.reserve(rows_.size());
    for (std::size_t row = 0; row < rows_.size(); ++row)
        order.push_back({textSortKey(cell(static_cast<int>(row), column)), row});
    std::stable_sort(order.begin(), order.end(), [ascending](const Keyed& left, const Keyed& right) {
        return ascending ? left.key < right.key : right.key < left.key;
    });
    std::vector<Row> sorted;
    sorted.reserve(rows_.size());
    int selectedRow = -1;
    for (const Keyed& place : order) {
        if (static_cast<int>(place.row) == selectedRow_) selectedRow = static_cast<int>(sorted.size());
        sorted.push_back(std::move(rows_[place.row]));
    }
    rows_ = std::move(sorted);
    selectedRow_ = selectedRow;
    tellRows(RowChange::Kind::renewed, 0, -1);
    tell(Aspect::selection);
}

int ReportView::columnWidth(int column) const {
    return columnWidths_.at(static_cast<std::size_t>(column));
}

void ReportView::setColumnWidth(int column, int twips) {
    columnWidths_.at(static_cast<std::size_t>(column)) = twips;
    tell(Aspect::value);
}

void ReportView::doubleClick(int row) {
    setSelectedRow(row);
    doubleClicked.raise();
}

void ReportView::choose(int current, const std::vector<int>& selected) {
    for (Row& row : rows_) row.selected = false;
    for (const int row : selected) rows_[checked(row)].selected = true;
    selectedRow_ = current;
    chosen.raise();
}

}  // namespace kelvor
