// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/combo_box.h"

#include <algorithm>

#include "base/error.h"
#include "text/text_order.h"

namespace kelvor {

namespace {

Error noSuchRow(long index) {
    return {error_number::invalidProcedureCall, "The list has no row " + std::to_string(index)};
}

}  // namespace

void ComboBox::addItem(const std::string& item) {
    if (!sorted_) return insertItem(list_.size(), item);
    const auto place = std::upper_bound(list_.begin(), list_.end(), item, [](const auto& left, const auto& right) {
        return compareText(left, right) < 0;
    });
    insertItem(static_cast<std::size_t>(place - list_.begin()), item);
}

void ComboBox::insertItem(std::size_t index, const std::string& item) {
    if (index > list_.size()) throw noSuchRow(static_cast<long>(index));
    list_.insert(list_.begin() + static_cast<std::ptrdiff_t>(index), item);
    if (listIndex_ >= static_cast<int>(index)) ++listIndex_;
    tell(Aspect::list);
}

void ComboBox::removeItem(std::size_t index) {
    if (index >= list_.size()) throw noSuchRow(static_cast<long>(index));
    list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(index));
    if (listIndex_ == static_cast<int>(index)) {
        listIndex_ = -1;
        text_.clear();
        placeCaret(0);
    } else if (listIndex_ > static_cast<int>(index)) {
        --listIndex_;
    }
    tell(Aspect::list);
}

void ComboBox::clear() {
    list_.clear();
    listIndex_ = -1;
    text_.clear();
    placeCaret(0);
    tell(Aspect::list);
}

void ComboBox::select(int index) {
    if (index < -1 || index >= static_cast<int>(list_.size())) throw noSuchRow(index);
    listIndex_ = index;
    text_ = index < 0 ? std::string() : list_[static_cast<std::size_t>(index)];
    placeCaret(0);
    tell(Aspect::selection);
    clicked.raise();
}

void ComboBox::setListIndex(int index) {
    if (index != listIndex_) select(index);
}

void ComboBox::choose(int index) {
    select(index);
}

void ComboBox::setText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    placeCaret(0);
    const auto row = std::find(list_.begin(), list_.end(), text);
    listIndex_ = row == list_.end() ? -1 : static_cast<int>(row - list_.begin());
    tell(Aspect::text);
    changed.raise();
}

}  // namespace kelvor
