// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/text_accessible.h"

#include <algorithm>

#include "base/event.h"
#include "controls/edit_control.h"
#include "qt/convert.h"
#include "qt/scintilla_widget.h"
#include "qt/text_speech.h"
#include "text/code_points.h"

namespace kelvor::qt {

namespace {

using Sci = QsciScintillaBase;

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    // Any object of the program may come here. Those of the web engine have no type information for dynamic_cast.
    auto* const widget = dynamic_cast<ScintillaWidget*>(qobject_cast<Sci*>(object));
    return widget ? new TextAccessible(*widget) : nullptr;
}

}  // namespace

TextAccessible::TextAccessible(ScintillaWidget& widget)
    : QAccessibleWidget(&widget, QAccessible::EditableText), widget_(widget) {
}

void TextAccessible::install() {
    QAccessible::installFactory(accessibleOf);
}

QAccessible::State TextAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const EditControl* control = widget_.control();
    state.readOnly = control && control->isReadOnly();
    state.editable = !state.readOnly;
    state.multiLine = true;
    state.selectableText = true;
    return state;
}

void* TextAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface) return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

long TextAccessible::send(unsigned int message, long first, long second) const {
    return widget_.send(message, static_cast<unsigned long>(first), second);
}

long TextAccessible::length() const {
    return send(Sci::SCI_GETLENGTH);
}

/// The end for what lies behind the text and for -1.
long TextAccessible::positionOf(int offset) const {
    if (offset < 0) return length();
    return static_cast<long>(positionBehind(shownText(widget_), static_cast<std::size_t>(offset)));
}

void TextAccessible::selection(int index, int* start, int* end) const {
    const bool known = index == 0 && selectionCount() > 0;
    *start = known ? offsetOf(widget_, send(Sci::SCI_GETSELECTIONSTART)) : 0;
    *end = known ? offsetOf(widget_, send(Sci::SCI_GETSELECTIONEND)) : 0;
}

int TextAccessible::selectionCount() const {
    return send(Sci::SCI_GETSELECTIONEMPTY) != 0 ? 0 : 1;
}

void TextAccessible::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void TextAccessible::removeSelection(int index) {
    if (index == 0 && widget_.control()) guarded([&] { widget_.control()->setSelLength(0); });
}

void TextAccessible::setSelection(int index, int start, int end) {
    if (index == 0) guarded([&] { select(start, end); });
}

void TextAccessible::select(int start, int end) {
    EditControl* const control = widget_.control();
    if (!control) return;
    const auto from = static_cast<int>(positionOf(start));
    control->setSelStart(from);
    control->setSelLength(static_cast<int>(positionOf(end)) - from);
}

int TextAccessible::cursorPosition() const {
    return offsetOf(widget_, send(Sci::SCI_GETCURRENTPOS));
}

void TextAccessible::setCursorPosition(int offset) {
    if (widget_.control()) guarded([&] { widget_.control()->setSelStart(static_cast<int>(positionOf(offset))); });
}

QString TextAccessible::text(int start, int end) const {
    return toQt(shownText(widget_, positionOf(start), positionOf(end)));
}

/// What of that kind holds a position.
TextAccessible::Range TextAccessible::unitAt(long position, QAccessible::TextBoundaryType boundary) const {
    const auto next = [this](long from) { return send(Sci::SCI_POSITIONAFTER, from); };
    switch (boundary) {
        case QAccessible::CharBoundary:
            return {position, next(position)};
        case QAccessible::WordBoundary: {
            const Range word{send(Sci::SCI_WORDSTARTPOSITION, position, 1),
                             send(Sci::SCI_WORDENDPOSITION, position, 1)};
            return word.start < word.end ? word : Range{position, next(position)};
        }
        case QAccessible::NoBoundary:
            return {0, length()};
        default: {
            const long line = send(Sci::SCI_LINEFROMPOSITION, position);
            const bool isLast = line + 1 == send(Sci::SCI_GETLINECOUNT);
            return {send(Sci::SCI_POSITIONFROMLINE, line),
                    isLast ? length() : send(Sci::SCI_POSITIONFROMLINE, line + 1)};
        }
    }
}

QString TextAccessible::told(Range range, int* start, int* end) const {
    *start = offsetOf(widget_, range.start);
    *end = *start + static_cast<int>(kelvor::characterCount(shownText(widget_, range.start, range.end)));
    return toQt(shownText(widget_, range.start, range.end));
}

QString TextAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                                         int* end) const {
    const Range here = unitAt(positionOf(offset), boundary);
    if (here.start > 0) return told(unitAt(send(Sci::SCI_POSITIONBEFORE, here.start), boundary), start, end);
    *start = *end = -1;
    return {};
}

QString TextAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                                        int* end) const {
    const Range here = unitAt(positionOf(offset), boundary);
    if (here.end < length()) return told(unitAt(here.end, boundary), start, end);
    *start = *end = -1;
    return {};
}

QString TextAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const {
    return told(unitAt(positionOf(offset), boundary), start, end);
}

int TextAccessible::characterCount() const {
    return offsetOf(widget_, length());
}

QRect TextAccessible::characterRect(int offset) const {
    const long position = positionOf(offset);
    const auto x = [this](long place) { return static_cast<int>(send(Sci::SCI_POINTXFROMPOSITION, 0, place)); };
    const int left = x(position);
    const QPoint corner(left, static_cast<int>(send(Sci::SCI_POINTYFROMPOSITION, 0, position)));
    const auto height = static_cast<int>(send(Sci::SCI_TEXTHEIGHT, send(Sci::SCI_LINEFROMPOSITION, position)));
    const int width = std::max(x(send(Sci::SCI_POSITIONAFTER, position)) - left, 0);
    return {widget_.viewport()->mapToGlobal(corner), QSize(width, height)};
}

int TextAccessible::offsetAtPoint(const QPoint& point) const {
    const QPoint place = widget_.viewport()->mapFromGlobal(point);
    return offsetOf(widget_, send(Sci::SCI_POSITIONFROMPOINT, place.x(), place.y()));
}

void TextAccessible::scrollToSubstring(int start, int end) {
    send(Sci::SCI_SCROLLRANGE, positionOf(end), positionOf(start));
}

/// All of the text looks alike.
QString TextAccessible::attributes(int /*offset*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void TextAccessible::deleteText(int start, int end) {
    replaceText(start, end, {});
}

void TextAccessible::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void TextAccessible::replaceText(int start, int end, const QString& text) {
    if (!widget_.control() || !widget_.isEnabled() || widget_.control()->isReadOnly()) return;
    guarded([&] {
        const std::string bytes = fromQt(text);
        select(start, end);
        widget_.control()->setSelText(bytes);
    });
}

}  // namespace kelvor::qt
