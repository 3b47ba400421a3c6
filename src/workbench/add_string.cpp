// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/add_string.h"

#include <utility>

#include "authoring/insert_lists.h"
#include "base/error.h"
#include "frame/tool_forms.h"
#include "support/fields.h"
#include "support/user_settings.h"
#include "workbench/entries.h"
#include "workbench/preferences.h"

namespace kelvor {

AddString::AddString() : ToolDialog("frmAddString", "Add User String") {
    selectThemselves(Text1, Text2);
}

void AddString::Form_Load() {
    setActiveFormName(name());
    keys_.setHookedRTB(&Text2);
}

void AddString::Form_Unload() {
    keys_.setHookedRTB(nullptr);
    setActiveFormName(std::string(documentForm));
}

void AddString::edit(const std::string& label, const std::string& contents) {
    Text1.setText(label);
    Text2.setText(contents);
    cmdApply.setCaption("&Save changes");
    hasEdited_ = true;
}

/// The old string goes first, and once: it is gone too when the new one is refused. The frame's list is not sorted, and
/// loses the row that has the number of the list's.
void AddString::removeEdited() {
    if (!std::exchange(hasEdited_, false)) return;
    ReportView& list = toolForm<Preferences>().ListView1;
    const int row = list.selectedRow();
    const std::string label = list.cell(row, 0);
    removeUserString(label, row + 1);
    user::strings.remove(label);
    list.removeRow(row);
}

/// False when there is one of that label, which has been told; the list has the row all the same.
bool AddString::addString() {
    ReportView& list = toolForm<Preferences>().ListView1;
    list.addRow({Text1.text(), Text2.text()});
    try {
        addUserString(Text1.text(), Text2.text());
    } catch (const Error& error) {
        if (error.number() != error_number::duplicateKey) throw;
        tellNameInUse("user string", Text1.text());
        return false;
    }
    list.sortBy(0, true);
    return true;
}

void AddString::writeUS() {
    storeEntries(toolForm<Preferences>().ListView1, user::strings);
}

void AddString::cmdApply_Click() {
    if (isMissing(Text1, textBoxEmpty(Text1)) || isMissing(Text2, Text2.textLength() == 0)) return;
    removeEdited();
    if (!addString()) return;
    Text1.setText("");
    Text2.setText("");
    writeUS();
    cmdApply.setCaption("&Add to list");
    setAllEnabled({&toolForm<Preferences>().cmdEdit, &toolForm<Preferences>().cmdDelete}, true);
    Text1.SetFocus();
}

}  // namespace kelvor
