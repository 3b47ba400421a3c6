// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_buffer.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "base/event.h"
#include "base/step.h"
#include "text/code_points.h"

namespace kelvor {

namespace {

constexpr int smallestGap = 256;

int charactersIn(std::string_view text) {
    return static_cast<int>(characterCount(text));
}

}  // namespace

std::string_view TextBuffer::textView() const {
    return textFrom(0);
}

std::string_view TextBuffer::textFrom(int start) const {
    const int length = textLength();
    if (start < gapStart_ && gapStart_ < length) {
        // In front of the view or behind it the gap leaves it whole; the nearer place costs less.
        moveGap(gapStart_ - start < length - gapStart_ ? start : length);
    }
    const int offset = start < gapStart_ ? start : start + gapLength_;
    return std::string_view(storage_).substr(static_cast<std::size_t>(offset),
                                             static_cast<std::size_t>(length - start));
}

char TextBuffer::at(int position) const {
    return storage_[static_cast<std::size_t>(position < gapStart_ ? position : position + gapLength_)];
}

void TextBuffer::moveGap(int position) const {
    char* const bytes = storage_.data();
    if (position < gapStart_) {
        std::memmove(bytes + position + gapLength_, bytes + position, static_cast<std::size_t>(gapStart_ - position));
    } else {
        std::memmove(bytes + gapStart_, bytes + gapStart_ + gapLength_, static_cast<std::size_t>(position - gapStart_));
    }
    gapStart_ = position;
}

/// Makes place for `length` bytes in the gap, and more in proportion to the text, up to what an int counts.
void TextBuffer::growGap(int length) {
    if (length <= gapLength_) return;
    const auto missing = static_cast<std::size_t>(std::max(length, smallestGap) - gapLength_);
    const auto added = std::min(missing + storage_.size() / 8, INT_MAX - storage_.size());
    std::string larger;
    larger.reserve(storage_.size() + added);
    larger.append(storage_, 0, static_cast<std::size_t>(gapStart_ + gapLength_));
    larger.append(added, '\0');
    larger.append(storage_, static_cast<std::size_t>(gapStart_ + gapLength_));
    storage_ = std::move(larger);
    gapLength_ += static_cast<int>(added);
}

/// The change itself, without a way back.
void TextBuffer::exchange(int start, int length, std::string_view text) {
    const int added = static_cast<int>(text.size());
    noteReplaced(start, length, added);
    moveGap(start);
    growGap(added - length);
    const auto gapEnd = static_cast<std::size_t>(gapStart_ + gapLength_);
    const auto removed = std::string_view(storage_).substr(gapEnd, static_cast<std::size_t>(length));
    characters_ += charactersIn(text) - charactersIn(removed);
    text.copy(storage_.data() + gapStart_, text.size());
    gapStart_ += added;
    gapLength_ += length - added;
    dropLines(start);
}

void TextBuffer::replaceRange(int start, int length, std::string_view text) {
    if (length == 0 && text.empty()) return;
    moveGap(start);
    growGap(static_cast<int>(text.size()) - length);  // what may fail comes before anything is noted
    Edit edit{start, static_cast<int>(text.size()),
              std::string(textFrom(start).substr(0, static_cast<std::size_t>(length)))};
    undone_.clear();
    if (!inBatch()) steps_.emplace_back();
    steps_.back().push_back(std::move(edit));
    exchange(start, length, text);
}

/// Plays the last of `steps` backwards and adds its own way back to `waysBack`.
bool TextBuffer::revertLast(std::vector<Step>& steps, std::vector<Step>& waysBack) {
    if (steps.empty()) return false;
    Step wayBack;
    for (Step& step = steps.back(); !step.empty(); step.pop_back()) {
        const Edit& edit = step.back();
        const int removed = static_cast<int>(edit.removed.size());
        wayBack.push_back({edit.start, removed,
                           std::string(textFrom(edit.start).substr(0, static_cast<std::size_t>(edit.inserted)))});
        exchange(edit.start, edit.inserted, edit.removed);
        select(edit.start + removed, 0);
    }
    steps.pop_back();
    waysBack.push_back(std::move(wayBack));
    return true;
}

bool TextBuffer::undoStep() {
    return revertLast(steps_, undone_);
}

bool TextBuffer::redoStep() {
    return revertLast(undone_, steps_);
}

void TextBuffer::beginBatch() {
    steps_.emplace_back();
}

void TextBuffer::endBatch() {
    if (steps_.back().empty()) steps_.pop_back();
}

bool TextBuffer::loadText(std::size_t bytes, const TextParts& next) {
    std::string text;
    text.reserve(bytes);
    auto part = next();
    for (; part && !part->empty(); part = next()) text += *part;
    if (!part) return false;
    storage_ = std::move(text);
    gapStart_ = static_cast<int>(storage_.size());
    gapLength_ = 0;
    characters_ = charactersIn(storage_);
    dropLines(0);
    select(0, 0);
    steps_.clear();
    undone_.clear();
    if (inBatch()) steps_.emplace_back();
    return true;
}

void TextBuffer::select(int start, int length) {
    selStart_ = start;
    selLength_ = length;
}

int TextBuffer::characterStart(int position) const {
    if (position <= 0) return 0;
    if (position >= textLength()) return textLength();
    while (position > 0 && isContinuationByte(at(position))) --position;
    return position;
}

int TextBuffer::characterCount(int start, int end) const {
    start = std::clamp(start, 0, textLength());
    end = std::clamp(end, start, textLength());
    const auto view = std::string_view(storage_);
    const auto between = [&](int from, int to) {
        return charactersIn(view.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));
    };
    const int split = std::clamp(gapStart_, start, end);
    return between(start, split) + between(split + gapLength_, end + gapLength_);
}

