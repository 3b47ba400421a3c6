// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/convert.h"

#include <QPalette>
#include <QTextDocument>
#include <QWidget>
#include <algorithm>

#include "html/colors.h"
#include "text/code_points.h"
#include "text/shown_name.h"

namespace kelvor::qt {

namespace {

/// In characters; a path of this length still leaves the title bar its buttons.
constexpr int longestTitle = 100;

}  // namespace

int fromQt(const QColor& color) {
    return color.red() | color.green() << 8 | color.blue() << 16;
}

QColor colorToQt(int color) {
    return {color & 0xff, color >> 8 & 0xff, color >> 16 & 0xff};
}

void showBackColor(QWidget& field, int color) {
    QPalette palette;
    if (color >= 0) {
        palette.setColor(QPalette::Base, colorToQt(color));
        palette.setColor(QPalette::Text, colorToQt(legibleOn(color)));
    }
    field.setPalette(palette);
}

QString plainLines(std::string_view text) {
    QString lines = toQt(text);
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines;
}

QString rowText(std::string_view text) {
    constexpr std::size_t longest = 1000;
    std::size_t length = std::min(text.size(), longest);
    while (length < text.size() && isContinuationByte(text[length])) ++length;
    return toQt(shownName(text.substr(0, length)));
}

QString elidedInTheMiddle(const QString& text, int limit) {
    if (text.size() <= limit) return text;
    // The end of a path tells more than its start.
    const int head = limit / 3;
    return text.left(head) + QChar(0x2026) + text.right(limit - head - 1);
}

QString windowTitle(std::string_view caption) {
    QString title = elidedInTheMiddle(toQt(shownName(caption)), longestTitle);
    return title.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

QString menuText(const QString& text) {
    return QString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString toolTipText(std::string_view text) {
    const QString plain = plainLines(text);
    return Qt::mightBeRichText(plain) ? Qt::convertFromPlainText(plain) : plain;
}

}  // namespace kelvor::qt
