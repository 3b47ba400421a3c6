// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/check_list.h"

#include "base/error.h"

namespace kelvor {

std::size_t CheckList::checked(int row) const {
    if (row >= 0 && row < static_cast<int>(rows_.size())) return static_cast<std::size_t>(row);
    throw Error(error_number::subscriptOutOfRange, "There is no row " + std::to_string(row));
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
