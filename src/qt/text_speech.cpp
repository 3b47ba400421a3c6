// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/text_speech.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>
#include <utility>

#include "base/event.h"
#include "qt/convert.h"
#include "text/code_points.h"
#include "text/text_difference.h"

namespace kelvor::qt {

namespace {

using Sci = QsciScintillaBase;

std::function<void(QAccessibleEvent&)>& sink() {
    static std::function<void(QAccessibleEvent&)> sink;
    return sink;
}

void say(QAccessibleEvent& event) {
    if (sink()) return sink()(event);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

void setSpeechSink(std::function<void(QAccessibleEvent&)> hear) {
    sink() = std::move(hear);
}

std::string_view shownText(const Sci& widget, long start, long end) {
    if (start >= end) return {};
    const long address = widget.SendScintilla(Sci::SCI_GETRANGEPOINTER, static_cast<unsigned long>(start), end - start);
    return {reinterpret_cast<const char*>(address), static_cast<std::size_t>(end - start)};
}

std::string_view shownText(const Sci& widget) {
    return shownText(widget, 0, widget.SendScintilla(Sci::SCI_GETLENGTH));
}

int offsetOf(const Sci& widget, long position) {
    return static_cast<int>(characterCount(shownText(widget, 0, position)));
}

TextSpeech::TextSpeech(Sci& widget) : widget_(widget) {
    QAccessible::installActivationObserver(this);
}

TextSpeech::~TextSpeech() {
    QAccessible::removeActivationObserver(this);
}

void TextSpeech::accessibilityActiveChanged(bool active) {
    active_ = active;
    inserted_ = {};
}

bool TextSpeech::isHeard() const {
    return active_ || sink();
}

void TextSpeech::changing(bool insertion, int start, int length) {
    if (paused_ || !isHeard()) return;
    tellInserted();
    if (insertion) {
        inserted_ = {start, start + length};
        return;
    }
    QAccessibleTextRemoveEvent event(&widget_, offsetOf(widget_, start),
                                     toQt(shownText(widget_, start, start + length)));
    say(event);
}

void TextSpeech::tell() {
    if (paused_ || !isHeard()) return;
    tellInserted();
    tellCaret();
}

void TextSpeech::tellInserted() {
    Range inserted = std::exchange(inserted_, {});
    // What was noticed may have failed since, or gone with its document.
    inserted.end = std::min(inserted.end, widget_.SendScintilla(Sci::SCI_GETLENGTH));
    if (inserted.start >= inserted.end) return;
    QAccessibleTextInsertEvent event(&widget_, offsetOf(widget_, inserted.start),
                                     toQt(shownText(widget_, inserted.start, inserted.end)));
    say(event);
}

void TextSpeech::tellCaret() {
    const Range caret{widget_.SendScintilla(Sci::SCI_GETANCHOR), widget_.SendScintilla(Sci::SCI_GETCURRENTPOS)};
    const Range told = std::exchange(caret_, caret);
    if (told == caret) return;
    const int offset = offsetOf(widget_, caret.end);
    if (caret.start != caret.end || told.start != told.end) {
        const auto [first, last] = std::minmax({offset, offsetOf(widget_, caret.start)});
        QAccessibleTextSelectionEvent event(&widget_, first, last);
        event.setCursorPosition(offset);
        say(event);
    }
    QAccessibleTextCursorEvent event(&widget_, offset);
    say(event);
}

TextSpeech::Pause::Pause(TextSpeech& speech) : speech_(speech), widget_(&speech.widget_) {
    speech_.tell();
    if (speech_.isHeard()) speech_.heard_ = shownText(*widget_);
    speech_.paused_ = true;
}

TextSpeech::Pause::~Pause() {
    if (!widget_) return;
    speech_.paused_ = false;
    const auto heard = std::exchange(speech_.heard_, std::nullopt);
    if (!heard) return;
    const std::string_view text = shownText(*widget_);
    const TextChange change = changeBetween(*heard, text);
    if (change.removed.empty() && change.inserted.empty()) return;
    guarded([&] {
        QAccessibleTextUpdateEvent event(widget_, offsetOf(*widget_, static_cast<long>(change.position)),
                                         toQt(change.removed), toQt(change.inserted));
        say(event);
    });
}

}  // namespace kelvor::qt
