#include "authoring/special_character_insertion.h"

#include <vector>

#include "editing/insertion.h"
#include "frame/tool_switch.h"
#include "html/special_chars.h"
#include "support/html_help.h"

namespace kelvor {

namespace {

constexpr ToolSwitch specialCharsSwitch("mnuInsert_SpecialChars", "Special Chars");

}  // namespace

SpecialCharacterInsertion& specialCharacterInsertion() {
    static FormInstance<SpecialCharacterInsertion> instance;
    return instance.get();
}

SpecialCharacterInsertion::SpecialCharacterInsertion() : Form("specialCharacterInsertion", "Special Characters") {
    onLoad = [this] { Form_Load(); };
    unloaded.connect([] { specialCharsSwitch.release(); });
    lstSpecChars.doubleClicked.connect([this] { lstSpecChars_DblClick(); });
    cmdInsert.clicked.connect([this] { lstSpecChars_DblClick(); });
    cmdHelp.clicked.connect([this] { showHelpPage(name()); });
    cmdClose.clicked.connect([this] { unload(); });
}

void SpecialCharacterInsertion::Form_Load() {
    fillSpecialCharList();
    lstSpecChars.setSelectedRow(0);
}

void SpecialCharacterInsertion::fillSpecialCharList() {
    std::vector<ReportView::Row> rows;
    rows.reserve(specialChars.size());
    for (const SpecialCharEntry& entry : specialChars) rows.push_back({{entry.character, entry.entity}});
    lstSpecChars.addRows(std::move(rows));
}

void SpecialCharacterInsertion::lstSpecChars_DblClick() {
    deliveryTarget().setSelText(lstSpecChars.cell(lstSpecChars.selectedRow(), 1));
}

void mnuInsert_SpecialChars_Click() {
    specialCharsSwitch.flip(specialCharacterInsertion());
}

}  // namespace kelvor
