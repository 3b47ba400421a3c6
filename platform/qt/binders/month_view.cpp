#include "platform/month_view.h"

#include <QCalendarWidget>
#include <QSignalBlocker>

#include "platform/qt/binders/binders.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

void bindMonthView(MonthView& view, QCalendarWidget& widget, FormLink& link) {
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
