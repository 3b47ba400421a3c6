// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "controls/check_box.h"
#include "controls/label.h"
#include "controls/report_view.h"
#include "controls/text_box.h"
#include "frame/tool_dialog.h"
#include "html/form_elements.h"

namespace kelvor {

/// Writes a list, check boxes or radio buttons of a form. Which of them stands in the caption alone.
class FormSelect : public ToolDialog {
public:
    FormSelect();

    Label lblControlName{*this, "lblControlName", "Select &Name:"};
    TextBox txtControlName{*this, "txtControlName"};
    Label lblDescripName{*this, "lblDescripName", "Option &Description:"};
    TextBox txtDescripName{*this, "txtDescripName"};
    Label lblValue{*this, "lblValue", "Option &Value:"};
    TextBox txtValue{*this, "txtValue"};
    CheckBox chkDefault{*this, "chkDefault", "Default selection:"};
    Button cmdAddOption{*this, "cmdAddOption", "Add to list", &FormSelect::cmdAddOption_Click};
    Button cmdClearOption{*this, "cmdClearOption", "Clear Item", &FormSelect::cmdClearOption_Click};
    Button cmdClearAll{*this, "cmdClearAll", "Clear List", &FormSelect::cmdClearAll_Click};
    ReportView lvOptions{*this, "lvOptions", {"Description", "Value", "Default"}};
    Button Command1{*this, "Command1", "&Insert", &FormSelect::Command1_Click};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", &FormSelect::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FormSelect::cmdHelp_Click};

    /// Makes it the dialog of that caption; error 5 when there is none.
    void prepare(std::string_view caption);

private:
    void cmdAddOption_Click();
    void cmdClearOption_Click();
    void cmdClearAll_Click();
    void Command1_Click();
    void cmdHelp_Click();
    /// What the buttons and the box can do with the list as it is.
    void checkButtons();
    void offerDefault();
    std::vector<FormOption> options() const;
};

/// @param caption  "Select group", "Checkbox group" or "Radio button group"
void showFormSelect(std::string_view caption);

}  // namespace kelvor
