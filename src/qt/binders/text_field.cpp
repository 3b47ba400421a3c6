// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binders/text_field.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include "controls/text_field.h"
#include "qt/convert.h"
#include "qt/form_link.h"

namespace kelvor::qt {

namespace {

/// In UTF-16 units; each key has the widget lay out all of them anew.
constexpr int longestText = 200000;

/// Where byte `position` of a text stands in the widget's count.
int unitsBefore(const std::string& text, int position) {
    return static_cast<int>(toQt(std::string_view(text).substr(0, static_cast<std::size_t>(position))).size());
}

int bytesBefore(const QString& text, int position) {
    return static_cast<int>(text.left(position).toUtf8().size());
}

}  // namespace

void showField(const TextField& field, QLineEdit& widget, Aspect aspect) {
    const QSignalBlocker blocker(widget);
    const QString text = toQt(field.text());
    // What the widget cannot hold would be gone after the user's next key.
    widget.setReadOnly(text.size() > widget.maxLength());
    if (widget.text() != text) {
        widget.setText(text);
    } else if (aspect != Aspect::textSelection) {
        // What was typed stands there already, and the caret where the user goes on.
        return;
    }
    const int start = unitsBefore(field.text(), field.selStart());
    const int end = unitsBefore(field.text(), field.selStart() + field.selLength());
    const bool shown = widget.hasSelectedText() ? widget.selectionStart() == start && widget.selectionEnd() == end
                                                : start == end && widget.cursorPosition() == start;
    if (!shown) widget.setSelection(start, end - start);
}

void joinField(TextField& field, QLineEdit& widget, FormLink& link) {
    widget.setMaxLength(longestText);
    const auto tell = [&field, &widget] {
        const QString text = widget.text();
        // While a key is being handled the caret moves before the text is told.
        if (fromQt(text) != field.text()) return;
        const bool selected = widget.hasSelectedText();
        const int start = bytesBefore(text, selected ? widget.selectionStart() : widget.cursorPosition());
        const int length = selected ? bytesBefore(text, widget.selectionEnd()) - start : 0;
        if (start == field.selStart() && length == field.selLength()) return;
        field.setSelStart(start);
        field.setSelLength(length);
    };
    QObject::connect(&widget, &QLineEdit::selectionChanged, &link, tell);
    QObject::connect(&widget, &QLineEdit::cursorPositionChanged, &link, tell);
}

}  // namespace kelvor::qt
