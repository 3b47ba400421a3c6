// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <functional>
#include <optional>
#include <string>

#include "files/path_look.h"

namespace kelvor {

/// An entry of a listing that is being read. A link is what it leads to.
class ListedEntry {
public:
    ListedEntry(int directory, const dirent& entry) : directory_(directory), entry_(entry) {}

    /// Bytes as the disk holds them, also when they are not UTF-8.
    const char* name() const { return entry_.d_name; }
    /// None for one that has gone or leads nowhere. Most disks tell without a look at the entry.
    PathKind kind() const;
    /// What a look at the entry sees; a place where a disk is mounted at the first look is not waited for.
    std::optional<struct stat> status() const;

private:
    int directory_;
    const dirent& entry_;
};

/// Calls `visit` with each entry of the directory but "." and "..", in the disk's order, until it answers false. No
/// file is opened. Throws Error when the directory cannot be read to its end, 76 when there is none.
void visitEntries(const std::string& directory, const std::function<bool(const ListedEntry&)>& visit);

}  // namespace kelvor
