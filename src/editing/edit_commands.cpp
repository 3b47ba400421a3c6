// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/edit_commands.h"

#include "controls/edit_control.h"
#include "frame/main_frame.h"

namespace kelvor {

namespace {

using TextAction = void (EditControl::*)();

void actOnText(TextAction action) {
    EditControl& text = mainForm().activeForm().Text1;
    text.SetFocus();
    (text.*action)();
    text.SetFocus();
}

}  // namespace

void mnuEdit_Undo_Click() {
    EditControl& text = mainForm().activeForm().Text1;
    text.undo();
    text.SetFocus();
}

void mnuEdit_Cut_Click() {
    actOnText(&EditControl::cut);
}

void mnuEdit_Copy_Click() {
    actOnText(&EditControl::copy);
}

void mnuEdit_Paste_Click() {
    actOnText(&EditControl::paste);
}

void mnuEdit_SelectAll_Click() {
    actOnText(&EditControl::selectAll);
}

void mnuEdit_Delete_Click() {
    EditControl& text = mainForm().activeForm().Text1;
    if (text.selLength() > 0) text.setSelText("");
    text.SetFocus();
}

void mnuEdit_Click() {
    mainForm().menu("mnuEdit_StripSel").setEnabled(mainForm().activeForm().Text1.selLength() != 0);
}

void mnuRClick_Click() {
    mainForm().menu("mnuRClick_SendSP").setEnabled(mainForm().activeForm().Text1.selLength() != 0);
}

void Edit_Action(EditAction action) {
    static constexpr const char* rows[] = {"mnuEdit_Paste", "mnuEdit_Cut", "mnuEdit_Copy", "mnuEdit_SelectAll",
                                           "mnuEdit_Undo"};
    mainForm().menu(rows[static_cast<std::size_t>(action)]).click();
}

}  // namespace kelvor
