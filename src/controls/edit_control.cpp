// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/edit_control.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <new>
#include <utility>

#include "base/error.h"
#include "base/event.h"
#include "files/files.h"
#include "files/utf8_file.h"
#include "platform/platform.h"
#include "text/code_points.h"
#include "text/line_ends.h"
#include "text/text_difference.h"
#include "text/text_encoding.h"
#include "text/text_search.h"
#include "text/utf8_check.h"

namespace kelvor {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// `text` with U+FFFD for each byte that is part of no character.
std::string repaired(std::string_view text) {
    std::string valid;
    valid.reserve(text.size() + replacementCharacter.size());
    while (!text.empty()) {
        const CodePoint point = codePointAt(text, 0);
        valid += point.value < firstStrayByte ? text.substr(0, point.length) : replacementCharacter;
        text.remove_prefix(point.length);
    }
    return valid;
}

/// What a write brings in: valid UTF-8, copied only when it was not, and small enough for an int.
class ValidText {
public:
    /// @param room  bytes that the control still has place for
    ValidText(std::string_view text, int room) : view_(text) {
        if (!isValidUtf8(text)) {
            repaired_ = repaired(text);
            view_ = repaired_;
        }
        if (view_.size() > static_cast<std::size_t>(room)) throw std::bad_alloc();
    }
    ValidText(const ValidText&) = delete;
    ValidText& operator=(const ValidText&) = delete;

    std::string_view view() const { return view_; }
    int size() const { return static_cast<int>(view_.size()); }

private:
    std::string repaired_;
    std::string_view view_;
};

template <typename Action>
void withMemoryErrors(Action action) {
    try {
        action();
    } catch (const std::bad_alloc&) {
        throw outOfMemoryError();
    }
}

}  // namespace

/// Runs `act`, which gives back whether the text or its colour was written, and raises what came of it.
template <typename Act>
void EditControl::perform(Act act) {
    const EventScope scope;
    const int start = selStart();
    const int length = selLength();
    bool written = false;
    withMemoryErrors([&] { written = act(); });
    const bool moved = selStart() != start || selLength() != length;
    if (written) raiseChanged();
    if (moved) raiseSelectionChanged();
}

void EditControl::setText(std::string_view text) {
    perform([&] {
        const ValidText valid(text, INT_MAX);
        replaceRange(0, textLength(), valid.view());
        select(0, 0);
        scrollToSelection();
        return true;
    });
}

void EditControl::startText(std::string_view text) {
    perform([&] {
        const ValidText valid(text, INT_MAX);
        std::string_view rest = valid.view();
        loadAnew(rest.size(), [&] { return std::exchange(rest, {}); });
        return true;
    });
}

void EditControl::setSelStart(int position) {
    perform([&] {
        select(characterStart(position), 0);
        scrollToSelection();
        return false;
    });
}

void EditControl::setSelLength(int length) {
    perform([&] {
        const int start = selStart();
        const int room = textLength() - start;
        select(start, characterStart(start + std::clamp(length, 0, room)) - start);
        return false;
    });
}

std::string EditControl::selText() const {
    if (selLength() == 0) return {};
    return std::string(textFrom(selStart()).substr(0, static_cast<std::size_t>(selLength())));
}

void EditControl::setSelText(std::string_view text) {
    perform([&] {
        const int start = selStart();
        const ValidText valid(text, INT_MAX - textLength());
        replaceRange(start, selLength(), valid.view());
        select(start + valid.size(), 0);
        scrollToSelection();
        return true;
    });
}

void EditControl::setSelColor(int color) {
    // Every key writes the colour; only another one is worth laying the text out anew.
    if (std::exchange(selColor_, color) != color) showColors();
    raiseChanged();
}

void EditControl::setBackColor(int color) {
    if (std::exchange(backColor_, color) != color) showColors();
}

void EditControl::setReadOnly(bool readOnly) {
    if (std::exchange(readOnly_, readOnly) != readOnly) showReadOnly();
}

const TextSearch& EditControl::searchFor(std::string_view text, SearchOptions options) {
    if (!search_ || search_->text != text || search_->options != options) {
        search_.emplace(Search{std::string(text), options, TextSearch(text, options)});
    }
    return search_->search;
}

int EditControl::Find(std::string_view text, std::optional<int> start, std::optional<int> end, SearchOptions options) {
    int from = start.value_or(0);
    int to = textLength();
    if (!start && selLength() > 0) {
        from = selStart();
        to = from + selLength();
    }
    if (end) to = std::min(to, characterStart(*end));
    if (from < 0 || from >= to) return -1;
    from = characterStart(from);

    // The character in front of the range decides whether a word begins there.
    const int context = from > 0 ? characterStart(from - 1) : 0;
    const auto match =
        searchFor(text, options)
            .find(textFrom(context), static_cast<std::size_t>(from - context), static_cast<std::size_t>(to - context));
    if (!match) return -1;
    const int position = context + static_cast<int>(match->position);
    perform([&] {
        select(position, static_cast<int>(match->length));
        scrollToSelection();
        return false;
    });
    return position;
}

