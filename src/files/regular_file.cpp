// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/regular_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <stdexcept>

#include "base/error.h"
#include "files/file_error.h"

namespace kelvor {

namespace {

/// The most that is read of a file without a size, in bytes; some of the kernel's have no end.
constexpr std::size_t unsizedLimit = std::size_t{64} << 20;

/// In bytes: what a disk reads at once while a person notices nothing.
constexpr std::size_t portion = std::size_t{4} << 20;

/// Makes room for `size` bytes, and has the next portion of them ready. Memory never touched costs nothing, and to
/// touch a gigabyte at once takes seconds.
void grow(std::string& bytes, std::size_t size, const std::string& path) {
    try {
        bytes.reserve(size);
        bytes.resize(std::min(size, bytes.size() + portion));
    } catch (const std::bad_alloc&) {
        throw fileError(ENOMEM, path);
    } catch (const std::length_error&) {
        throw fileError(ENOMEM, path);
    }
}

void refuseUnfit(const struct stat& status, int flags, const std::string& path) {
    if (!S_ISREG(status.st_mode)) throw notRegularError(status.st_mode, path);
    if ((flags & O_ACCMODE) == O_RDONLY || hasWriteBit(status)) return;
    if (faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) throw fileError(errno, path);
    throw pathError(error_number::permissionDenied, "The file is read-only", path);
}

/// Whether a flush has failed since the file system has no such order.
bool lacksOrder(int code) {
    return code == EINVAL || code == EROFS || code == ENOSYS || code == EOPNOTSUPP;
}

}  // namespace

bool hasWriteBit(const struct stat& status) {
    constexpr mode_t writeBits = 0222;
    return (status.st_mode & writeBits) != 0;
}

std::optional<RegularFile> openRegularFile(const std::string& path, int flags) {
    // Opening alone can set a device off or wake a pipe's writer, so the kind is asked first.
    struct stat status {};
    if (uninterrupted([&] { return systemCalls().stat(path.c_str(), &status); }) != 0) {
        if (errno == ENOENT) return std::nullopt;
        throw fileError(errno, path);
    }
    refuseUnfit(status, flags, path);
    OpenFile file(
        uninterrupted([&] { return systemCalls().open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0); }));
    if (file.descriptor() < 0) throw fileError(errno, path);
    if (uninterrupted([&] { return systemCalls().fstat(file.descriptor(), &status); }) != 0) {
        throw fileError(errno, path);
    }
    refuseUnfit(status, flags, path);
    return RegularFile{std::move(file), status};
}

OpenFile createForOwner(const std::string& path) {
    constexpr mode_t ownerOnly = 0600;
    const int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    return OpenFile(uninterrupted([&] { return systemCalls().open(path.c_str(), flags, ownerOnly); }));
}

bool lockFile(int descriptor) {
    return uninterrupted([&] { return flock(descriptor, LOCK_EX | LOCK_NB); }) == 0 || errno != EWOULDBLOCK;
}

RegularFile openToRead(const std::string& path) {
    auto opened = openRegularFile(path, O_RDONLY);
    if (!opened) throw fileError(ENOENT, path);
    return std::move(*opened);
}

std::string readToEnd(int descriptor, off_t size, const std::string& path, const Step& step) {
    constexpr std::size_t leastRoom = 65536;
    std::string bytes;
    std::size_t length = 0;
    // One byte more than the size, so that the end shows in the same call.
    auto room = size > 0 ? static_cast<std::size_t>(size) + 1 : leastRoom;
    grow(bytes, room, path);
    for (;;) {
        const auto wanted = bytes.size() - length;
        const auto count = uninterrupted(
            [&] { return systemCalls().pread(descriptor, bytes.data() + length, wanted, static_cast<off_t>(length)); });
        if (count < 0) throw fileError(errno, path);
        length += static_cast<std::size_t>(count);
        const bool endShows = static_cast<std::size_t>(count) < wanted && static_cast<off_t>(length) == size;
        if (count == 0 || endShows) break;
        if (size == 0 && length > unsizedLimit) throw pathError(error_number::pathAccess, "The file has no end", path);
        if (length == room) room *= 2;
        if (length == bytes.size()) grow(bytes, room, path);
        step();
    }
    bytes.resize(length);
    return bytes;
}

bool writeWhole(int descriptor, std::string_view bytes, std::size_t place) {
    for (std::size_t written = 0; written < bytes.size();) {
        const auto count = uninterrupted([&] {
            return systemCalls().pwrite(descriptor, bytes.data() + written, bytes.size() - written,
                                        static_cast<off_t>(place + written));
        });
        if (count == 0) errno = EIO;
        if (count <= 0) return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

bool flush(int descriptor) {
    return uninterrupted([&] { return systemCalls().fsync(descriptor); }) == 0 || lacksOrder(errno);
}

bool flushData(int descriptor) {
    return uninterrupted([&] { return systemCalls().fdatasync(descriptor); }) == 0 || lacksOrder(errno);
}

}  // namespace kelvor
