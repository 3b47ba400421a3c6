// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/report_view.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The special characters with their entities, which it inserts; stays open beside the document.
class SpecialCharacterInsertion : public ToolDialog {
public:
    SpecialCharacterInsertion() : ToolDialog("specialCharacterInsertion", "Special Characters") {}

    ReportView lstSpecChars{*this,
                            "lstSpecChars",
                            {"Character", "Entity"},
                            {.doubleClicked = &SpecialCharacterInsertion::lstSpecChars_DblClick}};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &SpecialCharacterInsertion::lstSpecChars_DblClick};
    Button cmdHelp{*this, "cmdHelp", "&Help", &SpecialCharacterInsertion::showHelp};
    Button cmdClose{*this, "cmdClose", "&Close", &SpecialCharacterInsertion::unload};

private:
    void Form_Load() override;
    void Form_Unload() override;
    void fillSpecialCharList();
    void lstSpecChars_DblClick();
};

/// The menu row that opens the window and closes it.
void mnuInsert_SpecialChars_Click();

}  // namespace kelvor
