// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/message_text.h"

#include <QFontInfo>
#include <QLabel>
#include <QMessageBox>
#include <algorithm>

#include "qt/convert.h"
#include "text/shown_name.h"

namespace kelvor::qt {

namespace {

/// In characters; about twelve lines of a box.
constexpr int longestLine = 1000;
/// In characters; behind so many a word may break anywhere.
constexpr int unbrokenLength = 40;
/// Of the text's size.
constexpr double causeSize = 0.9;

/// The text as a person reads it: its lines as they are parted, each with its names as shownName gives them.
QString readable(std::string_view text) {
    QStringList lines;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        lines << elidedInTheMiddle(toQt(shownName(text.substr(start, end - start))), longestLine);
        start = end + 2;
    }
    return lines.join(QLatin1Char('\n'));
}

/// The text with places at which its long words may go on in the next line.
QString breakable(const QString& text) {
    const QChar zeroWidthSpace(0x200B);
    QString broken;
    int inWord = 0;
    for (const QChar character : text) {
        if (inWord >= unbrokenLength && !character.isLowSurrogate() && !character.isMark()) broken += zeroWidthSpace;
        inWord = character.isSpace() || character == QLatin1Char('/') ? 0 : inWord + 1;
        broken += character;
    }
    return broken;
}

/// Has a part of the box show its text as it is, and spoken as `text`, if the box has that part.
QLabel* prepare(const QMessageBox& box, const char* part, const QString& text) {
    auto* label = box.findChild<QLabel*>(QLatin1String(part));
    if (!label) return nullptr;
    label->setTextFormat(Qt::PlainText);
    label->setAccessibleName(text);
    return label;
}

}  // namespace

void showText(QMessageBox& box, const Message& message) {
    const QString text = readable(message.text);
    const QString cause = readable(message.cause);
    box.setText(breakable(text));
    box.setInformativeText(breakable(cause));
    prepare(box, "qt_msgbox_label", text);
    auto* label = prepare(box, "qt_msgbox_informativelabel", cause);
    if (!label) return;
    QFont font = label->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * causeSize);
    label->setFont(font);
}

}  // namespace kelvor::qt
