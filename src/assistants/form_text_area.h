// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/edit_control.h"
#include "controls/text_box.h"
#include "controls/up_down.h"
#include "editing/htmlkeys.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Writes a field of a form for several lines, with the text that stands in it at first.
class FormTextArea : public ToolDialog {
public:
    FormTextArea();

    TextBox txtName{*this, "txtName"};
    EditControl& txtValue{addEditControl("txtValue")};
    TextBox txtRows{*this, "txtRows", "0"};
    UpDown UpDown1{*this, "UpDown1", txtRows, 0, 250};
    TextBox txtCols{*this, "txtCols", "0"};
    UpDown UpDown2{*this, "UpDown2", txtCols, 0, 250};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &FormTextArea::cmdInsert_Click};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", &FormTextArea::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FormTextArea::showHelp};

private:
    void Form_Load() override;
    void cmdInsert_Click();

    htmlkeys keys_;
};

void showFormTextArea();

}  // namespace kelvor
