// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/document_assistant.h"

#include "controls/side_bar.h"
#include "frame/main_frame.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

void alignBar(const char* wanted, const char* other, int side) {
    MDIForm1& frame = mainForm();
    if (frame.menu(wanted).checked()) return;
    frame.menu(other).setChecked(false);
    frame.menu(wanted).setChecked(true);
    frame.CoolBar2.setAlign(side);
    user::documentAssistantSide.store(std::to_string(side));
}

}  // namespace

void ToggleDocumentAssistant(bool show) {
    MDIForm1& frame = mainForm();
    const int side = user::documentAssistantSide.number(SideBar::left);
    frame.menu("mnuView_DocumentAssistant").setChecked(show);
    frame.CoolBar2.setVisible(show);
    frame.Toolbar2.setValue("DocumentAssistant", show);
    if (!show) return;
    if (side == SideBar::left) {
        mnuPreview_AlignLeft_Click();
    } else {
        mnuPreview_AlignRight_Click();
    }
}

void mnuView_DocumentAssistant_Click() {
    ToggleDocumentAssistant(!mainForm().menu("mnuView_DocumentAssistant").checked());
}

void mnuPreview_AlignLeft_Click() {
    alignBar("mnuPreview_AlignLeft", "mnuPreview_AlignRight", SideBar::left);
}

void mnuPreview_AlignRight_Click() {
    alignBar("mnuPreview_AlignRight", "mnuPreview_AlignLeft", SideBar::right);
}

}  // namespace kelvor
