// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/date_time.h"

#include "base/error.h"
#include "controls/edit_control.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "platform/dates.h"
#include "platform/platform.h"
#include "platform/services.h"

namespace kelvor {

namespace {

/// The last `width` digits of a number, with zeros in front.
std::string digits(int number, std::size_t width) {
    const std::string text = std::string(width, '0') + std::to_string(number);
    return text.substr(text.size() - width);
}

}  // namespace

void DateTimeDialog::MonthView1_Click() {
    FillListBox(MonthView1.value());
}

void DateTimeDialog::Form_Load() {
    MonthView1.setValue(platform().clock.now().date);
    FillListBox(MonthView1.value());
}

void DateTimeDialog::FillListBox(const Date& day) {
    Clock& clock = platform().clock;
    lstDates.clear();
    lstDates.addRows(dateAndTimeForms(clock, day, clock.now()));
    lstDates.setSelectedRow(0);
}

void DateTimeDialog::cmdInsert_Click() {
    if (!hookedRTB_) throw Error(error_number::objectNotSet, "No text takes the date");
    const auto date = lstDates.selectedText();
    if (!date) throw Error(error_number::objectNotSet, "No date is selected");
    hookedRTB_->setSelText(*date);
    unload();
}

void mnuInsert_Date_Click() {
    EditControl& text = activeText();
    toolForm<DateTimeDialog>().setHookedRTB(&text);
    openToolForm(toolForm<DateTimeDialog>(), ShowMode::modal);
    text.SetFocus();
}

std::vector<std::string> dateAndTimeForms(Clock& clock, const Date& day, const DateTime& now) {
    const std::string dd = digits(day.day, 2);
    const std::string mm = digits(day.month, 2);
    const std::string yyyy = digits(day.year, 4);
    const std::string month = clock.monthName(day);
    const std::string dayMonthYear = dd + " " + month + ", " + yyyy;
    return {
        clock.shortDate(day),
        mm + "/" + dd + "/" + yyyy,
        digits(day.year, 2) + "/" + mm + "/" + dd,
        yyyy + "/" + mm + "/" + dd,
        clock.mediumDate(day),
        clock.longDate(day),
        month + " " + dd + ", " + yyyy,
        clock.dayName(day) + ", " + dayMonthYear,
        dayMonthYear,
        clock.time(now),
        digits(now.hour, 2) + ":" + digits(now.minute, 2) + ":" + digits(now.second, 2),
    };
}

}  // namespace kelvor
