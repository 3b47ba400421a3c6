// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <functional>
#include <utility>

namespace kelvor {

/// The calls to the kernel on which reading and saving a file rest. Each answers as the kernel does: -1, and
/// why in errno. Tests put calls that fail in their place.
struct SystemCalls {
    std::function<int(const char* path, int flags, mode_t mode)> open;
    std::function<int(const char* path, struct stat* status)> stat;
    std::function<int(const char* path, struct stat* status)> lstat;
    std::function<int(int descriptor, struct stat* status)> fstat;
    std::function<ssize_t(int descriptor, void* bytes, std::size_t count, off_t offset)> pread;
    std::function<ssize_t(int descriptor, const void* bytes, std::size_t count, off_t offset)> pwrite;
    std::function<int(int descriptor, int mode, off_t offset, off_t length)> fallocate;
    std::function<int(int descriptor, off_t length)> ftruncate;
    std::function<int(const char* path, uid_t owner, gid_t group)> lchown;
    std::function<int(const char* path, mode_t mode)> chmod;
    std::function<int(int descriptor, const char* name, const void* value, std::size_t size, int flags)> fsetxattr;
    std::function<int(int descriptor)> fsync;
    std::function<int(int descriptor)> fdatasync;
    std::function<int(int descriptor)> close;
    std::function<int(const char* path)> unlink;
    std::function<int(const char* from, const char* to)> rename;
    /// Refuses a name that is taken (EEXIST); a file system without this order answers EINVAL.
    std::function<int(const char* from, const char* to)> renameToNew;
    std::function<int(const char* from, const char* to)> link;
    std::function<int(const char* path, struct statvfs* room)> statvfs;
};

/// The kernel's own.
SystemCalls kernelCalls();

/// The calls in force.
SystemCalls& systemCalls();

/// Puts other calls in force until it ends.
class ScopedSystemCalls {
public:
    explicit ScopedSystemCalls(SystemCalls calls);
    ~ScopedSystemCalls();
    ScopedSystemCalls(const ScopedSystemCalls&) = delete;
    ScopedSystemCalls& operator=(const ScopedSystemCalls&) = delete;

private:
    SystemCalls previous_;
};

/// Runs `call` again while a signal interrupts it, but not for ever: what is always interrupted has failed.
template <typename Call>
auto uninterrupted(const Call& call) {
    constexpr int attempts = 100;
    auto result = call();
    for (int i = 1; i < attempts && result < 0 && errno == EINTR; ++i) result = call();
    return result;
}

/// An open file, closed when it ends.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile() { close(); }
    OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    OpenFile& operator=(OpenFile&&) = delete;

    int descriptor() const { return descriptor_; }
    /// Closes it now. False, and why in errno, when the file system reports a late error; it is closed even so.
    bool close();

private:
    int descriptor_;
};

}  // namespace kelvor
