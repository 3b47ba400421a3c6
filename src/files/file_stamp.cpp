// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/file_stamp.h"

#include <fcntl.h>

#include <cerrno>
#include <exception>
#include <memory>

#include "files/file_error.h"
#include "files/regular_file.h"
#include "files/system_calls.h"

namespace kelvor {

namespace {

bool isSameMoment(const timespec& left, const timespec& right) {
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

ContentHash hashOfFile(const RegularFile& opened, const std::string& path) {
    constexpr std::size_t room = std::size_t{1} << 20;
    const auto memory = std::make_unique_for_overwrite<char[]>(room);
    ContentHasher hasher;
    for (off_t place = 0;;) {
        const auto count =
            uninterrupted([&] { return systemCalls().pread(opened.file.descriptor(), memory.get(), room, place); });
        if (count < 0) throw fileError(errno, path);
        if (count == 0) return hasher.hash();
        hasher.add({memory.get(), static_cast<std::size_t>(count)});
        place += count;
    }
}

std::optional<FileStamp> stampAt(const std::string& path) {
    const auto opened = openRegularFile(path, O_RDONLY);
    if (!opened) return std::nullopt;
    return stampOf(opened->status, hashOfFile(*opened, path));
}

}  // namespace

bool FileStamp::isOf(const struct stat& status) const {
    return device == status.st_dev && inode == status.st_ino && size == status.st_size &&
           isSameMoment(modified, status.st_mtim) && isSameMoment(changed, status.st_ctim);
}

FileStamp stampOf(const struct stat& status, const ContentHash& hash) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim, hash};
}

DiskState lookAgain(FileStamp& known, const std::string& path) {
    struct stat status {};
    if (uninterrupted([&] { return systemCalls().stat(path.c_str(), &status); }) != 0) {
        return errno == ENOENT || errno == ENOTDIR ? DiskState::gone : DiskState::changed;
    }
    if (known.isOf(status)) return DiskState::same;
    const bool isOther = known.device != status.st_dev || known.inode != status.st_ino;
    const DiskState difference = isOther ? DiskState::replaced : DiskState::changed;
    if (!S_ISREG(status.st_mode) || status.st_size != known.size) return difference;
    try {
        const auto now = stampAt(path);
        if (!now) return DiskState::gone;
        if (now->hash != known.hash) return difference;
        known = *now;
        return DiskState::same;
    } catch (const std::exception&) {
        return difference;
    }
}

FileStamp readStamp(const std::string& path) {
    const auto stamp = stampAt(path);
    if (!stamp) throw fileError(ENOENT, path);
    return *stamp;
}

std::optional<FileStamp> stampNow(const std::string& path) {
    try {
        return stampAt(path);
    } catch (const std::exception&) {
        struct stat status {};
        const auto look = [&] { return systemCalls().stat(path.c_str(), &status); };
        return uninterrupted(look) == 0 ? std::optional(stampOf(status, {})) : std::nullopt;
    }
}

}  // namespace kelvor
