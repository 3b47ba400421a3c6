// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/combo_box.h"
#include "controls/text_box.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Writes the tags round a form. It knows the last five actions again.
class FormOpen : public ToolDialog {
public:
    FormOpen();

    TextBox txtName{*this, "txtName"};
    ComboBox cboAction{*this, "cboAction", ComboBox::Style::editable};
    ComboBox cboMethod{*this, "cboMethod"};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &FormOpen::cmdInsert_Click};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", &FormOpen::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FormOpen::showHelp};

private:
    void Form_Load() override;
    void cmdInsert_Click();
    void fillLastActions();
    void writeActions() const;
    /// The caret stands on the line between the tags afterwards.
    void writeOpenTag();
};

void showFormOpen();

}  // namespace kelvor
