// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/versions.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <exception>

#include "base/error.h"
#include "base/event.h"
#include "files/compressed.h"
#include "files/content_hash.h"
#include "files/file_error.h"
#include "files/files.h"
#include "files/listing.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/private_directory.h"
#include "files/regular_file.h"
#include "files/system_calls.h"
#include "frame/notice.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

/// A file larger than this, in bytes, has no versions.
constexpr std::size_t largestVersion = std::size_t{16} << 20;

/// Names in the state directory.
constexpr std::string_view switchName = "keep-versions";
constexpr std::string_view versionsName = "versions";

/// Names in the directory of one file's versions: the file's path, and what is being written.
constexpr std::string_view pathName = "path";
constexpr std::string_view unfinishedName = "unfinished";

/// A version as its file's name tells it: "NUMBER-TIME-SIZE-HASH". The numbers run on, so that the order stands
/// whatever the clock has said.
struct Stored {
    std::uint64_t number = 0;
    std::uint64_t when = 0;  ///< in seconds since 1970
    std::uint64_t size = 0;  ///< in bytes
    ContentHash hash;
    std::uint64_t room = 0;  ///< in bytes, on the disk
};

std::string digits(std::uint64_t number, std::size_t least = 1, int base = 10) {
    char text[64];
    char* const end = std::to_chars(std::begin(text), std::end(text), number, base).ptr;
    std::string written(std::begin(text), end);
    return std::string(least - std::min(least, written.size()), '0') + written;
}

std::string textOf(const ContentHash& hash) {
    constexpr std::size_t length = 16;
    constexpr int hexadecimal = 16;
    return digits(hash.high, length, hexadecimal) + digits(hash.low, length, hexadecimal);
}

std::string nameOf(const Stored& version) {
    constexpr std::size_t numberLength = 9;
    return digits(version.number, numberLength) + "-" + digits(version.when) + "-" + digits(version.size) + "-" +
           textOf(version.hash);
}

/// Takes a number from the begin of `text`; what is none is 0.
std::uint64_t takeNumber(std::string_view& text, std::size_t length, int base = 10) {
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + std::min(length, text.size()), number, base);
    text.remove_prefix(std::min(length, text.size()));
    return number;
}

/// Nothing for the name of anything else.
std::optional<Stored> versionOfName(std::string_view name) {
    constexpr std::size_t hashLength = 16;
    constexpr int hexadecimal = 16;
    std::string_view rest = name;
    Stored version;
    for (std::uint64_t* number : {&version.number, &version.when, &version.size}) {
        *number = takeNumber(rest, rest.find('-'));
        rest.remove_prefix(std::min(rest.size(), std::size_t{1}));
    }
    version.hash.high = takeNumber(rest, hashLength, hexadecimal);
    version.hash.low = takeNumber(rest, hashLength, hexadecimal);
    return nameOf(version) == name ? std::optional(version) : std::nullopt;
}

/// The path that the versions in a directory are of; "" when it has none.
std::string ownerOf(const std::string& directory) {
    const std::string path = joinPath(directory, pathName);
    const auto file = openRegularFile(path, O_RDONLY);
    return file ? readToEnd(file->file.descriptor(), file->status.st_size, path) : "";
}

/// The name, in the state directory, of the directory of a file's versions. Of two paths with one hash the second one
/// gets the next name.
std::string directoryNameOf(const std::string& path) {
    const std::string first = joinPath(versionsName, textOf(hashOf(path)));
    std::string name = first;
    for (std::uint64_t number = 2;; ++number) {
        const std::string owner = ownerOf(joinPath(stateDirectory(), name));
        if (owner.empty() || owner == path) return name;
        name = first + "-" + digits(number);
    }
}

/// The oldest first.
std::vector<Stored> versionsIn(const std::string& directory) {
    std::vector<Stored> versions;
    if (!lookAt(directory).isFolder()) return versions;
    visitEntries(directory, [&](const ListedEntry& entry) {
        auto version = versionOfName(entry.name());
        const auto status = version ? entry.status() : std::nullopt;
        if (status && S_ISREG(status->st_mode)) {
            version->room = static_cast<std::uint64_t>(status->st_size);
            versions.push_back(*version);
        }
        return true;
    });
    std::sort(versions.begin(), versions.end(),
              [](const Stored& left, const Stored& right) { return left.number < right.number; });
    return versions;
}

void writeAndRename(const std::string& unfinished, const std::string& path, std::string_view bytes) {
    OpenFile file = createPrivateFile(unfinished);
    const bool written = writeWhole(file.descriptor(), bytes) && flush(file.descriptor()) && file.close();
    if (!written) throw fileError(errno, unfinished);
    if (systemCalls().rename(unfinished.c_str(), path.c_str()) != 0) throw fileError(errno, path);
}

