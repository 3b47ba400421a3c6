// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <exception>

#include "base/error.h"
#include "files/file_error.h"
#include "files/files.h"
#include "files/regular_file.h"
#include "files/system_calls.h"

namespace kelvor {

namespace {

/// A file that is being written over, with all that the way back needs.
struct Target {
    const std::string& path;
    OpenFile file;
    bool isNew = false;
    std::string oldBytes;
    /// Whether the file may have lost its end already.
    bool isCutShort = false;

    int descriptor() const { return file.descriptor(); }
};

off_t sizeOf(std::string_view bytes) {
    return static_cast<off_t>(bytes.size());
}

/// Opens a file that is to be made. Whatever stands at the path already is left alone.
OpenFile createFile(const std::string& path) {
    constexpr mode_t readAndWrite = 0666;
    const int flags = O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY;
    OpenFile file(uninterrupted([&] { return systemCalls().open(path.c_str(), flags, readAndWrite); }));
    if (file.descriptor() >= 0) return file;
    // The path led to no file a moment ago and yet something is there.
    if (errno == EEXIST) {
        throw pathError(error_number::pathNotFound, "This is a link to a file that does not exist", path);
    }
    // No file was to be there: what is missing is its folder.
    throw fileError(errno == ENOENT ? ENOTDIR : errno, path);
}

/// Sees to it that the write is over the file that the path names, and not over one put in its place meanwhile.
void checkIdentity(const struct stat& opened, const std::string& path) {
    struct stat named {};
    if (uninterrupted([&] { return systemCalls().stat(path.c_str(), &named); }) != 0) throw fileError(errno, path);
    if (named.st_dev != opened.st_dev || named.st_ino != opened.st_ino) {
        throw pathError(error_number::pathAccess, "Another program replaced the file during the save", path);
    }
}

Target openTarget(const std::string& path) {
    if (auto regular = openRegularFile(path, O_RDWR)) {
        checkIdentity(regular->status, path);
        auto oldBytes = readToEnd(regular->file.descriptor(), regular->status.st_size, path);
        return {path, std::move(regular->file), false, std::move(oldBytes), false};
    }
    return {path, createFile(path), true, {}, false};
}

bool truncateTo(int descriptor, off_t length) {
    return uninterrupted([&] { return systemCalls().ftruncate(descriptor, length); }) == 0;
}

/// Sets room aside for the new bytes before the first of them is written. False when the disk says that there
/// is none; a file system that cannot tell lets the write find out.
bool reserveRoom(const Target& target, std::string_view bytes) {
    if (bytes.empty()) return true;
    const auto reserve = [&] {
        return systemCalls().fallocate(target.descriptor(), FALLOC_FL_KEEP_SIZE, 0, sizeOf(bytes));
    };
    return uninterrupted(reserve) == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}

bool writeOver(Target& target, std::string_view bytes) {
    const int descriptor = target.descriptor();
    if (!writeWhole(descriptor, bytes)) return false;
    if (bytes.size() < target.oldBytes.size()) {
        target.isCutShort = true;
        if (!truncateTo(descriptor, sizeOf(bytes))) return false;
    }
    return flush(descriptor);
}

bool stillHoldsOldBytes(const Target& target) {
    try {
        return readToEnd(target.descriptor(), sizeOf(target.oldBytes), target.path) == target.oldBytes;
    } catch (const std::exception&) {
        return false;
    }
}

/// Gives the file its old bytes and length again. False when it may hold anything else.
bool goBack(const Target& target, std::size_t newSize) {
    if (target.isNew) return uninterrupted([&] { return systemCalls().unlink(target.path.c_str()); }) == 0;
    // What lies behind the new bytes was not written over, and in a file with holes may have no room.
    const auto reached = std::string_view(target.oldBytes).substr(0, target.isCutShort ? std::string::npos : newSize);
    const bool written = writeWhole(target.descriptor(), reached);
    const bool truncated = truncateTo(target.descriptor(), sizeOf(target.oldBytes));
    const bool restored = (written && truncated) || stillHoldsOldBytes(target);
    return flush(target.descriptor()) && restored;
}

[[noreturn]] void fail(const Target& target, int code, bool wentBack) {
    const auto error = fileError(code, target.path);
    if (wentBack) throw error;
    const std::string damage =
        target.isNew ? "A damaged file was left behind." : "The file on the disk may be damaged.";
    throw Error(error.number(), error.description() + "\r\n" + damage, error.cause() + "\r\n" + damage);
}

/// As it is before the file is closed; one whose status cannot be read is known by its bytes alone.
FileStamp stampOfWritten(const Target& target, std::string_view bytes) {
    struct stat status {};
    if (fstat(target.descriptor(), &status) != 0) status = {};
    FileStamp stamp = stampOf(status, hashOf(bytes));
    stamp.size = sizeOf(bytes);
    return stamp;
}

}  // namespace

std::optional<FileStamp> saveFileInPlace(const std::string& path, std::string_view bytes,
                                         const std::optional<ContentHash>& expected) {
    auto target = openTarget(path);
    if (expected && !target.isNew && hashOf(target.oldBytes) != *expected) return std::nullopt;
    if (!reserveRoom(target, bytes)) {
        const int code = errno;
        // Nothing is written yet: this only gives back what was set aside.
        truncateTo(target.descriptor(), sizeOf(target.oldBytes));
        fail(target, code, !target.isNew || goBack(target, 0));
    }
    if (!writeOver(target, bytes)) {
        const int code = errno;
        fail(target, code, goBack(target, bytes.size()));
    }
    const FileStamp stamp = stampOfWritten(target, bytes);
    if (!target.file.close()) {
        const int code = errno;
        fail(target, code, target.isNew && goBack(target, 0));
    }
    return stamp;
}

}  // namespace kelvor