void EditControl::LoadFile(const std::string& path) {
    perform([&] {
        if (!loadUtf8(path)) loadDecoded(path);
        return true;
    });
}

/// Without a copy of the whole text; false when the file must be decoded.
bool EditControl::loadUtf8(const std::string& path) {
    Utf8File file(path);
    if (file.size() > INT_MAX) return false;
    std::size_t length = 0;
    const auto next = [&] {
        const auto part = file.next();
        if (part) length += part->size();
        if (length > INT_MAX) throw std::bad_alloc();
        return part;
    };
    if (!loadAnew(file.size(), next)) return false;
    encoding_ = file.encoding();
    fileStamp_ = file.stamp();
    lineEnd_ = file.lineEnd();
    return true;
}

void EditControl::loadDecoded(const std::string& path) {
    const FileText file = readText(path);
    std::string_view text = file.decoded.text;
    loadAnew(text.size(), [&] { return std::exchange(text, {}); });
    takeKind(file.decoded);
    fileStamp_ = file.stamp;
}

/// What has changed does not matter to a text that is begun anew; where there is none the old one goes on.
bool EditControl::loadAnew(std::size_t bytes, const TextParts& next) {
    const ChangedRange before = change_;
    try {
        const bool loaded = loadText(bytes, next);
        change_ = loaded ? ChangedRange{} : before;
        return loaded;
    } catch (...) {
        change_ = before;
        throw;
    }
}

void EditControl::ReloadFile(const std::string& path) {
    perform([&] {
        const FileText file = readText(path);
        const std::string_view text = file.decoded.text;
        const int caret = selStart();
        const TextChange change = changeBetween(textView(), text);
        const int position = static_cast<int>(change.position);
        const int removed = static_cast<int>(change.removed.size());
        const int inserted = static_cast<int>(change.inserted.size());
        // What gives way is a part of the text that goes with it.
        replaceRange(position, removed, change.inserted);
        const bool isBehind = caret >= position + removed;
        select(characterStart(isBehind ? caret - removed + inserted : std::min(caret, position + inserted)), 0);
        scrollToSelection();
        takeKind(file.decoded);
        fileStamp_ = file.stamp;
        return true;
    });
}

EditControl::FileText EditControl::readText(const std::string& path) {
    StampedBytes file = readStamped(path);
    FileText read{decode(std::move(file.bytes)), file.stamp};
    if (read.decoded.text.size() > INT_MAX) throw std::bad_alloc();
    return read;
}

void EditControl::startFileText(const DecodedText& text, const std::optional<FileStamp>& stamp) {
    startText(text.text);
    takeKind(text);
    fileStamp_ = stamp;
}

void EditControl::takeKind(const DecodedText& text) {
    LineEndCounts lineEnds;
    lineEnds.add(text.text);
    lineEnd_ = lineEnds.mostCommon();
    encoding_ = text.encoding;
}

bool EditControl::SaveFile(const std::string& path, const std::optional<ContentHash>& expected) {
    bool saved = false;
    withMemoryErrors([&] {
        const auto bytes = encode(textView(), encoding_);
        if (!bytes) {
            throw Error(error_number::invalidProcedureCall, "The file's encoding lacks a character of the text");
        }
        const auto stamp = saveFileInPlace(path, *bytes, expected);
        saved = stamp.has_value();
        if (saved) fileStamp_ = stamp;
    });
    return saved;
}

bool EditControl::canBeSaved() const {
    return encoding_ != Encoding::windows1252 || encode(textView(), encoding_).has_value();
}

void EditControl::cut() {
    if (selLength() == 0 || readOnly_) return;
    copy();
    setSelText({});
}

void EditControl::copy() {
    if (selLength() > 0) platform().clipboard.setText(selText());
}

void EditControl::paste() {
    const std::string text = platform().clipboard.text();
    if (!text.empty() && !readOnly_) setSelText(withLineEnd(text, lineEnd_));
}

void EditControl::undo() {
    if (!inBatch() && !readOnly_) perform([&] { return undoStep(); });
}

void EditControl::redo() {
    if (!inBatch() && !readOnly_) perform([&] { return redoStep(); });
}

void EditControl::selectAll() {
    perform([&] {
        select(0, textLength());
        return false;
    });
}

void EditControl::raiseChanged() {
    if (inBatch()) {
        changedInBatch_ = true;
    } else {
        changed.raise();
    }
}

void EditControl::raiseSelectionChanged() {
    if (inBatch()) {
        selectionChangedInBatch_ = true;
    } else {
        selectionChanged.raise();
    }
}

void EditControl::enterBatch() {
    if (batchDepth_ == 0) beginBatch();
    ++batchDepth_;
}

void EditControl::leaveBatch() {
    if (--batchDepth_ > 0) return;
    const EventScope scope;
    endBatch();
    if (std::exchange(changedInBatch_, false)) changed.raise();
    if (std::exchange(selectionChangedInBatch_, false)) selectionChanged.raise();
}

}  // namespace kelvor
