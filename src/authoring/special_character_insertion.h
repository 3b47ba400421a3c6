#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/report_view.h"

namespace kelvor {

/// The special characters with their entities, which it inserts; stays open beside the document.
class SpecialCharacterInsertion : public Form {
public:
    SpecialCharacterInsertion();

    ReportView lstSpecChars{*this, "lstSpecChars", {"Character", "Entity"}};
    Button cmdInsert{*this, "cmdInsert", "&Insert"};
    Button cmdHelp{*this, "cmdHelp", "&Help"};
    Button cmdClose{*this, "cmdClose", "&Close"};

private:
    void Form_Load();
    void fillSpecialCharList();
    void lstSpecChars_DblClick();
};

/// The one window.
SpecialCharacterInsertion& specialCharacterInsertion();

/// The menu row that opens the window and closes it.
void mnuInsert_SpecialChars_Click();

}  // namespace kelvor
