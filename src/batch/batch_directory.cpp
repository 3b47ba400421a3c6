// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batch_directory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <exception>
#include <vector>

#include "base/error.h"
#include "files/file_error.h"
#include "files/file_stamp.h"
#include "files/files.h"
#include "files/listing.h"
#include "files/paths.h"
#include "files/private_directory.h"
#include "files/regular_file.h"

namespace kelvor {

namespace {

constexpr const char* recordName = "record";

OpenFile lockedFile(const std::string& path) {
    constexpr mode_t ownerOnly = 0600;
    OpenFile lock(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, ownerOnly));
    if (lock.descriptor() < 0) throw fileError(errno, path);
    if (!lockFile(lock.descriptor())) {
        throw pathError(error_number::permissionDenied,
                        "Another run or another copy of the program is using the kept files", path);
    }
    return lock;
}

/// The numbers that are names of directories in it, the highest first.
std::vector<std::uint64_t> numbersIn(const std::string& directory) {
    std::vector<std::uint64_t> numbers;
    visitEntries(directory, [&](const ListedEntry& entry) {
        const std::string_view name = entry.name();
        std::uint64_t number = 0;
        const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), number);
        if (failure == std::errc() && end == name.data() + name.size() && number > 0) numbers.push_back(number);
        return true;
    });
    std::sort(numbers.rbegin(), numbers.rend());
    return numbers;
}

/// One that was killed or refused before that has thrown no earlier run away.
bool hasChangedAFile(const BatchRecord& record) {
    return std::any_of(record.files.begin(), record.files.end(), [](const KeptFile& file) {
        try {
            return readStamp(file.path).hash != file.before;
        } catch (const Error&) {
            return true;
        }
    });
}

/// Removes the files of a directory of the user's own, and then that; links to directories are left alone.
void removeFlat(const std::string& path, const Step& step) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid()) return;
    std::vector<std::string> names;
    visitEntries(path, [&](const ListedEntry& entry) {
        names.emplace_back(entry.name());
        return true;
    });
    // The record goes last: it knows of the others.
    std::partition(names.begin(), names.end(), [](const std::string& name) { return name != recordName; });
    for (const std::string& name : names) {
        systemCalls().unlink(joinPath(path, name).c_str());
        step();
    }
    rmdir(path.c_str());
}

}  // namespace

BatchDirectory::BatchDirectory() : path_(privateDirectory("batch")), lock_(lockedFile(joinPath(path_, "lock"))) {
}

std::uint64_t BatchDirectory::highest() const {
    const auto numbers = numbersIn(path_);
    return numbers.empty() ? 0 : numbers.front();
}

std::optional<RecordedRun> BatchDirectory::latest() const {
    std::optional<RecordedRun> newest;
    for (const std::uint64_t number : numbersIn(path_)) {
        auto known = record(number);
        if (!known) continue;
        if (hasChangedAFile(*known)) return RecordedRun{number, std::move(*known)};
        if (!newest) newest = RecordedRun{number, std::move(*known)};
    }
    return newest;
}

std::string BatchDirectory::pathOf(std::uint64_t number) const {
    return joinPath(path_, std::to_string(number));
}

std::string BatchDirectory::recordPathOf(std::uint64_t number) const {
    return joinPath(pathOf(number), recordName);
}

/// Nothing when there is none, or none that can be read.
std::optional<BatchRecord> BatchDirectory::record(std::uint64_t number) const {
    const auto bytes = readFileIfPossible(recordPathOf(number));
    return bytes ? readRecord(*bytes) : std::nullopt;
}

void BatchDirectory::remove(std::uint64_t number, const Step& step) const {
    if (const auto known = record(number))
        for (const std::string& directory : known->directories) removeFlat(directory, step);
    removeFlat(pathOf(number), step);
}

void BatchDirectory::removeAllBut(std::uint64_t number, const Step& step) const {
    for (const std::uint64_t other : numbersIn(path_))
        if (other != number) remove(other, step);
}

}  // namespace kelvor
