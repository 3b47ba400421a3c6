// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal_format.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <utility>
#include <vector>

#include "files/record_fields.h"
#include "text/block_text.h"

namespace kelvor {

namespace {

/// What each journal begins with; the byte behind it is the version. A higher version may mean anything by the rest.
constexpr std::string_view mark = "Kelvor journal\n";
constexpr unsigned char version = 1;
constexpr std::size_t preambleSize = mark.size() + 1;

/// The numbers stand in the files.
enum class Kind : std::uint8_t {
    header = 1,
    basePortion = 2,
    baseComplete = 3,
    snapshot = 4,
    change = 5,
    beingSaved = 6,
    saveOver = 7
};

/// An encoding stands in the files as its place here.
constexpr Encoding encodings[] = {Encoding::utf8, Encoding::utf8WithMark, Encoding::utf16LittleEndian,
                                  Encoding::utf16BigEndian, Encoding::windows1252};

std::uint64_t numberOf(Encoding encoding) {
    return static_cast<std::uint64_t>(std::find(std::begin(encodings), std::end(encodings), encoding) - encodings);
}

/// The kind, the length of what follows behind it, and the checksum.
constexpr std::size_t headSize = 1 + 3 * numberSize;

using kelvor::append;

void append(std::string& bytes, const timespec& moment) {
    append(bytes, static_cast<std::uint64_t>(moment.tv_sec));
    append(bytes, static_cast<std::uint64_t>(moment.tv_nsec));
}

class Fields : public FieldReader {
public:
    using FieldReader::FieldReader;

    timespec moment() {
        const auto seconds = static_cast<time_t>(number());
        return {seconds, static_cast<decltype(timespec::tv_nsec)>(number())};
    }
    Encoding encoding() {
        const auto index = number();
        if (index >= std::size(encodings)) fail();
        return isGood() ? encodings[index] : Encoding::utf8;
    }
};

/// The checksum of a record; `fields` and `body` are its two parts.
ContentHash checkOf(const ContentHash& previous, std::string_view start, std::string_view fields,
                    std::string_view body) {
    std::string joint;
    append(joint, previous);
    ContentHasher hasher;
    for (const auto part : {std::string_view(joint), start, fields, body}) hasher.add(part);
    return hasher.hash();
}

JournalRecord makeRecord(const ContentHash& previous, Kind kind, std::string_view fields, std::string_view body = {}) {
    JournalRecord record{std::string(1, static_cast<char>(kind)), body, {}};
    append(record.head, std::uint64_t{fields.size() + body.size()});
    record.check = checkOf(previous, record.head, fields, body);
    append(record.head, record.check);
    record.head += fields;
    return record;
}

std::string preamble() {
    return std::string(mark) + static_cast<char>(version);
}

/// A record as it stands in a journal.
struct FoundRecord {
    Kind kind{};
    std::string_view start;  ///< its kind and length
    ContentHash check;
    std::string_view payload;
    std::size_t end = 0;  ///< where the next one begins
};

/// The record at a place, unless the journal ends in the middle of it. Its checksum is not looked at.
std::optional<FoundRecord> recordAt(std::string_view journal, std::size_t place) {
    const auto bytes = journal.substr(place);
    if (bytes.size() < headSize) return std::nullopt;
    Fields fields(bytes.substr(1, headSize - 1));
    const auto length = fields.number();
    if (length > bytes.size() - headSize) return std::nullopt;
    return FoundRecord{static_cast<Kind>(bytes.front()), bytes.substr(0, 1 + numberSize), fields.hash(),
                       bytes.substr(headSize, length), place + headSize + length};
}

bool checks(const FoundRecord& record, const ContentHash& previous) {
    return record.check == checkOf(previous, record.start, record.payload, {});
}

/// Stands before the stamp of a file that the changes are not counted from.
constexpr std::uint64_t stampedBesideSnapshot = 2;

std::optional<JournalHeader> headerFrom(std::string_view payload) {
    Fields fields(payload);
    JournalHeader header;
    header.isUntitled = fields.number() != 0;
    header.encoding = fields.encoding();
    header.begun = static_cast<std::int64_t>(fields.number());
    if (const auto stamped = fields.number(); stamped != 0) {
        header.isOfSnapshot = stamped == stampedBesideSnapshot;
        FileStamp& stamp = header.stamp.emplace();
        stamp.device = fields.number();
        stamp.inode = fields.number();
        stamp.size = static_cast<off_t>(fields.number());
        stamp.modified = fields.moment();
        stamp.changed = fields.moment();
        stamp.hash = fields.hash();
    }
    header.name = fields.rest();
    return fields.isGood() ? std::optional(std::move(header)) : std::nullopt;
}

std::optional<SaveMark> saveMarkFrom(std::string_view payload) {
    Fields fields(payload);
    SaveMark save;
    save.encoding = fields.encoding();
    save.text = fields.hash();
    save.path = fields.rest();
    return fields.isGood() ? std::optional(std::move(save)) : std::nullopt;
}

/// The numbers of a change, which stand before what was inserted.
struct ChangeNumbers {
    std::uint64_t start = 0;
    std::uint64_t removed = 0;
    std::uint64_t textLength = 0;  ///< after it
};

ChangeNumbers changeFrom(Fields& fields) {
    const auto start = fields.number();
    const auto removed = fields.number();
    return {start, removed, fields.number()};
}

/// The text of a file that is known to have been of that encoding.
std::optional<std::string> textOf(std::string_view bytes, Encoding encoding) {
    const auto byteOrderMark = markOf(encoding);
    std::string text;
    const bool isSo =
        bytes.starts_with(byteOrderMark) && appendDecoded(text, bytes.substr(byteOrderMark.size()), encoding);
    return isSo ? std::optional(std::move(text)) : std::nullopt;
}

/// Collects what the records say, and makes the text of it at the end.
class Reading {
public:
    explicit Reading(std::string_view journal) : journal_(journal) {}

