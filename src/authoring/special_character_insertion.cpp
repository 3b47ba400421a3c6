// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/special_character_insertion.h"

#include <vector>

#include "editing/insertion.h"
#include "frame/tool_switch.h"
#include "html/special_chars.h"

namespace kelvor {

namespace {

constexpr ToolSwitch specialCharsSwitch("mnuInsert_SpecialChars", "Special Chars");

}  // namespace

void SpecialCharacterInsertion::Form_Unload() {
    specialCharsSwitch.release();
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
    specialCharsSwitch.flip(toolForm<SpecialCharacterInsertion>());
}

}  // namespace kelvor
