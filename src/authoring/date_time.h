// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/month_view.h"
#include "frame/tool_dialog.h"

namespace kelvor {

class Clock;
class EditControl;

/// A day, or the time of day, in the form that the user picks, inserted into an edit control.
class DateTimeDialog : public ToolDialog {
public:
    DateTimeDialog() : ToolDialog("frmDateTime", "Date and Time") {}

    ListBox lstDates{*this, "lstDates", {.doubleClicked = &DateTimeDialog::cmdInsert_Click}};
    MonthView MonthView1{*this, "MonthView1", &DateTimeDialog::MonthView1_Click};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &DateTimeDialog::cmdInsert_Click};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", &DateTimeDialog::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &DateTimeDialog::showHelp};

    /// The control that gets the text; set before the dialog is shown, for that one time.
    EditControl* HookedRTB() const { return hookedRTB_; }
    void setHookedRTB(EditControl* control) { hookedRTB_ = control; }

private:
    void Form_Load() override;
    void MonthView1_Click();
    void cmdInsert_Click();
    /// Shows a day and the time of now in all forms.
    void FillListBox(const Date& day);

    EditControl* hookedRTB_ = nullptr;
};

/// Inserts a date or a time at the selection of the active document.
void mnuInsert_Date_Click();

/// A day in nine forms and a time of day in two. Which parts a date in the locale's form has and in what order, the
/// clock knows; the other forms are fixed but for the names of months and weekdays.
std::vector<std::string> dateAndTimeForms(Clock& clock, const Date& day, const DateTime& now);

}  // namespace kelvor
