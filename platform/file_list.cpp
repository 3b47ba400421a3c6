#include "platform/file_list.h"

#include <algorithm>

#include "platform/files.h"

namespace kelvor {

void FileList::setPath(const std::string& path) {
    if (path == path_) return;
    path_ = path;
    Refresh();
}

void FileList::setPattern(const std::string& pattern) {
    if (pattern == pattern_) return;
    pattern_ = pattern;
    Refresh();
}

void FileList::Refresh() {
    list_ = path_.empty() ? std::vector<std::string>{} : filesMatching(path_, pattern_);
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
