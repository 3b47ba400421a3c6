// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/file_replace.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "base/error.h"
#include "base/step.h"
#include "files/file_error.h"
#include "files/file_stamp.h"
#include "files/files.h"
#include "files/paths.h"
#include "files/system_calls.h"
#include "files/temporary_directory.h"

namespace kelvor {

namespace {

/// A failure of the temporary file, with the name of the file for which it was.
Error temporaryError(int code, const std::string& temporary, const std::string& path) {
    const Error error = fileError(code, temporary + ", which was to become " + path);
    return {error.number(), error.description(),
            error.cause() + "\r\nTemporary directory: " + directoryPart(temporary)};
}

/// Sees to it that the path still leads to the file that was read, and nobody has written to it. Whether another file
/// may take the file's place: it has one name, and the path is that name.
bool isUntouchedOnlyName(const ReplaceableFile& target) {
    const char* path = target.path.c_str();
    struct stat named {};
    bool failed = uninterrupted([&] { return systemCalls().lstat(path, &named); }) != 0;
    const bool isLink = !failed && S_ISLNK(named.st_mode);
    if (isLink) failed = uninterrupted([&] { return systemCalls().stat(path, &named); }) != 0;
    if (failed) throw fileError(errno, target.path);
    if (!stampOf(target.opened.status, {}).isOf(named)) {
        throw pathError(error_number::pathAccess, "Another program has changed the file meanwhile", target.path);
    }
    return !isLink && named.st_nlink == 1;
}

/// The names of a file's extended attributes, each ended by a NUL; nothing when they cannot be told.
std::optional<std::string> attributeNames(int descriptor) {
    const auto size = flistxattr(descriptor, nullptr, 0);
    if (size < 0) return errno == ENOTSUP ? std::optional("") : std::nullopt;
    std::string names(static_cast<std::size_t>(size), '\0');
    if (size > 0 && flistxattr(descriptor, names.data(), names.size()) != size) return std::nullopt;
    return names;
}

bool copyAttribute(int from, int to, const char* name) {
    const auto size = fgetxattr(from, name, nullptr, 0);
    if (size < 0) return false;
    std::string value(static_cast<std::size_t>(size), '\0');
    if (size > 0 && fgetxattr(from, name, value.data(), value.size()) != size) return false;
    return systemCalls().fsetxattr(to, name, value.data(), value.size(), 0) == 0;
}

bool copyAttributes(int from, int to) {
    const auto names = attributeNames(from);
    if (!names) return false;
    for (std::size_t start = 0; start < names->size(); start = names->find('\0', start) + 1) {
        const char* name = names->c_str() + start;
        // A write takes a program's capabilities from its file, and so does this.
        if (std::string_view(name) != "security.capability" && !copyAttribute(from, to, name)) return false;
    }
    return true;
}

/// Brings the bytes to the disk, portion by portion; false, and why in errno, when it could not.
bool writeToDisk(int descriptor, std::string_view bytes, Flusher& flusher, const Step& step) {
    constexpr std::size_t portion = std::size_t{4} << 20;
    for (std::size_t written = 0; written < bytes.size(); step()) {
        const auto next = bytes.substr(written, portion);
        if (!writeWhole(descriptor, next, written)) return false;
        written += next.size();
    }
    return flusher.flush(descriptor, step);
}

/// Writes the bytes into a new file. Whether it also has the target's extended attributes.
bool writeTemporary(const ReplaceableFile& target, std::string_view bytes, const std::string& temporary,
                    Flusher& flusher, const Step& step) {
    OpenFile file = createForOwner(temporary);
    if (file.descriptor() < 0) throw temporaryError(errno, temporary, target.path);
    const bool hasAttributes = copyAttributes(target.opened.file.descriptor(), file.descriptor());
    if (!writeToDisk(file.descriptor(), bytes, flusher, step) || !file.close())
        throw temporaryError(errno, temporary, target.path);
    return hasAttributes;
}

bool giveRights(const struct stat& status, const char* temporary) {
    constexpr mode_t copiedBits = 01777;
    return systemCalls().lchown(temporary, status.st_uid, status.st_gid) == 0 &&
           systemCalls().chmod(temporary, status.st_mode & copiedBits) == 0;
}

/// Puts the temporary file in the target's place, with its owner and mode; false when the disk or the directory does
/// not let it.
bool takePlace(const char* temporary, const ReplaceableFile& target) {
    const bool hasRights = giveRights(target.opened.status, temporary);
    const auto rename = [&] { return systemCalls().rename(temporary, target.path.c_str()); };
    if (hasRights && uninterrupted(rename) == 0) return true;
    const int code = errno;
    // What is left is this user's again, so that the next file can take its place.
    systemCalls().lchown(temporary, geteuid(), getegid());
    const bool canBeWritten = code == EXDEV || code == EACCES || code == EPERM || code == EROFS || code == EBUSY;
    if (hasRights && !canBeWritten) throw fileError(code, target.path);
    return false;
}

/// The old file of a replacement, kept at a path of its own, if it is to be.
class OldFile {
public:
    OldFile(const ReplaceableFile& file, const std::string& keepAs) : file_(file), keepAs_(keepAs) {}
    /// A file that nothing has taken the place of goes back to its one name.
    ~OldFile() {
        if (linked_) remove();
    }
    OldFile(const OldFile&) = delete;
    OldFile& operator=(const OldFile&) = delete;

