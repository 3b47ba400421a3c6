// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal_list.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <queue>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "core/journal_file.h"
#include "files/files.h"
#include "files/listing.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/regular_file.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// What is in the directory of the journals, by name.
struct JournalNames {
    std::vector<std::string> newest;  ///< the last one first
    std::size_t others = 0;
    std::vector<std::string> parts;  ///< that were to become journals
};

/// Names come in the order of time. The directory may hold any number of them.
JournalNames namesIn(const std::string& directory, std::size_t most) {
    std::priority_queue<std::string, std::vector<std::string>, std::greater<>> kept;
    JournalNames names;
    visitEntries(directory, [&](const ListedEntry& entry) {
        const std::string_view name = entry.name();
        if (name.ends_with(journalPartSuffix) && names.parts.size() < most) names.parts.emplace_back(name);
        if (!name.ends_with(journalSuffix)) return true;
        kept.emplace(name);
        if (kept.size() > most) {
            kept.pop();
            ++names.others;
        }
        return true;
    });
    for (; !kept.empty(); kept.pop()) names.newest.push_back(kept.top());
    std::reverse(names.newest.begin(), names.newest.end());
    return names;
}

/// Locks an open file, and looks whether it is the user's own and still what stands at the path: whoever held it may
/// have taken it away, or have put another one in its place.
bool lock(RegularFile& opened, const std::string& path) {
    const int descriptor = opened.file.descriptor();
    struct stat atPath {};
    return lockFile(descriptor) && fstat(descriptor, &opened.status) == 0 && opened.status.st_uid == geteuid() &&
           lstat(path.c_str(), &atPath) == 0 && atPath.st_dev == opened.status.st_dev &&
           atPath.st_ino == opened.status.st_ino;
}

/// The file at a path, locked, unless somebody holds it or it cannot be opened.
std::optional<RegularFile> takeFile(const std::string& path) {
    try {
        auto opened = openRegularFile(path, O_RDWR | O_NOFOLLOW);
        if (opened && lock(*opened, path)) return opened;
    } catch (const Error&) {
        return std::nullopt;
    }
    return std::nullopt;
}

/// A part of a file, as much as it holds of it.
std::string bytesAt(int descriptor, std::size_t place, std::size_t size) {
    std::string bytes(size, '\0');
    const ssize_t count = uninterrupted(
        [&] { return systemCalls().pread(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(place)); });
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return bytes;
}

/// The heads of small records stand close to each other and come in one read; large texts between them are passed over.
std::uint64_t textLengthIn(int descriptor, const JournalContent& content, off_t size) {
    constexpr std::size_t windowSize = std::size_t{1} << 16;
    if (content.fault != JournalFault::none) return 0;
    std::string window;
    std::size_t start = 0;
    return seemingTextLength(content.header, static_cast<std::size_t>(size), [&](std::size_t place) {
        if (place < start || place + journalHeadRoom > start + window.size()) {
            window = bytesAt(descriptor, place, windowSize);
            start = place;
        }
        return std::string_view(window).substr(place - start);
    });
}

/// The journal at a path, unless somebody holds it. One that was killed before there was anything in it goes.
std::unique_ptr<LeftJournal> takeJournal(const std::string& path) {
    auto opened = takeFile(path);
    if (!opened) return nullptr;
    JournalContent content = readJournalHeader(bytesAt(opened->file.descriptor(), 0, journalHeaderRoom));
    if (opened->status.st_size == static_cast<off_t>(content.validLength) && content.fault != JournalFault::newer) {
        systemCalls().unlink(path.c_str());
        return nullptr;
    }
    const auto textLength = textLengthIn(opened->file.descriptor(), content, opened->status.st_size);
    return std::make_unique<LeftJournal>(LeftJournal{path, std::move(opened->file), content.fault,
                                                     std::move(content.header), opened->status.st_mtime,
                                                     opened->status.st_size, textLength});
}

}  // namespace

LeftJournals findLeftJournals(std::size_t most) {
    LeftJournals found;
    const std::string state = stateDirectory();
    if (state.empty()) return found;
    const std::string directory = joinPath(state, journalDirectoryName);
    JournalNames names;
    try {
        names = namesIn(directory, most);
    } catch (const Error&) {
        return found;
    }
    for (const std::string& name : names.newest)
        if (auto journal = takeJournal(joinPath(directory, name))) found.newest.push_back(std::move(journal));
    for (const std::string& name : names.parts)
        if (takeFile(joinPath(directory, name))) systemCalls().unlink(joinPath(directory, name).c_str());
    found.others = names.others;
    return found;
}

std::string causeOf(JournalFault fault) {
    switch (fault) {
        case JournalFault::none:
            return {};
        case JournalFault::unreadable:
            return "This cannot be read. There is no text that could be brought back.";
        case JournalFault::newer:
            return "A newer version of Kelvor has left this, and can bring it back.";
        case JournalFault::noText:
            return "Kelvor ended before there was a text to be brought back.";
        case JournalFault::fileChanged:
            return "The file on the disk holds something else by now, and the text cannot be put together without it.";
    }
    return {};
}

JournalContent readLeftJournal(const LeftJournal& journal) {
    return readJournal(readToEnd(journal.file.descriptor(), static_cast<off_t>(journal.size), journal.path),
                       readFileIfPossible);
}

std::optional<FileStamp> fileSeen(const JournalContent& content) {
    const auto& stamp = content.header.stamp;
    if (!content.save || content.save->path != content.header.name) return stamp;
    try {
        const auto written = encode(content.text, content.save->encoding);
        const FileStamp now = readStamp(content.header.name);
        return written && hashOf(*written) == now.hash ? now : stamp;
    } catch (const Error&) {
        return stamp;
    }
}

void discardLeftJournal(const LeftJournal& journal) {
    removeFile(journal.path);
}

}  // namespace kelvor
