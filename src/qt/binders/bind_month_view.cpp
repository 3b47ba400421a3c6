// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/month_view.h"

#include <QCalendarWidget>
#include <QSignalBlocker>
#include <QTextCharFormat>
#include <utility>

#include "qt/binders/binders.h"
#include "qt/colors.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// The toolkit gives these parts of its calendar no names for a screen reader.
void nameParts(QCalendarWidget& calendar) {
    constexpr std::pair<const char*, const char*> names[] = {{"qt_calendar_prevmonth", "Previous month"},
                                                             {"qt_calendar_nextmonth", "Next month"},
                                                             {"qt_calendar_yearedit", "Year"},
                                                             {"qt_calendar_calendarview", "Days"}};
    for (const auto& [part, name] : names)
        if (auto* widget = calendar.findChild<QWidget*>(QLatin1String(part)))
            widget->setAccessibleName(QLatin1String(name));
}

/// The toolkit's red of free days cannot be read on every background.
void showFreeDays(QCalendarWidget& calendar) {
    const QPalette& palette = calendar.palette();
    QTextCharFormat free;
    free.setForeground(readable(Qt::red, palette.color(QPalette::Text), palette.color(QPalette::Base)));
    for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar.setWeekdayTextFormat(day, free);
}

}  // namespace

void bindMonthView(MonthView& view, QCalendarWidget& widget, FormLink& link) {
    nameParts(widget);
    showFreeDays(widget);
    widget.setFirstDayOfWeek(QLocale().firstDayOfWeek());
    const auto show = [&view, &widget] {
        const QSignalBlocker blocker(widget);
        widget.setSelectedDate(toQt(view.value()));
    };
    link.follow(view, widget, [show](Aspect) { show(); });
    QObject::connect(&widget, &QCalendarWidget::selectionChanged, &link, [&view, &widget, &link, show] {
        const Date day = fromQt(widget.selectedDate());
        link.perform([&view, day] { view.setValue(day); }, show);
    });
}

}  // namespace kelvor::qt
