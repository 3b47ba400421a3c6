// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_text_area.h"

#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "html/form_elements.h"

namespace kelvor {

FormTextArea::FormTextArea() : ToolDialog("frmFormTextArea", "Textarea") {
    for (TextBox* number : {&txtRows, &txtCols}) number->setKeys(keys::number);
    selectThemselves(txtName, txtValue, txtRows, txtCols);
}

void FormTextArea::Form_Load() {
    keys_.setHookedRTB(&txtValue);
}

void FormTextArea::cmdInsert_Click() {
    replaceSelectionText(
        activeText(),
        textAreaTags(
            {.name = txtName.text(), .rows = txtRows.text(), .columns = txtCols.text(), .text = txtValue.text()}));
    unload();
}

void showFormTextArea() {
    openToolForm(toolForm<FormTextArea>(), ShowMode::modal);
}

}  // namespace kelvor
