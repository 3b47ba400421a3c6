// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "controls/label.h"
#include "controls/text_box.h"
#include "controls/up_down.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Writes one of the fields and buttons of a form. Which one stands in the caption alone.
class FormTextBox : public ToolDialog {
public:
    FormTextBox();

    Label lblName{*this, "lblName", "&Name:"};
    TextBox txtName{*this, "txtName"};
    Label lblValue{*this, "lblValue", "&Value:"};
    TextBox txtValue{*this, "txtValue"};
    Label lblMaxLen{*this, "lblMaxLen", "&Maximum Length:"};
    TextBox txtMaxLen{*this, "txtMaxLen", "0"};
    UpDown UpDown1{*this, "UpDown1", txtMaxLen, 0, 250};
    Label lblSize{*this, "lblSize", "&Size:"};
    TextBox txtSize{*this, "txtSize", "0"};
    UpDown UpDown2{*this, "UpDown2", txtSize, 0, 250};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &FormTextBox::cmdInsert_Click};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", &FormTextBox::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FormTextBox::cmdHelp_Click};

    /// Makes it the dialog of that caption; error 5 when there is none.
    void prepare(std::string_view caption);

private:
    void cmdInsert_Click();
    void cmdHelp_Click();
};

/// @param caption  "Textbox", "Hidden Field", "Password Field", "Reset Button", "Button" or "Submit"
void showFormTextBox(std::string_view caption);

}  // namespace kelvor