    bool isWanted() const { return !keepAs_.empty(); }
    /// Keeps the file itself, for when another one takes its place; false where it can have no second name.
    bool keep() {
        linked_ = uninterrupted([&] { return systemCalls().link(file_.path.c_str(), keepAs_.c_str()); }) == 0;
        return linked_;
    }
    /// Keeps a copy instead, with its bytes on the disk; false, and why in errno, when it cannot be made.
    bool copy(Flusher& flusher, const Step& step);
    bool isLinked() const { return linked_; }
    /// Another file has taken its place.
    void hasGone() { linked_ = false; }

private:
    void remove() {
        uninterrupted([&] { return systemCalls().unlink(keepAs_.c_str()); });
        linked_ = false;
    }

    const ReplaceableFile& file_;
    const std::string& keepAs_;
    bool linked_ = false;
};

bool OldFile::copy(Flusher& flusher, const Step& step) {
    if (linked_) remove();
    OpenFile made = createForOwner(keepAs_);
    if (made.descriptor() < 0) return false;
    const int from = file_.opened.file.descriptor();
    std::string bytes;
    // Where the file system can let two files share their bytes, none are written.
    if (ioctl(made.descriptor(), FICLONE, from) != 0)
        bytes = readToEnd(from, file_.opened.status.st_size, file_.path, step);
    if (writeToDisk(made.descriptor(), bytes, flusher, step) && made.close()) return true;
    const int code = errno;
    remove();
    errno = code;
    return false;
}

bool isOwnFile(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_uid == geteuid() && status.st_nlink == 1;
}

}  // namespace

ReplaceableFile readForReplacement(const std::string& path, const Step& step) {
    auto opened = openRegularFile(path, O_RDWR);
    if (!opened) throw fileError(ENOENT, path);
    auto bytes = readToEnd(opened->file.descriptor(), opened->status.st_size, path, step);
    const ContentHash hash = hashOf(bytes);
    return {path, std::move(*opened), std::move(bytes), hash};
}

Outcome replaceFile(const ReplaceableFile& target, std::string_view bytes, const std::string& temporary,
                    Flusher& flusher, const Step& step, const std::string& keepAs) {
    OldFile old(target, keepAs);
    const auto notKept = [&] {
        auto failure = Outcome::failed(fileError(errno, keepAs).cause());
        uninterrupted([&] { return systemCalls().unlink(temporary.c_str()); });
        return failure;
    };
    const bool hasAttributes = writeTemporary(target, bytes, temporary, flusher, step);
    const bool mayTakePlace = isUntouchedOnlyName(target) && hasAttributes;
    if (old.isWanted() && !(mayTakePlace && old.keep())) {
        if (!old.copy(flusher, step)) return notKept();
        // A busy disk takes its time.
        isUntouchedOnlyName(target);
    }
    if (mayTakePlace && takePlace(temporary.c_str(), target)) {
        old.hasGone();
        return Outcome::done();
    }
    // What is written in place is written into the file that was to be kept.
    if (old.isLinked() && !old.copy(flusher, step)) return notKept();
    saveFileInPlace(target.path, bytes);
    // One that does not go is met by clearTemporary; the target is written all the same.
    uninterrupted([&] { return systemCalls().unlink(temporary.c_str()); });
    return Outcome::done();
}

void clearTemporary(const std::string& temporary) {
    struct stat status {};
    if (uninterrupted([&] { return systemCalls().lstat(temporary.c_str(), &status); }) != 0) {
        if (errno == ENOENT) return;
        throw fileError(errno, temporary);
    }
    if (!isOwnFile(status)) {
        throw pathError(error_number::fileAlreadyExists, "Something else stands in the temporary file's place",
                        temporary);
    }
    if (uninterrupted([&] { return systemCalls().unlink(temporary.c_str()); }) != 0) {
        throw fileError(errno, temporary);
    }
}

std::vector<std::string> abandonedTemporaries(const std::string& name) {
    std::vector<std::string> found;
    for (const std::string& directory : abandonedTemporaryDirectories()) {
        auto path = joinPath(directory, name);
        struct stat status {};
        if (lstat(path.c_str(), &status) == 0 && isOwnFile(status)) found.push_back(std::move(path));
    }
    return found;
}

void removeAbandonedTemporary(const std::string& temporary) {
    clearTemporary(temporary);
    rmdir(directoryPart(temporary).c_str());
}

}  // namespace kelvor
