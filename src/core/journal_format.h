// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "files/content_hash.h"
#include "files/file_stamp.h"
#include "text/changed_range.h"
#include "text/text_encoding.h"

namespace kelvor {

/// What a journal begins with.
struct JournalHeader {
    std::string name;         ///< the path of the document's file, its bytes as the disk has them, or "Untitled 3"
    bool isUntitled = false;  ///< the name is no path
    Encoding encoding = Encoding::utf8;
    std::int64_t begun = 0;          ///< seconds since 1970 by the clock on the wall
    std::optional<FileStamp> stamp;  ///< of the document's file, as the document knew it
    bool isOfSnapshot = false;       ///< the changes are counted from a snapshot, and not from that file

    /// Whether the changes are counted from the file; if not, a snapshot comes first.
    bool isOfFile() const { return stamp && !isOfSnapshot; }
};

/// A save that was begun and of whose end the journal does not know.
struct SaveMark {
    std::string path;  ///< its bytes as the disk has them
    Encoding encoding = Encoding::utf8;
    ContentHash text;  ///< of the text in UTF-8

    bool operator==(const SaveMark&) const = default;
};

/// One record, ready to be written behind the others: `head`, then `body`, which is a view of what the maker was given.
/// Each record is joined to the one before it by its checksum, so that none counts in another place.
struct JournalRecord {
    std::string head;
    std::string_view body;
    ContentHash check;  ///< what the next record is joined to

    std::size_t size() const { return head.size() + body.size(); }
};

/// The first record of a journal. It brings the mark by which a journal is known.
JournalRecord headerRecord(const JournalHeader& header);
/// The next bytes of the file that the changes are counted from, in the order in which they stand in it.
JournalRecord basePortionRecord(const ContentHash& previous, std::string_view bytes);
/// The portions are the whole file now.
JournalRecord baseCompleteRecord(const ContentHash& previous);
/// The whole text; what stands before it counts no more.
JournalRecord snapshotRecord(const ContentHash& previous, std::string_view text);
/// @param inserted    the text that stands at `range` now
/// @param textLength  of the text after the change, in bytes
JournalRecord changeRecord(const ContentHash& previous, const ChangedRange& range, std::string_view inserted,
                           int textLength);
JournalRecord beingSavedRecord(const ContentHash& previous, const SaveMark& mark);
/// The save failed, and the file is as it was before.
JournalRecord saveOverRecord(const ContentHash& previous);

/// Why a journal gives no text.
enum class JournalFault {
    none,
    unreadable,   ///< no journal, or cut or damaged in its header
    newer,        ///< made by a newer version of the program, to be left alone
    noText,       ///< it ends before its first text
    fileChanged,  ///< it rests on its file, whose copy is not complete, and the file holds something else by now
};

/// What a journal holds, as far as it checks.
struct JournalContent {
    JournalFault fault = JournalFault::unreadable;
    JournalHeader header;  ///< good when the fault is none, noText or fileChanged
    std::string text;      ///< valid UTF-8
    std::optional<SaveMark> save;
    bool isWhole = false;         ///< the text rests on no file beside the journal
    std::size_t validLength = 0;  ///< bytes of the journal; what stands behind them is torn
    ContentHash check;            ///< what the next record is joined to
};

/// The bytes of the file at a path, or nothing.
using FileReader = std::function<std::optional<std::string>(const std::string& path)>;

/// The text that a journal holds, and never one that was not there: a record that does not check ends the reading.
/// Takes time in proportion to the journal and the text, and memory for the text and the base.
/// @param readFile  asked for the document's file when the journal's copy of it is not complete
/// Throws std::bad_alloc.
JournalContent readJournal(std::string_view journal, const FileReader& readFile);

/// As much of a journal as its header may take, in bytes.
constexpr std::size_t journalHeaderRoom = 8192;

/// The header alone, without a look at what follows; `fault` is none, unreadable or newer.
/// @param journal  its first journalHeaderRoom bytes, or all when there are fewer
JournalContent readJournalHeader(std::string_view journal);

/// As much of a record as tells of the length of the text, in bytes.
constexpr std::size_t journalHeadRoom = 64;

/// The bytes of a journal from a place on: journalHeadRoom of them or more, if there are so many.
using PartReader = std::function<std::string_view(std::size_t place)>;

/// The length of the text in a journal, in bytes, as far as the heads of its records tell: no checksum is looked at,
/// and no text is read. For lists; what counts is what readJournal gives.
/// @param size  of the journal, in bytes
std::uint64_t seemingTextLength(const JournalHeader& header, std::size_t size, const PartReader& partAt);

}  // namespace kelvor
