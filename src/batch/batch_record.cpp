// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batch_record.h"

#include <initializer_list>

#include "files/record_fields.h"

namespace kelvor {

namespace {

/// The last character is the version.
constexpr std::string_view mark = "KELVORB1";

enum Kind : std::uint64_t { runKind = 1, directoryKind, fileKind };

using kelvor::append;

void append(std::string& bytes, std::string_view text) {
    append(bytes, text.size());
    bytes += text;
}

/// A piece as it is written: its length, its hash, and itself.
std::string piece(std::string_view content) {
    std::string bytes;
    append(bytes, content.size());
    append(bytes, hashOf(content));
    return bytes.append(content);
}

std::string readText(FieldReader& reader) {
    return std::string(reader.bytes(reader.number()));
}

void append(std::string& bytes, const DateTime& moment) {
    for (const int part :
         {moment.date.year, moment.date.month, moment.date.day, moment.hour, moment.minute, moment.second})
        append(bytes, static_cast<std::uint64_t>(part));
}

DateTime readMoment(FieldReader& reader) {
    DateTime moment;
    for (int* part :
         {&moment.date.year, &moment.date.month, &moment.date.day, &moment.hour, &moment.minute, &moment.second})
        *part = static_cast<int>(reader.number());
    return moment;
}

BatchRun readRun(FieldReader& reader) {
    BatchRun run;
    run.tool = readText(reader);
    run.when = readMoment(reader);
    run.planned = reader.number();
    for (auto count = reader.number(); count > 0 && reader.isGood(); --count) {
        std::string text = readText(reader);
        run.changes.push_back({std::move(text), readText(reader)});
    }
    return run;
}

KeptFile readKeptFile(FieldReader& reader) {
    KeptFile file;
    for (std::string* text : {&file.path, &file.keptAs, &file.temporary}) *text = readText(reader);
    file.before = reader.hash();
    file.after = reader.hash();
    return file;
}

/// The next piece's content; nothing when it is not there as it was written.
std::optional<std::string_view> nextPiece(FieldReader& reader) {
    const auto size = reader.number();
    const auto hash = reader.hash();
    const auto content = reader.bytes(size);
    if (!reader.isGood() || hashOf(content) != hash) return std::nullopt;
    return content;
}

}  // namespace

std::string recordOf(const BatchRun& run) {
    std::string content;
    append(content, runKind);
    append(content, run.tool);
    append(content, run.when);
    append(content, run.planned);
    append(content, run.changes.size());
    for (const auto& [text, replacement] : run.changes) {
        append(content, text);
        append(content, replacement);
    }
    return std::string(mark) + piece(content);
}

std::string recordOfDirectory(std::string_view path) {
    std::string content;
    append(content, directoryKind);
    append(content, path);
    return piece(content);
}

std::string recordOf(const KeptFile& file) {
    std::string content;
    append(content, fileKind);
    for (const std::string* text : {&file.path, &file.keptAs, &file.temporary}) append(content, *text);
    append(content, file.before);
    append(content, file.after);
    return piece(content);
}

std::optional<BatchRecord> readRecord(std::string_view bytes) {
    if (!bytes.starts_with(mark)) return std::nullopt;
    FieldReader pieces(bytes.substr(mark.size()));
    std::optional<BatchRecord> record;
    while (const auto content = nextPiece(pieces)) {
        FieldReader reader(*content);
        const auto kind = reader.number();
        if (!record && kind == runKind) {
            record = BatchRecord{readRun(reader), {}, {}};
        } else if (record && kind == directoryKind) {
            record->directories.push_back(readText(reader));
        } else if (record && kind == fileKind) {
            record->files.push_back(readKeptFile(reader));
        }
    }
    return record;
}

}  // namespace kelvor
