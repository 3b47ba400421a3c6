// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_clock.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// A day by a pattern of the toolkit's, with the locale's names.
std::string byPattern(const Date& day, const char* pattern) {
    return fromQt(QLocale::system().toString(toQt(day), QString::fromLatin1(pattern)));
}

}  // namespace

DateTime QtClock::now() {
    const QDateTime moment = QDateTime::currentDateTime();
    const QTime time = moment.time();
    return {fromQt(moment.date()), time.hour(), time.minute(), time.second()};
}

std::string QtClock::shortDate(const Date& day) {
    return fromQt(QLocale::system().toString(toQt(day), QLocale::ShortFormat));
}

std::string QtClock::mediumDate(const Date& day) {
    return byPattern(day, "dd-MMM-yy");
}

std::string QtClock::longDate(const Date& day) {
    return fromQt(QLocale::system().toString(toQt(day), QLocale::LongFormat));
}

std::string QtClock::time(const DateTime& moment) {
    static const QRegularExpression zone(QStringLiteral("\\s*[(\\[]?t+[)\\]]?"));
    const QString pattern = QLocale::system().timeFormat(QLocale::LongFormat).remove(zone);
    return fromQt(QLocale::system().toString(QTime(moment.hour, moment.minute, moment.second), pattern));
}

std::string QtClock::monthName(const Date& day) {
    return byPattern(day, "MMMM");
}

std::string QtClock::dayName(const Date& day) {
    return byPattern(day, "dddd");
}

}  // namespace kelvor::qt
