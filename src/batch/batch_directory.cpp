// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batch_directory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <limits>
#include <utility>
#include <vector>

#include "base/error.h"
#include "files/file_error.h"
#include "files/file_stamp.h"
#include "files/files.h"
#include "files/listing.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/private_directory.h"
#include "files/regular_file.h"

namespace kelvor {

namespace {

constexpr std::string_view directoryName = "batch";
constexpr std::string_view recordName = "record";
/// Behind the number of a run whose files are to go.
constexpr std::string_view supersededSuffix = ".gone";

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

/// The numbers that are names of directories in it, with a suffix behind them, the highest first.
std::vector<std::uint64_t> numbersIn(const std::string& directory, std::string_view suffix = "") {
    std::vector<std::uint64_t> numbers;
    visitEntries(directory, [&](const ListedEntry& entry) {
        const std::string_view name = entry.name();
        std::uint64_t number = 0;
        const char* const last = name.data() + name.size();
        const auto [end, failure] = std::from_chars(name.data(), last, number);
        if (failure == std::errc() && std::string_view(end, last) == suffix && number > 0) numbers.push_back(number);
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

/// Removes files of a directory of the user's own, at most so many, and with the last of them the directory; links to
/// directories are left alone.
/// @return how many have gone
std::size_t removeFlat(const std::string& path, std::size_t most) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid()) return 0;
    std::vector<std::string> names;
    visitEntries(path, [&](const ListedEntry& entry) {
        // The record goes last: it knows of the others.
        if (entry.name() != recordName) names.emplace_back(entry.name());
        return names.size() < most;
    });
    const auto gone = std::count_if(names.begin(), names.end(), [&](const std::string& name) {
        return systemCalls().unlink(joinPath(path, name).c_str()) == 0;
    });
    if (names.size() < most) {
        systemCalls().unlink(joinPath(path, recordName).c_str());
        rmdir(path.c_str());
    }
    return static_cast<std::size_t>(gone);
}

/// Nothing when the directory of a run has none, or none that can be read.
std::optional<BatchRecord> recordIn(const std::string& directory) {
    const auto bytes = readFileIfPossible(joinPath(directory, recordName));
    return bytes ? readRecord(*bytes) : std::nullopt;
}

/// What holds the files that a run has kept: its own directory, and those elsewhere that its record knows of.
std::vector<std::string> directoriesOf(const std::string& own) {
    std::vector<std::string> directories = {own};
    if (const auto known = recordIn(own))
        directories.insert(directories.end(), known->directories.begin(), known->directories.end());
    return directories;
}

/// The directories of superseded runs in which files may still be, the next one to be emptied last.
class Superseded {
public:
    void add(const std::string& own) {
        const auto more = directoriesOf(own);
        directories_.insert(directories_.end(), more.begin(), more.end());
    }
    /// Removes at most so many files; whether there may be more.
    bool remove(std::size_t most) {
        try {
            if (!std::exchange(areEarlierKnown_, true)) addEarlier();
            if (directories_.empty()) return false;
            std::string next = std::move(directories_.back());
            directories_.pop_back();
            if (removeFlat(next, most) == most) directories_.push_back(std::move(next));
        } catch (const Error&) {
            // What does not go now stays until the next start.
        }
        return !directories_.empty();
    }

private:
    /// Those of earlier copies of the program.
    void addEarlier() {
        const std::string directory = joinPath(stateDirectory(), directoryName);
        if (!lookAt(directory).isFolder()) return;
        for (const std::uint64_t number : numbersIn(directory, supersededSuffix))
            add(joinPath(directory, std::to_string(number).append(supersededSuffix)));
    }

    std::vector<std::string> directories_;
    bool areEarlierKnown_ = false;
};

Superseded& superseded() {
    static Superseded runs;
    return runs;
}

}  // namespace

BatchDirectory::BatchDirectory() : path_(privateDirectory(directoryName)), lock_(lockedFile(joinPath(path_, "lock"))) {
}

std::uint64_t BatchDirectory::highest() const {
    std::uint64_t highest = 0;
    for (const std::string_view suffix : {std::string_view(), supersededSuffix})
        if (const auto numbers = numbersIn(path_, suffix); !numbers.empty())
            highest = std::max(highest, numbers.front());
    return highest;
}

std::optional<RecordedRun> BatchDirectory::latest() const {
    std::optional<RecordedRun> newest;
    for (const std::uint64_t number : numbersIn(path_)) {
        auto known = recordIn(pathOf(number));
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

void BatchDirectory::remove(std::uint64_t number) const {
    const auto directories = directoriesOf(pathOf(number));
    // The one with the record goes last.
    for (auto directory = directories.rbegin(); directory != directories.rend(); ++directory)
        removeFlat(*directory, std::numeric_limits<std::size_t>::max());
}

void BatchDirectory::supersede(std::uint64_t number) const {
    const std::string path = pathOf(number);
    const std::string gone = path + std::string(supersededSuffix);
    if (systemCalls().rename(path.c_str(), gone.c_str()) == 0) superseded().add(gone);
}

void BatchDirectory::supersedeAllBut(std::uint64_t number) const {
    for (const std::uint64_t other : numbersIn(path_))
        if (other != number) supersede(other);
}

bool removeSupersededFiles() {
    // Few enough that nobody who types notices them on a busy disk.
    constexpr std::size_t portion = 16;
    return superseded().remove(portion);
}

}  // namespace kelvor
