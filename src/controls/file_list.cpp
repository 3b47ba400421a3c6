// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/file_list.h"

#include <algorithm>

#include "files/files.h"

namespace kelvor {

void FileList::setPath(const std::string& path) {
    if (path != path_) show(path, pattern_);
}

void FileList::setPattern(const std::string& pattern) {
    if (pattern != pattern_) show(path_, pattern);
}

void FileList::Refresh() {
    show(path_, pattern_);
}

void FileList::show(const std::string& path, const std::string& pattern) {
    list_ = path.empty() ? std::vector<std::string>{} : filesMatching(path, pattern);
    path_ = path;
    pattern_ = pattern;
    selected_.assign(list_.size(), false);
    tell(Aspect::list);
}

void FileList::setSelected(std::size_t index, bool selected) {
    if (selected_.at(index) == selected) return;
    selected_[index] = selected;
    tell(Aspect::selection);
}

void FileList::doubleClick(std::size_t index) {
    std::fill(selected_.begin(), selected_.end(), false);
    selected_.at(index) = true;
    tell(Aspect::selection);
    doubleClicked.raise();
}

}  // namespace kelvor
