// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/system_calls.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>

namespace kelvor {

SystemCalls kernelCalls() {
    SystemCalls calls;
    calls.open = [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); };
    calls.stat = ::stat;
    calls.lstat = ::lstat;
    calls.fstat = ::fstat;
    calls.pread = ::pread;
    calls.pwrite = ::pwrite;
    calls.fallocate = ::fallocate;
    calls.ftruncate = ::ftruncate;
    calls.lchown = ::lchown;
    calls.chmod = ::chmod;
    calls.fsetxattr = ::fsetxattr;
    calls.fsync = ::fsync;
    calls.fdatasync = ::fdatasync;
    calls.close = ::close;
    calls.unlink = ::unlink;
    calls.rename = ::rename;
    calls.renameToNew = [](const char* from, const char* to) {
        return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    };
    calls.link = ::link;
    calls.statvfs = ::statvfs;
    return calls;
}

SystemCalls& systemCalls() {
    static SystemCalls calls = kernelCalls();
    return calls;
}

ScopedSystemCalls::ScopedSystemCalls(SystemCalls calls) : previous_(std::exchange(systemCalls(), std::move(calls))) {
}

ScopedSystemCalls::~ScopedSystemCalls() {
    systemCalls() = std::move(previous_);
}

bool OpenFile::close() {
    const int descriptor = std::exchange(descriptor_, -1);
    // An interrupted close has closed all the same.
    return descriptor < 0 || systemCalls().close(descriptor) == 0 || errno == EINTR;
}

}  // namespace kelvor
