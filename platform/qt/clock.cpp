#include "platform/qt/clock.h"

#include <QDate>
#include <QLocale>

#include "platform/qt/convert.h"

namespace kelvor::qt {

std::string QtClock::longDate() {
    return fromQt(QLocale::system().toString(QDate::currentDate(), QLocale::LongFormat));
}

}  // namespace kelvor::qt
