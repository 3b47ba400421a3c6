#include "files/folder_entries.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <tuple>
#include <utility>

#include "files/file_error.h"
#include "text/text_order.h"

namespace kelvor {

namespace {

namespace fs = std::filesystem;

void sortEntries(std::vector<FolderEntry>& entries) {
    std::vector<std::pair<std::string, FolderEntry>> keyed;
    keyed.reserve(entries.size());
    for (FolderEntry& entry : entries) keyed.emplace_back(textSortKey(entry.name), std::move(entry));
    std::sort(keyed.begin(), keyed.end(), [](const auto& left, const auto& right) {
        return std::tie(right.second.isFolder, left.first, left.second.name) <
               std::tie(left.second.isFolder, right.first, right.second.name);
    });
    for (std::size_t row = 0; row < entries.size(); ++row) entries[row] = std::move(keyed[row].second);
}

}  // namespace

std::vector<FolderEntry> folderEntries(const std::string& directory) {
    std::vector<FolderEntry> entries;
    std::error_code failure;
    for (fs::directory_iterator entry(directory, failure); !failure && entry != fs::directory_iterator();
         entry.increment(failure)) {
        struct stat status {};
        // A place where a disk is mounted at the first look is not to be waited for.
        if (fstatat(AT_FDCWD, entry->path().c_str(), &status, AT_NO_AUTOMOUNT) != 0) continue;
        const bool isFolder = S_ISDIR(status.st_mode);
        if (!isFolder && !S_ISREG(status.st_mode)) continue;
        entries.push_back({entry->path().filename().string(), isFolder, status.st_size, status.st_mtime});
    }
    if (failure) throw fileError(failure.value(), directory);
    sortEntries(entries);
    return entries;
}

PathKind pathKind(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) return S_ISDIR(status.st_mode) ? PathKind::folder : PathKind::file;
    if (errno == ENOENT) return PathKind::none;
    throw fileError(errno, path);
}

void makeFolder(const std::string& path) {
    constexpr mode_t forAll = 0777;
    if (mkdir(path.c_str(), forAll) != 0) throw fileError(errno, path);
}

}  // namespace kelvor