    JournalContent read(const FileReader& readFile) {
        content_ = readJournalHeader(journal_);
        if (content_.fault != JournalFault::none) return std::move(content_);
        collect();
        auto text = firstText(readFile);
        if (!text) return std::move(content_);
        replay(std::move(*text));
        return std::move(content_);
    }

private:
    /// Goes through the records up to the first that does not check.
    void collect() {
        while (const auto record = recordAt(journal_, content_.validLength)) {
            if (!checks(*record, content_.check) || !take(*record)) return;
            endAt(*record);
        }
    }

    /// Nothing behind the record counts.
    void endAt(const FoundRecord& record) {
        content_.validLength = record.end;
        content_.check = record.check;
    }

    bool take(const FoundRecord& record) {
        switch (record.kind) {
            case Kind::basePortion:
                if (!takesBase()) return false;
                base_.push_back(record.payload);
                return true;
            case Kind::baseComplete:
                return takesBase() && std::exchange(content_.isWhole, true) == false;
            case Kind::snapshot:
                snapshot_ = record.payload;
                content_.isWhole = true;
                base_.clear();
                changes_.clear();
                return true;
            case Kind::change:
                changes_.push_back(content_.validLength);
                return true;
            case Kind::beingSaved:
                content_.save = saveMarkFrom(record.payload);
                savePlace_ = content_.validLength;
                return content_.save.has_value();
            case Kind::saveOver:
                content_.save.reset();
                return true;
            default:
                return false;
        }
    }

    bool takesBase() const { return content_.header.isOfFile() && !content_.isWhole; }

    /// The text that the first of the changes was made in; nothing, and why in the content, when it cannot be had.
    std::optional<std::string> firstText(const FileReader& readFile) {
        if (snapshot_) return std::string(*snapshot_);
        const auto& stamp = content_.header.stamp;
        content_.fault = JournalFault::noText;
        if (!content_.header.isOfFile()) return std::nullopt;
        content_.fault = JournalFault::fileChanged;
        const auto bytes = content_.isWhole ? joinedBase() : readFile(content_.header.name);
        if (!bytes || hashOf(*bytes) != stamp->hash) return std::nullopt;
        auto text = textOf(*bytes, content_.header.encoding);
        content_.fault = text ? JournalFault::none : JournalFault::unreadable;
        return text;
    }

    std::optional<std::string> joinedBase() const {
        std::size_t size = 0;
        for (const auto part : base_) size += part.size();
        std::string bytes;
        bytes.reserve(size);
        for (const auto part : base_) bytes += part;
        return bytes;
    }

    void replay(std::string first) {
        BlockText text(std::move(first));
        for (const std::size_t place : changes_) {
            if (!change(text, recordAt(journal_, place)->payload)) {
                cutAt(place);
                break;
            }
        }
        content_.text = text.take();
        if (content_.save && !isOfText(recordAt(journal_, savePlace_)->end)) cutAt(savePlace_);
    }

    /// The journal's test of itself: what was about to be written is what has come out.
    bool isOfText(std::size_t saveEnd) const {
        return saveEnd != content_.validLength || content_.save->text == hashOf(content_.text);
    }

