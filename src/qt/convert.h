// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QDate>
#include <QString>
#include <string>
#include <string_view>

#include "platform/dates.h"

class QWidget;

namespace kelvor::qt {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

inline QDate toQt(const Date& day) {
    return {day.year, day.month, day.day};
}

inline Date fromQt(const QDate& day) {
    return {day.year(), day.month(), day.day()};
}

/// A colour as the logic counts it: red in the lowest byte, then green, then blue.
int fromQt(const QColor& color);

/// The other way.
QColor colorToQt(int color);

/// A field's background of one colour, counted so, with a text that can be read on it; -1 is the desktop's own.
void showBackColor(QWidget& field, int color);

/// The text with CR LF and CR as LF, as labels and boxes break lines.
QString plainLines(std::string_view text);

/// A text as a row of a list shows it: its first 1,000 characters or so, spelled as shownName does.
QString rowText(std::string_view text);

/// At most `limit` characters of the text, the middle left out when there are more.
QString elidedInTheMiddle(const QString& text, int limit);

/// A caption as a window's title: spelled as shownName does, long ones elided, nothing in it taken for a placeholder.
QString windowTitle(std::string_view caption);

/// A text as a menu row shows it unchanged, with no access key in it.
QString menuText(const QString& text);

/// A text as a tool tip shows it unchanged, mark-up included.
QString toolTipText(std::string_view text);

}  // namespace kelvor::qt
