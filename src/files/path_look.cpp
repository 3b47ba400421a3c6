// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/path_look.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace kelvor {

bool PathLook::mayBeThere() const {
    return kind != PathKind::none || (error != ENOENT && error != ENOTDIR && error != ENAMETOOLONG);
}

PathLook lookAt(const std::string& path, Links links) {
    struct stat status {};
    const int flags = links == Links::kept ? AT_SYMLINK_NOFOLLOW : 0;
    if (fstatat(AT_FDCWD, path.c_str(), &status, flags) != 0) return {.error = errno};
    return {.kind = S_ISDIR(status.st_mode) ? PathKind::folder : PathKind::file};
}

}  // namespace kelvor
