// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_open.h"

#include <cstddef>
#include <string>

#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "html/form_elements.h"
#include "platform/platform.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

constexpr std::size_t keptActions = 5;

const Message noAction = {
    .text = "The form must have an action.", .title = "Empty action field", .icon = MessageIcon::exclamation};

}  // namespace

FormOpen::FormOpen() : ToolDialog("frmFormOpen", "Form declaration tag") {
    selectThemselves(txtName, cboAction);
}

void FormOpen::Form_Load() {
    for (const char* method : {"POST", "GET"}) cboMethod.addItem(method);
    cboMethod.setListIndex(0);
    fillLastActions();
}

void FormOpen::fillLastActions() {
    const auto stored = user::formActions.all();
    if (!stored) return;
    for (const Setting& action : *stored)
        if (!action.value.empty()) cboAction.addItem(action.value);
}

void FormOpen::cmdInsert_Click() {
    if (cboAction.text().empty()) {
        beepAndShow(noAction);
        return cboAction.SetFocus();
    }
    cboAction.insertItem(0, cboAction.text());
    writeActions();
    writeOpenTag();
    unload();
}

void FormOpen::writeActions() const {
    const auto& actions = cboAction.list();
    for (std::size_t i = 0; i < keptActions; ++i)
        user::formActions.store("action" + std::to_string(i), i < actions.size() ? actions[i] : "");
}

void FormOpen::writeOpenTag() {
    EditControl& text = activeText();
    replaceSelectionText(text,
                         formPair({.name = txtName.text(), .method = cboMethod.text(), .action = cboAction.text()}));
    text.setSelStart(text.selStart() - formPairTail);
}

void showFormOpen() {
    openToolForm(toolForm<FormOpen>(), ShowMode::modal);
}

}  // namespace kelvor