    static bool change(BlockText& text, std::string_view payload) {
        Fields fields(payload);
        const auto [start, removed, length] = changeFrom(fields);
        const auto inserted = fields.rest();
        if (!fields.isGood() || start > text.size() || removed > text.size() - start) return false;
        if (text.size() - removed + inserted.size() != length || length > INT_MAX) return false;
        text.replace(start, removed, inserted);
        return true;
    }

    /// A record that does not fit ends the reading before it.
    void cutAt(std::size_t place) {
        ContentHash check;
        for (std::size_t next = preambleSize; next < place;) {
            const auto record = recordAt(journal_, next);
            check = record->check;
            next = record->end;
        }
        content_.validLength = place;
        content_.check = check;
        if (savePlace_ >= place) content_.save.reset();
    }

    std::string_view journal_;
    JournalContent content_;
    std::vector<std::string_view> base_;
    std::optional<std::string_view> snapshot_;
    std::vector<std::size_t> changes_;  ///< where the changes since the first text stand
    std::size_t savePlace_ = 0;         ///< of the last mark of a save
};

}  // namespace

JournalRecord headerRecord(const JournalHeader& header) {
    std::string fields;
    append(fields, std::uint64_t{header.isUntitled});
    append(fields, numberOf(header.encoding));
    append(fields, static_cast<std::uint64_t>(header.begun));
    append(fields,
           header.stamp && header.isOfSnapshot ? stampedBesideSnapshot : std::uint64_t{header.stamp.has_value()});
    if (const auto& stamp = header.stamp) {
        append(fields, std::uint64_t{stamp->device});
        append(fields, std::uint64_t{stamp->inode});
        append(fields, static_cast<std::uint64_t>(stamp->size));
        append(fields, stamp->modified);
        append(fields, stamp->changed);
        append(fields, stamp->hash);
    }
    auto record = makeRecord(hashOf(preamble()), Kind::header, fields + header.name);
    record.head.insert(0, preamble());
    return record;
}

JournalRecord basePortionRecord(const ContentHash& previous, std::string_view bytes) {
    return makeRecord(previous, Kind::basePortion, {}, bytes);
}

JournalRecord baseCompleteRecord(const ContentHash& previous) {
    return makeRecord(previous, Kind::baseComplete, {});
}

JournalRecord snapshotRecord(const ContentHash& previous, std::string_view text) {
    return makeRecord(previous, Kind::snapshot, {}, text);
}

JournalRecord changeRecord(const ContentHash& previous, const ChangedRange& range, std::string_view inserted,
                           int textLength) {
    std::string fields;
    for (const int number : {range.start, range.removed, textLength})
        append(fields, static_cast<std::uint64_t>(number));
    return makeRecord(previous, Kind::change, fields, inserted);
}

JournalRecord beingSavedRecord(const ContentHash& previous, const SaveMark& save) {
    std::string fields;
    append(fields, numberOf(save.encoding));
    append(fields, save.text);
    return makeRecord(previous, Kind::beingSaved, fields + save.path);
}

JournalRecord saveOverRecord(const ContentHash& previous) {
    return makeRecord(previous, Kind::saveOver, {});
}

JournalContent readJournalHeader(std::string_view journal) {
    JournalContent content;
    if (journal.size() < preambleSize || !journal.starts_with(mark)) return content;
    if (static_cast<unsigned char>(journal[mark.size()]) > version) {
        content.fault = JournalFault::newer;
        return content;
    }
    const auto record = recordAt(journal, preambleSize);
    const auto previous = hashOf(journal.substr(0, preambleSize));
    if (!record || record->kind != Kind::header || !checks(*record, previous)) return content;
    auto header = headerFrom(record->payload);
    if (!header) return content;
    content.fault = JournalFault::none;
    content.header = std::move(*header);
    content.validLength = record->end;
    content.check = record->check;
    return content;
}

JournalContent readJournal(std::string_view journal, const FileReader& readFile) {
    return Reading(journal).read(readFile);
}

std::uint64_t seemingTextLength(const JournalHeader& header, std::size_t size, const PartReader& partAt) {
    std::uint64_t textLength = header.isOfFile() ? static_cast<std::uint64_t>(header.stamp->size) : 0;
    for (std::size_t place = preambleSize;;) {
        const auto bytes = partAt(place);
        if (bytes.size() < headSize) return textLength;
        Fields fields(bytes.substr(1));
        const auto length = fields.number();
        if (length > size - place - headSize) return textLength;
        fields.hash();
        if (static_cast<Kind>(bytes.front()) == Kind::snapshot) textLength = length;
        if (static_cast<Kind>(bytes.front()) == Kind::change) textLength = changeFrom(fields).textLength;
        place += headSize + length;
    }
}

}  // namespace kelvor
