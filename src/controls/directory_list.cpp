// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/directory_list.h"

#include <algorithm>

#include "files/files.h"
#include "files/paths.h"

namespace kelvor {

namespace {

std::string withoutSeparator(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

/// The directories from the root down to `path`.
std::vector<DirectoryList::Row> rowsDownTo(const std::string& path) {
    std::vector<DirectoryList::Row> rows = {{.name = "/", .path = "/", .depth = 0}};
    for (std::size_t begin = 1; begin < path.size();) {
        const auto end = std::min(path.find('/', begin), path.size());
        rows.push_back({.name = path.substr(begin, end - begin),
                        .path = path.substr(0, end),
                        .depth = static_cast<int>(rows.size())});
        begin = end + 1;
    }
    return rows;
}

}  // namespace

void DirectoryList::setPath(const std::string& path) {
    const std::string directory = withoutSeparator(path);
    if (directory != path_) show(directory);
}

void DirectoryList::show(const std::string& directory) {
    const std::vector<std::string> names = directoriesIn(directory);
    path_ = directory;
    rows_ = rowsDownTo(directory);
    currentRow_ = static_cast<int>(rows_.size()) - 1;
    for (const std::string& name : names)
        rows_.push_back({.name = name, .path = joinPath(directory, name), .depth = currentRow_ + 1});
    tell(Aspect::list);
    changed.raise();
}

void DirectoryList::open(int row) {
    // A copy: the rows are made anew.
    show(std::string(rows_.at(static_cast<std::size_t>(row)).path));
}

}  // namespace kelvor
