// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/private_directory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/error.h"
#include "files/file_error.h"
#include "files/places.h"
#include "files/regular_file.h"

namespace kelvor {

namespace {

constexpr mode_t ownerAll = 0700;
constexpr mode_t othersBits = 077;

void checkOwner(const struct stat& status, const std::string& path) {
    if (status.st_uid == geteuid()) return;
    throw pathError(error_number::permissionDenied, "What stands here belongs to another user", path);
}

/// Makes the directory unless it is there, and sees to it that it is the user's own and nobody else's.
void makePrivate(const std::string& path) {
    if (mkdir(path.c_str(), ownerAll) == 0) return;
    if (errno != EEXIST) throw fileError(errno, path);
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) throw fileError(errno, path);
    checkOwner(status, path);
    if (S_ISLNK(status.st_mode)) {
        if (stat(path.c_str(), &status) != 0) throw fileError(errno, path);
        checkOwner(status, path);
    }
    if (!S_ISDIR(status.st_mode)) throw fileError(ENOTDIR, path);
    if ((status.st_mode & othersBits) != 0 && chmod(path.c_str(), ownerAll) != 0) throw fileError(errno, path);
}

}  // namespace

std::string privateDirectory(std::string_view name) {
    const std::string top = stateDirectory();
    if (top.empty())
        throw Error(error_number::pathNotFound, "There is no home directory", "There is no home directory.");
    // Where it cannot be made, making the directory in it tells why.
    std::error_code failure;
    std::filesystem::create_directories(std::filesystem::path(top).parent_path(), failure);
    makePrivate(top);
    std::string path = top;
    for (std::size_t start = 0; start < name.size();) {
        const std::size_t end = std::min(name.find('/', start), name.size());
        path.append("/").append(name.substr(start, end - start));
        makePrivate(path);
        start = end + 1;
    }
    return path;
}

OpenFile createPrivateFile(const std::string& path) {
    OpenFile file = createForOwner(path);
    if (file.descriptor() < 0) throw fileError(errno, path);
    return file;
}

}  // namespace kelvor
