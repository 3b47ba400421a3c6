// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batch_record.h"

#include <initializer_list>

namespace kelvor {

namespace {

/// The last character is the version.
constexpr std::string_view mark = "KELVORB1";

enum Kind : std::uint64_t { runKind = 1, directoryKind, fileKind };

/// In bytes. Numbers are written with their lowest byte first.
constexpr std::size_t numberSize = 8;

void put(std::string& bytes, std::uint64_t number) {
    for (std::size_t i = 0; i < numberSize; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
}

void put(std::string& bytes, std::string_view text) {
    put(bytes, text.size());
    bytes += text;
}

void put(std::string& bytes, const ContentHash& hash) {
    put(bytes, hash.low);
    put(bytes, hash.high);
}

/// A piece as it is written: its length, its hash, and itself.
std::string piece(std::string_view content) {
    std::string bytes;
    put(bytes, content.size());
    put(bytes, hashOf(content));
    return bytes.append(content);
}

/// Takes values off the front of bytes; once these do not suffice it gives empty ones and has failed.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    bool failed() const { return failed_; }
    std::string_view bytes(std::uint64_t size) {
        failed_ = failed_ || size > rest_.size();
        if (failed_) return {};
        const auto taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }
    std::uint64_t number() {
        std::uint64_t value = 0;
        const auto taken = bytes(numberSize);
        for (std::size_t i = taken.size(); i > 0; --i) value = value << 8 | static_cast<unsigned char>(taken[i - 1]);
        return value;
    }
    std::string text() { return std::string(bytes(number())); }
    ContentHash hash() {
        const auto low = number();
        return {low, number()};
    }

private:
    std::string_view rest_;
    bool failed_ = false;
};

void put(std::string& bytes, const DateTime& moment) {
    for (const int part :
         {moment.date.year, moment.date.month, moment.date.day, moment.hour, moment.minute, moment.second})
        put(bytes, static_cast<std::uint64_t>(part));
}

DateTime readMoment(Reader& reader) {
    DateTime moment;
    for (int* part :
         {&moment.date.year, &moment.date.month, &moment.date.day, &moment.hour, &moment.minute, &moment.second})
        *part = static_cast<int>(reader.number());
    return moment;
}

BatchRun readRun(Reader& reader) {
    BatchRun run;
    run.tool = reader.text();
    run.when = readMoment(reader);
    run.planned = reader.number();
    for (auto count = reader.number(); count > 0 && !reader.failed(); --count) {
        std::string text = reader.text();
        run.changes.push_back({std::move(text), reader.text()});
    }
    return run;
}

KeptFile readKeptFile(Reader& reader) {
    KeptFile file;
    for (std::string* text : {&file.path, &file.keptAs, &file.temporary}) *text = reader.text();
    file.before = reader.hash();
    file.after = reader.hash();
    return file;
}

/// The next piece's content; nothing when it is not there as it was written.
std::optional<std::string_view> nextPiece(Reader& reader) {
    const auto size = reader.number();
    const auto hash = reader.hash();
    const auto content = reader.bytes(size);
    if (reader.failed() || hashOf(content) != hash) return std::nullopt;
    return content;
}

}  // namespace

std::string recordOf(const BatchRun& run) {
    std::string content;
    put(content, runKind);
    put(content, run.tool);
    put(content, run.when);
    put(content, run.planned);
    put(content, run.changes.size());
    for (const auto& [text, replacement] : run.changes) {
        put(content, text);
        put(content, replacement);
    }
    return std::string(mark) + piece(content);
}

std::string recordOfDirectory(std::string_view path) {
    std::string content;
    put(content, directoryKind);
    put(content, path);
    return piece(content);
}

std::string recordOf(const KeptFile& file) {
    std::string content;
    put(content, fileKind);
    for (const std::string* text : {&file.path, &file.keptAs, &file.temporary}) put(content, *text);
    put(content, file.before);
    put(content, file.after);
    return piece(content);
}

std::optional<BatchRecord> readRecord(std::string_view bytes) {
    if (!bytes.starts_with(mark)) return std::nullopt;
    Reader pieces(bytes.substr(mark.size()));
    std::optional<BatchRecord> record;
    while (const auto content = nextPiece(pieces)) {
        Reader reader(*content);
        const auto kind = reader.number();
        if (!record && kind == runKind) {
            record = BatchRecord{readRun(reader), {}, {}};
        } else if (record && kind == directoryKind) {
            record->directories.push_back(reader.text());
        } else if (record && kind == fileKind) {
            record->files.push_back(readKeptFile(reader));
        }
    }
    return record;
}

}  // namespace kelvor
