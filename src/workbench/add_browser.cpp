// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/add_browser.h"

#include <utility>

#include "base/event.h"
#include "controls/common_dialog.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "preview/preview.h"
#include "support/fields.h"
#include "support/user_settings.h"
#include "workbench/entries.h"
#include "workbench/preferences.h"

namespace kelvor {

namespace {

const std::string saveChanges = "&Save changes";

}  // namespace

void AddBrowser::Form_Load() {
    setActiveFormName(name());
}

void AddBrowser::Form_Unload() {
    setActiveFormName(std::string(documentForm));
}

void AddBrowser::edit(const std::string& label, const std::string& path) {
    Text1.setText(label);
    Text2.setText(path);
    cmdAddList.setCaption(saveChanges);
    hasEdited_ = true;
}

void AddBrowser::Text2_DblClick() {
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.dialogTitle = "Locate browser executable";
    dialog.filter = "All Files (*.*)|*.*|Executable Files (*.exe)|*.exe";
    dialog.filterIndex = 2;
    dialog.initDir = lastDir;
    dialog.flags = dialog_flag::hideReadOnly | dialog_flag::fileMustExist;
    dialog.fileName.clear();
    if (answered(dialog, &CommonDialog::ShowOpen)) Text2.setText(dialog.fileName);
}

bool AddBrowser::isEditing() const {
    return cmdAddList.caption() == saveChanges;
}

/// The user has been told then.
bool AddBrowser::isNameInUse() const {
    if (user::browsers.value(Text1.text()).empty()) return false;
    tellNameInUse("browser", Text1.text());
    return true;
}

/// The old browser goes first, and once.
void AddBrowser::removeEdited() {
    if (!std::exchange(hasEdited_, false)) return;
    ReportView& list = toolForm<Preferences>().ListView2;
    user::browsers.remove(list.cell(list.selectedRow(), 0));
    list.removeRow(list.selectedRow());
}

void AddBrowser::addBrowser() {
    ReportView& list = toolForm<Preferences>().ListView2;
    list.addRow({Text1.text(), Text2.text()});
    list.sortBy(0, true);
}

void AddBrowser::writeBrowsers() {
    storeEntries(toolForm<Preferences>().ListView2, user::browsers);
}

void AddBrowser::getReadyForNext() {
    cmdAddList.setCaption("&Add to list");
    setAllEnabled({&toolForm<Preferences>().cmdEditb, &toolForm<Preferences>().cmdDelb}, true);
    Text1.SetFocus();
}

void AddBrowser::cmdAddList_Click() {
    if (isMissing(Text1, textBoxEmpty(Text1)) || isMissing(Text2, textBoxEmpty(Text2))) return;
    if (!isEditing() && isNameInUse()) return;
    removeEdited();
    addBrowser();
    for (TextBox* field : {&Text1, &Text2}) field->setText("");
    writeBrowsers();
    guarded(setUpBrowsers);
    getReadyForNext();
    if (toolForm<Preferences>().browserMax()) unload();
}

}  // namespace kelvor
