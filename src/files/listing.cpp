// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/listing.h"

#include <fcntl.h>

#include <cerrno>
#include <memory>
#include <string_view>

#include "files/file_error.h"

namespace kelvor {

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

[[noreturn]] void failToRead(const std::string& directory) {
    throw fileError(errno == ENOENT ? ENOTDIR : errno, directory);
}

PathKind kindOf(bool isFolder) {
    return isFolder ? PathKind::folder : PathKind::file;
}

}  // namespace

PathKind ListedEntry::kind() const {
    if (entry_.d_type != DT_UNKNOWN && entry_.d_type != DT_LNK) return kindOf(entry_.d_type == DT_DIR);
    const auto seen = status();
    return seen ? kindOf(S_ISDIR(seen->st_mode)) : PathKind::none;
}

std::optional<struct stat> ListedEntry::status() const {
    struct stat seen {};
    if (fstatat(directory_, name(), &seen, AT_NO_AUTOMOUNT) != 0) return std::nullopt;
    return seen;
}

void visitEntries(const std::string& directory, const std::function<bool(const ListedEntry&)>& visit) {
    const std::unique_ptr<DIR, CloseDirectory> stream(opendir(directory.c_str()));
    if (!stream) failToRead(directory);
    for (;;) {
        errno = 0;
        const auto* entry = readdir(stream.get());
        if (!entry && errno != 0) failToRead(directory);
        if (!entry) return;
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && !visit({dirfd(stream.get()), *entry})) return;
    }
}

}  // namespace kelvor
