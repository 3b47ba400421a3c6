// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <exception>
#include <utility>

#include "base/error.h"
#include "files/file_error.h"
#include "files/paths.h"
#include "files/private_directory.h"
#include "files/regular_file.h"

namespace kelvor {

namespace {

/// Milliseconds since 1970, the process and a number, so that no other journal has the name and the oldest is the
/// first.
std::string freshName(std::string_view suffix) {
    using namespace std::chrono;
    static unsigned number = 0;
    const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    std::string name(64, '\0');
    const int length = std::snprintf(name.data(), name.size(), "%015lld-%d-%06u", std::max<long long>(now, 0),
                                     static_cast<int>(getpid()), ++number);
    name.resize(static_cast<std::size_t>(length));
    return name.append(suffix);
}

struct NewFile {
    OpenFile file;
    std::string path;
};

NewFile createLocked(std::string_view suffix) {
    const std::string directory = privateDirectory(journalDirectoryName);
    constexpr int attempts = 100;
    for (int i = 1;; ++i) {
        const std::string path = joinPath(directory, freshName(suffix));
        try {
            // Another copy that looks for journals may have locked it already: then this one is its own.
            OpenFile file = createPrivateFile(path);
            if (lockFile(file.descriptor())) return {std::move(file), path};
            if (i == attempts) throw fileError(errno, path);
        } catch (const Error& error) {
            if (error.number() != error_number::fileAlreadyExists || i == attempts) throw;
        }
    }
}

}  // namespace

JournalFile JournalFile::create(const JournalHeader& header, std::string_view suffix) {
    NewFile made = createLocked(suffix);
    JournalFile journal(std::move(made.file), std::move(made.path));
    try {
        journal.append(headerRecord(header));
    } catch (const std::exception&) {
        journal.remove();
        throw;
    }
    return journal;
}

JournalFile::JournalFile(OpenFile file, std::string path, const JournalContent& content)
    : file_(std::move(file)), path_(std::move(path)), length_(content.validLength), check_(content.check) {
    // Should this fail, what is torn is written over or stays out of the chain of the checksums.
    systemCalls().ftruncate(file_.descriptor(), static_cast<off_t>(length_));
}

void JournalFile::append(const JournalRecord& record) {
    constexpr std::size_t worthOneCall = std::size_t{64} << 10;
    const bool isSmall = record.body.size() <= worthOneCall;
    const std::string joint = isSmall ? record.head + std::string(record.body) : record.head;
    const std::string_view rest = isSmall ? std::string_view() : record.body;
    const int descriptor = file_.descriptor();
    if (!writeWhole(descriptor, joint, length_) || !writeWhole(descriptor, rest, length_ + joint.size())) {
        const int code = errno;
        systemCalls().ftruncate(descriptor, static_cast<off_t>(length_));
        throw fileError(code, path_);
    }
    length_ += record.size();
    check_ = record.check;
}

void JournalFile::flush() {
    struct stat status {};
    if (!flushData(file_.descriptor()) || systemCalls().fstat(file_.descriptor(), &status) != 0) {
        throw fileError(errno, path_);
    }
    if (status.st_nlink == 0) throw fileError(ENOENT, path_);
    flushedLength_ = length_;
    if (isNamed_) return;
    const OpenFile directory(systemCalls().open(directoryPart(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0));
    if (directory.descriptor() < 0 || !kelvor::flush(directory.descriptor())) throw fileError(errno, path_);
    isNamed_ = true;
}

void JournalFile::replace(const JournalFile& older) {
    if (systemCalls().rename(path_.c_str(), older.path_.c_str()) != 0) throw fileError(errno, path_);
    path_ = older.path_;
    isNamed_ = false;
}

void JournalFile::remove() {
    if (systemCalls().unlink(path_.c_str()) == 0) return;
    systemCalls().ftruncate(file_.descriptor(), 0);
}

}  // namespace kelvor
