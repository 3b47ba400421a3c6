// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/single_instance.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/paths.h"
#include "files/places.h"
#include "files/regular_file.h"
#include "files/system_calls.h"

namespace kelvor {

namespace {

bool belongsToUser(const struct stat& status) {
    return status.st_uid == geteuid();
}

/// Opens the lock file in `directory`, which must be the user's own; -1 when that is not possible.
int openLockFile(const std::string& directory) {
    struct stat status {};
    if (directory.empty() || stat(directory.c_str(), &status) != 0) return -1;
    if (!S_ISDIR(status.st_mode) || !belongsToUser(status)) return -1;
    const auto path = joinPath(directory, "kelvor.lock");
    constexpr mode_t readAndWriteByUser = 0600;
    const int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const int descriptor = uninterrupted([&] { return open(path.c_str(), flags, readAndWriteByUser); });
    if (descriptor < 0) return -1;
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && belongsToUser(status)) return descriptor;
    close(descriptor);
    return -1;
}

std::string environmentDirectory() {
    return directoryVariable("XDG_RUNTIME_DIR");
}

std::string systemDirectory() {
    return "/run/user/" + std::to_string(geteuid());
}

}  // namespace

SingleInstance::SingleInstance() {
    for (const auto& directory : {environmentDirectory, systemDirectory, settingsDirectory}) {
        descriptor_ = openLockFile(directory());
        if (descriptor_ >= 0) break;
    }
    if (descriptor_ >= 0) first_ = lockFile(descriptor_);
}

SingleInstance::~SingleInstance() {
    // The file stays: were it removed, a copy waiting on it and one that makes it anew would both be first.
    if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace kelvor
