// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/journal_format.h"
#include "files/file_stamp.h"
#include "files/system_calls.h"

namespace kelvor {

/// A journal that a copy of the program has left which ended without its documents being closed. No other copy takes it
/// while this lives.
struct LeftJournal {
    std::string path;
    OpenFile file;             ///< for reading and writing, and locked
    JournalFault fault;        ///< none, unreadable or newer, as the header tells
    JournalHeader header;      ///< good when the fault is none
    std::time_t written;       ///< when something was kept in it last
    std::int64_t size;         ///< in bytes
    std::uint64_t textLength;  ///< in bytes, as it seems
};

struct LeftJournals {
    std::vector<std::unique_ptr<LeftJournal>> newest;  ///< the last one first
    std::size_t others = 0;                            ///< how many older ones were not looked at
};

/// What is left in the directory of the journals, as far as nobody holds it: of very many the newest by their names. No
/// more than the heads of the records is read. Nothing when the directory is missing or cannot be read.
/// @param most  how many are looked at
LeftJournals findLeftJournals(std::size_t most = 500);

/// Why a journal gives no text, in a sentence for the user; "" for JournalFault::none.
std::string causeOf(JournalFault fault);

/// The whole of it. Throws what readFile throws, and std::bad_alloc.
JournalContent readLeftJournal(const LeftJournal& journal);

/// What its file was like when the user saw it last: when it was read, or when a save had written the whole text that
/// was killed then. Nothing when there was no file.
std::optional<FileStamp> fileSeen(const JournalContent& content);

/// Throws Error when it does not go.
void discardLeftJournal(const LeftJournal& journal);

}  // namespace kelvor
