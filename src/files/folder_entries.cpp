// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/folder_entries.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <tuple>
#include <utility>

#include "files/file_error.h"
#include "files/listing.h"
#include "text/text_order.h"

namespace kelvor {

namespace {

void sortEntries(std::vector<FolderEntry>& entries) {
    struct Keyed {
        std::string key;
        FolderEntry entry;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(entries.size());
    for (FolderEntry& entry : entries) keyed.push_back({textSortKey(entry.name), std::move(entry)});
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& left, const Keyed& right) {
        return std::tie(right.entry.isFolder, left.key, left.entry.name) <
               std::tie(left.entry.isFolder, right.key, right.entry.name);
    });
    for (std::size_t row = 0; row < entries.size(); ++row) entries[row] = std::move(keyed[row].entry);
}

}  // namespace

std::vector<FolderEntry> folderEntries(const std::string& directory) {
    std::vector<FolderEntry> entries;
    visitEntries(directory, [&](const ListedEntry& entry) {
        const auto status = entry.status();
        if (status && (S_ISDIR(status->st_mode) || S_ISREG(status->st_mode)))
            entries.push_back({entry.name(), S_ISDIR(status->st_mode), status->st_size, status->st_mtime});
        return true;
    });
    sortEntries(entries);
    return entries;
}

void makeFolder(const std::string& path) {
    constexpr mode_t forAll = 0777;
    if (mkdir(path.c_str(), forAll) != 0) throw fileError(errno, path);
}

}  // namespace kelvor