/// Takes up the starts of the lines that begin at or before `end`.
void TextBuffer::scanLines(int end) const {
    const int length = textLength();
    while (scanned_ < end) {
        const char byte = at(scanned_++);
        const bool pair = byte == '\r' && scanned_ < length && at(scanned_) == '\n';
        if (byte == '\n' || (byte == '\r' && !pair)) lineStarts_.push_back(scanned_);
    }
}

/// Forgets the lines that a change at `from` may have moved, or joined by making or parting a CR LF.
void TextBuffer::dropLines(int from) const {
    while (lineStarts_.size() > 1 && lineStarts_.back() >= from) lineStarts_.pop_back();
    scanned_ = std::min(scanned_, std::max(from - 1, 0));
}

int TextBuffer::GetLineFromChar(int position) const {
    position = std::clamp(position, 0, textLength());
    scanLines(position);
    const auto next = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), position);
    return static_cast<int>(next - lineStarts_.begin()) - 1;
}

int TextBuffer::lineCount() const {
    scanLines(textLength());
    return static_cast<int>(lineStarts_.size());
}

int TextBuffer::lineIndex(int line) const {
    if (line < 0) line = GetLineFromChar(selStart_);
    const auto index = static_cast<std::size_t>(line);
    if (index >= lineStarts_.size()) scanLines(textLength());
    return index < lineStarts_.size() ? lineStarts_[index] : textLength();
}

void TextBuffer::SetFocus() {
    EditControl::SetFocus();
    gotFocus.raise();
}

void TextBuffer::press(int keyCode, int shift) {
    const EventScope scope;
    KeyPress key{keyCode, shift};
    keyDown.raise(key);
    if (key.keyCode != 0) act(key);
    KeyPress released{keyCode, shift};
    keyUp.raise(released);
}

/// What the control itself does with a key.
void TextBuffer::act(const KeyPress& key) {
    const bool shifted = key.shift == modifier::shift;
    const int code = key.keyCode;
    if (isReadOnly() || (key.shift != 0 && !shifted)) return;
    if (code == key_code::backspace) {
        removeAt(selStart_ - 1);
    } else if (code == key_code::deleteKey) {
        removeAt(selStart_);
    } else if (code == key_code::enter) {
        type(lineEnd());
    } else if (code == key_code::tab || code == key_code::space || (code >= '0' && code <= '9')) {
        type(std::string(1, static_cast<char>(code)));
    } else if (code >= 'A' && code <= 'Z') {
        type(std::string(1, static_cast<char>(shifted ? code : code - 'A' + 'a')));
    }
}

/// Deletes the selection, or the character at `position`, or the line end around it.
void TextBuffer::removeAt(int position) {
    if (selLength_ == 0) {
        if (position < 0 || position >= textLength()) return;
        int start = characterStart(position);
        int end = start + 1;
        while (end < textLength() && isContinuationByte(at(end))) ++end;
        if (at(start) == '\n' && start > 0 && at(start - 1) == '\r') --start;
        if (at(start) == '\r' && end < textLength() && at(end) == '\n') ++end;
        select(start, end - start);
    }
    setSelText({});
}

}  // namespace kelvor
