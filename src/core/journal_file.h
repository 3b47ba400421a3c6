// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/journal_format.h"
#include "files/system_calls.h"

namespace kelvor {

/// The directory of the journals in the state directory.
constexpr std::string_view journalDirectoryName = "journals";
/// How their names end. Their order as texts is the order of time, as far as the clock went forward.
constexpr std::string_view journalSuffix = ".journal";
/// The same for one that is to take another's place once it is whole. What a kill leaves of it is of no use.
constexpr std::string_view journalPartSuffix = ".journal-part";

/// The file of one journal, locked (flock) as long as it is open. Everything here throws Error when it fails.
class JournalFile {
public:
    /// Makes one for the user alone, with its header and no more.
    static JournalFile create(const JournalHeader& header, std::string_view suffix = journalSuffix);
    /// Goes on in one that is there; what stands behind its valid length goes.
    /// @param file  open for reading and writing, and locked
    JournalFile(OpenFile file, std::string path, const JournalContent& content);

    const std::string& path() const { return path_; }
    std::size_t length() const { return length_; }
    /// What the next record is joined to.
    const ContentHash& check() const { return check_; }
    /// Whether a power failure might take something away.
    bool isUnflushed() const { return flushedLength_ != length_ || !isNamed_; }

    /// Adds a record whole; when it throws, the file is as it was.
    void append(const JournalRecord& record);
    /// Waits until the disk has all of it, and its name. Fails too when somebody has removed the file.
    void flush();
    /// Takes the name of `older`, whose file goes.
    void replace(const JournalFile& older);
    /// The file goes. One that cannot be removed is left empty.
    void remove();

private:
    JournalFile(OpenFile file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    OpenFile file_;
    std::string path_;
    std::size_t length_ = 0;
    std::size_t flushedLength_ = 0;
    bool isNamed_ = false;  ///< the directory's entry is on the disk
    ContentHash check_;
};

}  // namespace kelvor
