#include "files/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "files/file_error.h"
#include "files/paths.h"
#include "files/regular_file.h"
#include "files/system_calls.h"
#include "text/code_points.h"
#include "text/text_order.h"

namespace kelvor {

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

enum class EntryKind { gone, file, directory };

/// What an entry of a listing is; a link is what it leads to.
EntryKind kindOf(int directory, const dirent& entry) {
    const auto kind = [](bool isDirectory) { return isDirectory ? EntryKind::directory : EntryKind::file; };
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return kind(entry.d_type == DT_DIR);
    struct stat status {};
    if (fstatat(directory, entry.d_name, &status, 0) != 0) return EntryKind::gone;
    return kind(S_ISDIR(status.st_mode));
}

[[noreturn]] void failToRead(const std::string& directory) {
    throw fileError(errno == ENOENT ? ENOTDIR : errno, directory);
}

/// Calls `visit` with the name of each entry of that kind in the directory until it answers false. Throws Error when
/// the directory cannot be read to its end.
template <typename Visit>
void visitEntries(const std::string& directory, EntryKind kind, const Visit& visit) {
    const std::unique_ptr<DIR, CloseDirectory> stream(opendir(directory.c_str()));
    if (!stream) failToRead(directory);
    for (;;) {
        errno = 0;
        const auto* entry = readdir(stream.get());
        if (!entry && errno != 0) failToRead(directory);
        if (!entry) return;
        if (kindOf(dirfd(stream.get()), *entry) == kind && !visit(std::string(entry->d_name))) return;
    }
}

/// Whether there is something at the path, or may be: where the user may not look, only an attempt tells.
bool mayExist(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) return true;
    return errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG;
}

/// Renames after a look whether the name is free; a file that another program makes there between the two is lost.
bool renameAfterLook(const char* from, const char* to) {
    const SystemCalls& calls = systemCalls();
    struct stat status {};
    if (calls.lstat(to, &status) != 0) return errno == ENOENT && calls.rename(from, to) == 0;
    errno = EEXIST;
    return false;
}

/// Gives the file a second name that is free and takes the first one away, where the disk knows second names. False,
/// and why in errno, when the file has its old name.
bool renameByLink(const char* from, const char* to) {
    const SystemCalls& calls = systemCalls();
    if (calls.link(from, to) != 0) {
        const bool mayLackLinks = errno == EPERM || errno == ENOSYS || errno == EOPNOTSUPP;
        return mayLackLinks && renameAfterLook(from, to);
    }
    // Where another program has taken the old name away meanwhile, the new one is the file's last.
    if (calls.unlink(from) == 0 || errno == ENOENT) return true;
    const int code = errno;
    calls.unlink(to);
    errno = code;
    return false;
}

}  // namespace

std::string readFile(const std::string& path) {
    auto regular = openRegularFile(path, O_RDONLY);
    if (!regular) throw fileError(ENOENT, path);
    return readToEnd(regular->file.descriptor(), regular->status.st_size, path);
}

bool isReadOnly(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return false;
    return !hasWriteBit(status) || faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0;
}

bool appendToFile(const std::string& path, std::string_view line) {
    constexpr mode_t ownerOnly = 0600;
    const int flags = O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const OpenFile file(uninterrupted([&] { return systemCalls().open(path.c_str(), flags, ownerOnly); }));
    struct stat status {};
    if (file.descriptor() < 0 || fstat(file.descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    const auto written = uninterrupted([&] { return write(file.descriptor(), line.data(), line.size()); });
    return written == static_cast<ssize_t>(line.size());
}

bool listingFinds(const std::string& path) {
    if (mayExist(path)) return true;
    const auto pattern = fileNamePart(path);
    const auto part = directoryPart(path);
    const auto directory = part.empty() ? "." : part;
    if (pattern.find_first_of("*?") == std::string::npos || !isDirectory(directory)) return false;
    bool found = false;
    visitEntries(directory, EntryKind::file, [&](const std::string& name) {
        found = nameMatches(name, pattern);
        return !found;
    });
    return found;
}

std::vector<std::string> filesMatching(const std::string& directory, const std::string& pattern) {
    std::vector<std::string> names;
    visitEntries(directory, EntryKind::file, [&](std::string name) {
        if (nameMatches(name, pattern)) names.push_back(std::move(name));
        return true;
    });
    sortAsText(names);
    return names;
}

std::vector<std::string> directoriesIn(const std::string& directory) {
    std::vector<std::string> names;
    visitEntries(directory, EntryKind::directory, [&](std::string name) {
        if (!name.starts_with('.')) names.push_back(std::move(name));
        return true;
    });
    sortAsText(names);
    return names;
}

bool nameMatches(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;
    // Only the last star needs to be tried again: what the earlier ones took may stay as short as it is.
    std::size_t atName = 0;
    std::size_t atPattern = 0;
    std::size_t starName = 0;
    std::size_t behindStar = std::string_view::npos;
    while (atName < name.size()) {
        const auto character = codePointAt(name, atName);
        const auto wanted = atPattern < pattern.size() ? codePointAt(pattern, atPattern) : CodePoint{};
        if (wanted.length > 0 && wanted.value == '*') {
            behindStar = ++atPattern;
            starName = atName;
        } else if (wanted.length > 0 &&
                   (wanted.value == '?' || foldedCodePoint(wanted.value) == foldedCodePoint(character.value))) {
            atName += character.length;
            atPattern += wanted.length;
        } else if (behindStar != std::string_view::npos) {
            starName += codePointAt(name, starName).length;
            atName = starName;
            atPattern = behindStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', atPattern) == std::string_view::npos;
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void removeFile(const std::string& path) {
    if (unlink(path.c_str()) != 0) throw fileError(errno, path);
}

void renameFile(const std::string& from, const std::string& to) {
    bool done = systemCalls().renameToNew(from.c_str(), to.c_str()) == 0;
    if (!done && (errno == EINVAL || errno == ENOSYS)) done = renameByLink(from.c_str(), to.c_str());
    if (!done) throw fileError(errno, errno == EEXIST ? to : from);
}

}  // namespace kelvor