/// Makes a file that is there whole or not at all.
void makeWhole(const std::string& directory, std::string_view name, std::string_view bytes) {
    const std::string unfinished = joinPath(directory, unfinishedName);
    // One that was killed here has left its own.
    systemCalls().unlink(unfinished.c_str());
    try {
        writeAndRename(unfinished, joinPath(directory, name), bytes);
    } catch (const Error&) {
        systemCalls().unlink(unfinished.c_str());
        throw;
    }
}

/// How many of the oldest versions go; the newest one stays.
std::size_t countBeyond(const VersionLimits& limits, const std::vector<Stored>& versions, std::uint64_t now) {
    std::uint64_t bytes = 0;
    for (const Stored& version : versions) bytes += version.room;
    std::size_t count = 0;
    for (std::size_t left = versions.size(); left > 1; --left, ++count) {
        // A clock that is ahead at one save alone makes no version old.
        const std::uint64_t reference = std::min(now, versions[versions.size() - 2].when);
        const std::uint64_t oldest = reference - std::min(reference, static_cast<std::uint64_t>(limits.age.count()));
        if (left <= limits.count && bytes <= limits.bytes && versions[count].when >= oldest) break;
        bytes -= versions[count].room;
    }
    return count;
}

/// What a save is about to write over; nothing when there is no such file or none that is kept.
std::optional<std::string> bytesToKeep(const std::string& path) {
    try {
        const auto file = openRegularFile(path, O_RDONLY);
        if (!file || file->status.st_size > static_cast<off_t>(largestVersion)) return std::nullopt;
        return readToEnd(file->file.descriptor(), file->status.st_size, path);
    } catch (const Error&) {
        // The save reads the file too, meets the same and tells of it.
        return std::nullopt;
    }
}

constexpr std::string_view failureNotice = "No version was kept";

}  // namespace

bool keepsVersions() {
    const std::string top = stateDirectory();
    return !top.empty() && lookAt(joinPath(top, switchName)).kind == PathKind::file;
}

void setKeepsVersions(bool keeps) {
    if (keeps == keepsVersions()) return;
    const std::string path = joinPath(privateDirectory(""), switchName);
    if (keeps) {
        createPrivateFile(path);
    } else {
        removeFile(path);
    }
}

std::string versionsDirectory() {
    return joinPath(stateDirectory(), versionsName);
}

void keepVersion(const std::string& path) {
    if (!keepsVersions()) return;
    try {
        const auto bytes = bytesToKeep(path);
        if (!bytes) return;
        keepVersion(path, *bytes, {}, std::time(nullptr));
        clearNotice(failureNotice);
    } catch (const std::exception&) {
        showNotice(failureNotice, loggedFailure(currentError()).cause());
    }
}

void keepVersion(const std::string& path, std::string_view bytes, const VersionLimits& limits, std::time_t now) {
    if (bytes.size() > largestVersion) return;
    const std::string directory = privateDirectory(directoryNameOf(path));
    std::vector<Stored> versions = versionsIn(directory);
    Stored version = {.number = versions.empty() ? 1 : versions.back().number + 1,
                      .when = static_cast<std::uint64_t>(std::max(now, std::time_t{0})),
                      .size = bytes.size(),
                      .hash = hashOf(bytes)};
    const bool isKept =
        !versions.empty() && versions.back().hash == version.hash && versions.back().size == version.size;
    if (isKept) return;
    if (ownerOf(directory).empty()) makeWhole(directory, pathName, path);
    const std::string data = compressed(bytes);
    makeWhole(directory, nameOf(version), data);
    version.room = data.size();
    versions.push_back(version);
    versions.resize(countBeyond(limits, versions, version.when));
    for (const Stored& old : versions) systemCalls().unlink(joinPath(directory, nameOf(old)).c_str());
}

std::vector<FileVersion> versionsOf(const std::string& path) {
    std::vector<FileVersion> versions;
    if (stateDirectory().empty()) return versions;
    for (const Stored& version : versionsIn(joinPath(stateDirectory(), directoryNameOf(path))))
        versions.push_back({nameOf(version), static_cast<std::time_t>(version.when), version.size});
    std::reverse(versions.begin(), versions.end());
    return versions;
}

std::optional<std::string> readVersion(const std::string& path, const FileVersion& version) {
    const std::string directory = joinPath(stateDirectory(), directoryNameOf(path));
    auto bytes = decompressed(readFile(joinPath(directory, version.id)), largestVersion);
    const auto stored = versionOfName(version.id);
    if (!bytes || !stored || hashOf(*bytes) != stored->hash) return std::nullopt;
    return bytes;
}

}  // namespace kelvor
