// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/scintilla_edit.h"

#include <algorithm>
#include <new>
#include <utility>

#include "qt/text_accessible.h"
#include "text/code_points.h"

namespace kelvor::qt {

namespace {

using Sci = QsciScintillaBase;

/// From this size on a write makes sure of its memory first: Scintilla cannot go on after one that ran out half way.
constexpr std::size_t largeWrite = 1 << 20;

/// Room for a text of so many bytes and a little more: one that fills its memory is copied whole with the next key.
constexpr std::size_t roomFor(std::size_t bytes) {
    constexpr std::size_t part = 64;
    return bytes + bytes / part + 1;
}

unsigned long toParameter(int number) {
    return static_cast<unsigned long>(number);
}

}  // namespace

class ScintillaEdit::Writing {
public:
    explicit Writing(ScintillaEdit& edit) : edit_(edit) { edit_.send(Sci::SCI_SETREADONLY, 0); }
    ~Writing() { edit_.showReadOnly(); }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

private:
    ScintillaEdit& edit_;
};

ScintillaEdit::ScintillaEdit(Form& form, std::string name) : EditControl(form, std::move(name)) {
    widget_ = new ScintillaWidget(*this, *this);  // not before the members that its first events read
    TextAccessible::install();                    // behind Scintilla's own, which its first widget installs
    widget_->setObjectName(QString::fromStdString(this->name()));
}

ScintillaEdit::~ScintillaEdit() {
    if (widget_) std::exchange(widget_, nullptr)->release();
}

QWidget* ScintillaEdit::widget() const {
    return widget_;
}

/// Everything is 0 once the widget has gone.
int ScintillaEdit::send(unsigned int message, unsigned long first, long second) const {
    return widget_ ? static_cast<int>(widget_->send(message, first, second)) : 0;
}

void ScintillaEdit::setWordWrap(bool wraps) {
    send(Sci::SCI_SETWRAPMODE, wraps ? Sci::SC_WRAP_WORD : Sci::SC_WRAP_NONE);
}

bool ScintillaEdit::overtype() const {
    return send(Sci::SCI_GETOVERTYPE) != 0;
}

std::string_view ScintillaEdit::textView() const {
    return bytesAt(0, textLength());
}

std::string_view ScintillaEdit::textFrom(int start) const {
    return bytesAt(start, textLength() - start);
}

/// Bytes in Scintilla's own memory. Its gap goes to `start` when it lies further on, and else stays.
std::string_view ScintillaEdit::bytesAt(int start, int length) const {
    if (!widget_ || length == 0) return {};
    const long address = widget_->send(Sci::SCI_GETRANGEPOINTER, toParameter(start), length);
    return {reinterpret_cast<const char*>(address), static_cast<std::size_t>(length)};
}

int ScintillaEdit::textLength() const {
    return send(Sci::SCI_GETLENGTH);
}

ScintillaEdit::Range ScintillaEdit::shownSelection() const {
    const int start = send(Sci::SCI_GETSELECTIONSTART);
    return {start, send(Sci::SCI_GETSELECTIONEND) - start};
}

int ScintillaEdit::selStart() const {
    return inBatch() ? batchSelection_.start : send(Sci::SCI_GETSELECTIONSTART);
}

int ScintillaEdit::selLength() const {
    return inBatch() ? batchSelection_.length : shownSelection().length;
}

int ScintillaEdit::GetLineFromChar(int position) const {
    return send(Sci::SCI_LINEFROMPOSITION, toParameter(std::clamp(position, 0, textLength())));
}

int ScintillaEdit::lineCount() const {
    return widget_ ? send(Sci::SCI_GETLINECOUNT) : 1;
}

int ScintillaEdit::lineIndex(int line) const {
    if (line < 0) line = GetLineFromChar(selStart());
    return line < lineCount() ? send(Sci::SCI_POSITIONFROMLINE, toParameter(line)) : textLength();
}

int ScintillaEdit::characterCount() const {
    countInserted();
    return characters_;
}

/// Counts on both sides of the gap, which then need not move.
int ScintillaEdit::characterCount(int start, int end) const {
    start = std::clamp(start, 0, textLength());
    end = std::clamp(end, start, textLength());
    const int split = std::clamp(send(Sci::SCI_GETGAPPOSITION), start, end);
    return static_cast<int>(kelvor::characterCount(bytesAt(start, split - start)) +
                            kelvor::characterCount(bytesAt(split, end - split)));
}

int ScintillaEdit::characterStart(int position) const {
    if (position <= 0) return 0;
    const int length = textLength();
    if (position >= length) return length;
    const auto continues = [this](int at) { return (send(Sci::SCI_GETCHARAT, toParameter(at)) & 0xC0) == 0x80; };
    while (position > 0 && continues(position)) --position;
    return position;
}

void ScintillaEdit::SetFocus() {
    if (widget_) widget_->setFocus();
    EditControl::SetFocus();
}

void ScintillaEdit::uncoverSelection() {
    if (widget_) widget_->uncoverSelection();
}

void ScintillaEdit::noteChange(bool insertion, int start, int length) {
    countInserted();
    noteReplaced(start, insertion ? 0 : length, insertion ? length : 0);
    if (insertion) {
        inserted_ = {start, length};
    } else {
        characters_ -= characterCount(start, start + length);
    }
    textChanged_ = true;
}

void ScintillaEdit::countInserted() const {
    const Range inserted = std::exchange(inserted_, {});
    if (inserted.length > 0) characters_ += characterCount(inserted.start, inserted.start + inserted.length);
}

void ScintillaEdit::reportActs() {
    const EventScope scope;
    countInserted();
    if (inBatch()) {
        batchSelection_.start = characterStart(batchSelection_.start);
        batchSelection_.length = std::min(batchSelection_.length, textLength() - batchSelection_.start);
    }
    const Range selection = shownSelection();
    const bool moved = std::exchange(knownSelection_, selection) != selection;
    if (std::exchange(textChanged_, false)) raiseChanged();
    if (moved) raiseSelectionChanged();
    const bool typesOver = overtype();
    if (std::exchange(knownOvertype_, typesOver) != typesOver) overtypeChanged.raise();
}

void ScintillaEdit::replaceRange(int start, int length, std::string_view text) {
    if (!widget_ || (length == 0 && text.empty())) return;
    const Writing writing(*this);
    if (text.size() + static_cast<std::size_t>(length) > largeWrite) {
        // The undo step keeps a copy of both, the line index takes at most a word for each byte of what is new.
        const std::size_t whole = roomFor(static_cast<std::size_t>(textLength()) + text.size());
        // The function and not the expression: memory that is never used may be left out of that one. All of it at
        // once and first: when Scintilla's own request fails, its text has lost count of its gap.
        ::operator delete(::operator new(whole + text.size() + static_cast<std::size_t>(length) + text.size()));
        widget_->send(Sci::SCI_ALLOCATE, whole);
    }
    const bool pending = textChanged_;
    widget_->send(Sci::SCI_SETTARGETRANGE, toParameter(start), start + length);
    widget_->send(Sci::SCI_REPLACETARGET, text);
    textChanged_ = pending;
    if (!inBatch()) knownSelection_ = shownSelection();
}

void ScintillaEdit::select(int start, int length) {
    if (inBatch()) {
        batchSelection_ = {start, length};
        return;
    }
    // Unlike SCI_SETSELECTION these make it the desktop's selection too; one that is not is shown in grey. And unlike
    // SCI_SETSEL they do not scroll.
    send(Sci::SCI_SETEMPTYSELECTION, toParameter(start + length));
    if (length > 0) send(Sci::SCI_SETANCHOR, toParameter(start));
    if (widget_) widget_->leaveColumn();
    knownSelection_ = shownSelection();
}

void ScintillaEdit::scrollToSelection() {
    if (inBatch()) {
        batchScrolls_ = true;
    } else {
        send(Sci::SCI_SCROLLCARET);
    }
}

/// Into a document of its own: when memory runs out, or there is no text, the old one is still there.
bool ScintillaEdit::loadText(std::size_t bytes, const TextParts& next) {
    if (!widget_) return true;
    const Writing writing(*this);
    std::optional<TextSpeech::Pause> pause;
    if (!inBatch()) pause.emplace(widget_->speech());
    const long old = widget_->send(Sci::SCI_GETDOCPOINTER);
    widget_->send(Sci::SCI_ADDREFDOCUMENT, 0, old);
    const int oldCharacters = characterCount();
    const bool pending = textChanged_;
    const auto goBack = [&] {
        widget_->send(Sci::SCI_SETDOCPOINTER, 0, old);
        widget_->send(Sci::SCI_RELEASEDOCUMENT, 0, old);
        inserted_ = {};
        characters_ = oldCharacters;
        textChanged_ = pending;
    };
    try {
        widget_->openDocument(roomFor(bytes));
        send(Sci::SCI_SETUNDOCOLLECTION, 0);
        characters_ = 0;
        if (!appendAll(next)) {
            goBack();
            return false;
        }
        send(Sci::SCI_SETUNDOCOLLECTION, 1);
        if (inBatch()) send(Sci::SCI_BEGINUNDOACTION);
        select(0, 0);
        scrollToSelection();  // lays out the first line, which may be all of the text
    } catch (...) {
        goBack();
        throw;
    }
    widget_->send(Sci::SCI_RELEASEDOCUMENT, 0, old);
    textChanged_ = pending;
    return true;
}

bool ScintillaEdit::appendAll(const TextParts& next) {
    auto part = next();
    for (; part && !part->empty(); part = next()) widget_->send(Sci::SCI_APPENDTEXT, *part);
    return part.has_value();
}

bool ScintillaEdit::undoStep() {
    return goStep(Sci::SCI_CANUNDO, Sci::SCI_UNDO);
}

bool ScintillaEdit::redoStep() {
    return goStep(Sci::SCI_CANREDO, Sci::SCI_REDO);
}

bool ScintillaEdit::goStep(unsigned int question, unsigned int step) {
    if (send(question) == 0) return false;
    const TextSpeech::Pause pause(widget_->speech());
    send(step);
    widget_->leaveColumn();
    textChanged_ = false;
    knownSelection_ = shownSelection();
    return true;
}

void ScintillaEdit::showColors() {
    if (widget_) widget_->showColors(selColor(), backColor());
}

void ScintillaEdit::showReadOnly() {
    send(Sci::SCI_SETREADONLY, isReadOnly() ? 1 : 0);
}

void ScintillaEdit::beginBatch() {
    batchSelection_ = shownSelection();
    batchScrolls_ = false;
    if (!widget_) return;
    batchPause_.emplace(widget_->speech());
    send(Sci::SCI_BEGINUNDOACTION);
    widget_->setUpdatesEnabled(false);
}

void ScintillaEdit::endBatch() {
    send(Sci::SCI_ENDUNDOACTION);
    select(batchSelection_.start, batchSelection_.length);
    if (batchScrolls_) scrollToSelection();
    if (widget_) widget_->setUpdatesEnabled(true);
    batchPause_.reset();
}

}  // namespace kelvor::qt
