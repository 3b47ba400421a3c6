// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace kelvor {

struct FolderEntry {
    /// Bytes as the disk holds them, also when they are not UTF-8.
    std::string name;
    bool isFolder = false;
    std::int64_t size = 0;  ///< in bytes
    std::time_t modified = 0;
};

/// The folders and regular files in `directory`, those that links lead to included, folders first, sorted as a person
/// reads them. No file is opened. Throws Error when the directory cannot be read, 76 when there is none.
std::vector<FolderEntry> folderEntries(const std::string& directory);

/// Throws Error when it does not come to be.
void makeFolder(const std::string& path);

}  // namespace kelvor
