// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "base/error.h"
#include "files/file_error.h"
#include "files/listing.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/regular_file.h"
#include "files/system_calls.h"
#include "text/code_points.h"
#include "text/text_order.h"

namespace kelvor {

namespace {

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
    const auto regular = openToRead(path);
    return readToEnd(regular.file.descriptor(), regular.status.st_size, path);
}

std::optional<std::string> readFileIfPossible(const std::string& path) {
    try {
        return readFile(path);
    } catch (const Error& error) {
        if (error.number() == error_number::outOfMemory) throw;
        return std::nullopt;
    }
}

StampedBytes readStamped(const std::string& path) {
    const auto regular = openToRead(path);
    auto bytes = readToEnd(regular.file.descriptor(), regular.status.st_size, path);
    const auto hash = hashOf(bytes);
    return {std::move(bytes), stampOf(regular.status, hash)};
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
    if (lookAt(path).mayBeThere()) return true;
    const auto pattern = fileNamePart(path);
    const auto part = directoryPart(path);
    const auto directory = part.empty() ? "." : part;
    if (pattern.find_first_of("*?") == std::string::npos || !lookAt(directory).isFolder()) return false;
    bool found = false;
    visitEntries(directory, [&](const ListedEntry& entry) {
        found = nameMatches(entry.name(), pattern) && entry.kind() == PathKind::file;
        return !found;
    });
    return found;
}

std::vector<std::string> filesMatching(const std::string& directory, const std::string& pattern) {
    std::vector<std::string> names;
    visitEntries(directory, [&](const ListedEntry& entry) {
        if (nameMatches(entry.name(), pattern) && entry.kind() == PathKind::file) names.emplace_back(entry.name());
        return true;
    });
    sortAsText(names);
    return names;
}

std::vector<std::string> directoriesIn(const std::string& directory) {
    std::vector<std::string> names;
    visitEntries(directory, [&](const ListedEntry& entry) {
        if (*entry.name() != '.' && entry.kind() == PathKind::folder) names.emplace_back(entry.name());
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

void removeFile(const std::string& path) {
    if (unlink(path.c_str()) != 0) throw fileError(errno, path);
}

void renameFile(const std::string& from, const std::string& to) {
    bool done = systemCalls().renameToNew(from.c_str(), to.c_str()) == 0;
    if (!done && (errno == EINVAL || errno == ENOSYS)) done = renameByLink(from.c_str(), to.c_str());
    if (!done) throw fileError(errno, errno == EEXIST ? to : from);
}

}  // namespace kelvor
