#include "platform/month_view.h"

#include <QCalendarWidget>
#include <QSignalBlocker>

#include "platform/qt/binders/binders.h"

namespace kelvor::qt {

void bindMonthView(MonthView& view, QCalendarWidget& widget, FormLink& link) {
    widget.setFirstDayOfWeek(QLocale().firstDayOfWeek());
    const auto show = [&view, &widget] {
        const QSignalBlocker blocker(widget);
        const Date& day = view.value();
        widget.setSelectedDate(QDate(day.year, day.month, day.day));
    };
    link.follow(view, widget, [show](Aspect) { show(); });
    QObject::connect(&widget, &QCalendarWidget::selectionChanged, &link, [&view, &widget, &link, show] {
        const QDate day = widget.selectedDate();
        link.perform([&view, day] { view.setValue({day.year(), day.month(), day.day()}); }, show);
    });
}

}  // namespace kelvor::qt
