// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/check_list.h"

#include "controls/checked_row.h"

namespace kelvor {

std::size_t CheckList::checked(int row) const {
    return checkedRow(row, rows_.size());
}

void CheckList::addRow(const std::string& caption) {
    rows_.push_back({caption});
    tellRow(RowChange::Kind::inserted, static_cast<int>(rows_.size()) - 1);
}

void CheckList::setTicked(int row, bool on) {
    bool& box = rows_[checked(row)].ticked;
    if (box == on) return;
    box = on;
    tellRow(RowChange::Kind::changed, row);
    ticked.raise(row);
}

}  // namespace kelvor
