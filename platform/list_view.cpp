#include "platform/list_view.h"

namespace kelvor {

std::size_t ListView::checked(int row) const {
    if (row >= 0 && row < static_cast<int>(rows_.size())) return static_cast<std::size_t>(row);
    throw Error(error_number::subscriptOutOfRange, "There is no row " + std::to_string(row));
}

void ListView::addRow(const std::string& text) {
    rows_.push_back(text);
    tellRow(RowChange::inserted, static_cast<int>(rows_.size()) - 1);
}

void ListView::removeRow(int row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(checked(row)));
    if (selectedRow_ > row || selectedRow_ == static_cast<int>(rows_.size())) --selectedRow_;
    tellRow(RowChange::removed, row);
    tell(Aspect::selection);
}

void ListView::setText(int row, const std::string& text) {
    rows_[checked(row)] = text;
    tellRow(RowChange::changed, row);
}

void ListView::setSelectedRow(int row) {
    if (row != -1) checked(row);
    change(selectedRow_, row, Aspect::selection);
}

void ListView::doubleClick(int row) {
    setSelectedRow(row);
    doubleClicked.raise();
}

bool ListView::edit(int row, const std::string& text) {
    setSelectedRow(row);
    bool cancel = false;
    beforeLabelEdit.raise(cancel);
    if (cancel || text == rows_[checked(row)]) return false;
    afterLabelEdit.raise(text, cancel);
    if (!cancel) setText(row, text);
    return !cancel;
}

}  // namespace kelvor
