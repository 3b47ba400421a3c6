// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tab_strip.h"

#include <algorithm>

#include "base/error.h"

namespace kelvor {

std::vector<TabStrip::Tab>::const_iterator TabStrip::find(const std::string& key) const {
    return std::find_if(tabs_.begin(), tabs_.end(), [&](const Tab& tab) { return tab.key == key; });
}

std::size_t TabStrip::indexOf(const std::string& key) const {
    const auto found = find(key);
    if (found == tabs_.end()) throw Error(error_number::elementNotFound, "There is no tab " + key);
    return static_cast<std::size_t>(found - tabs_.begin());
}

void TabStrip::add(const std::string& key, const std::string& caption) {
    if (contains(key)) throw Error(error_number::duplicateKey, "There is a tab " + key + " already");
    tabs_.push_back({.key = key, .caption = caption, .tag = {}, .toolTip = {}});
    if (!selected_) selected_ = 0;
    tell(Aspect::list);
}

void TabStrip::remove(const std::string& key) {
    const std::size_t index = indexOf(key);
    tabs_.erase(tabs_.begin() + static_cast<std::ptrdiff_t>(index));
    if (tabs_.empty()) {
        selected_.reset();
    } else if (*selected_ > index || *selected_ == tabs_.size()) {
        --*selected_;
    }
    tell(Aspect::list);
}

void TabStrip::setCaption(const std::string& key, const std::string& caption) {
    change(tabs_[indexOf(key)].caption, caption, Aspect::list);
}

void TabStrip::setTag(const std::string& key, const std::string& tag) {
    tabs_[indexOf(key)].tag = tag;
}

void TabStrip::setTabToolTip(const std::string& key, const std::string& text) {
    change(tabs_[indexOf(key)].toolTip, text, Aspect::list);
}

const TabStrip::Tab& TabStrip::selectedItem() const {
    if (!selected_) throw Error(error_number::objectNotSet, "No tab is selected");
    return tabs_[*selected_];
}

void TabStrip::setSelectedItem(const std::string& key) {
    change(selected_, std::optional(indexOf(key)), Aspect::selection);
}

void TabStrip::click(const std::string& key) {
    setSelectedItem(key);
    clicked.raise();
}

}  // namespace kelvor
