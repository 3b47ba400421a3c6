// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/insert_lists.h"

#include <algorithm>

#include "controls/combo_box.h"
#include "editing/insertion.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "support/fields.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

/// Wraps the selection by a list's choice and puts the list back on its heading.
void wrapByChoice(ComboBox& list, int heading, const std::string& before, const std::string& after,
                  const std::string& closeText) {
    if (list.listIndex() == heading) return;
    insertAtSelection(before + list.text() + after, closeText);
    list.setListIndex(heading);
    activeText().SetFocus();
}

}  // namespace

void loadComboBoxes() {
    MDIForm1& frame = mainForm();
    for (const char* entry : {"Head", "H1", "H2", "H3", "H4", "H5", "H6"}) frame.Combo1.addItem(entry);
    frame.Combo1.setListIndex(0);
    fillFontCombo(frame.Combo2, false);
    fillSizeCombo(frame.Combo3, false);
    frame.Combo4.addItem("(User Strings)");
    frame.Combo4.setListIndex(0);
}

void setUpUStrings() {
    ComboBox& list = mainForm().Combo4;
    if (const auto stored = user::strings.all()) {
        for (const Setting& string : *stored) addUserString(string.key, string.value);
    }
    list.setListIndex(0);
}

void addUserString(const std::string& label, const std::string& contents) {
    userStrings.Add(contents, label);
    mainForm().Combo4.addItem(label);
}

void removeUserString(const std::string& label, int row) {
    if (userStrings.contains(label)) userStrings.Remove(label);
    ComboBox& list = mainForm().Combo4;
    if (row > 0 && row < static_cast<int>(list.list().size())) list.removeItem(static_cast<std::size_t>(row));
}

int userStringRow(const std::string& label) {
    const auto& rows = mainForm().Combo4.list();
    const auto found = std::find(rows.begin() + 1, rows.end(), label);
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

void resetUserStrings() {
    userStrings.clear();
}

void Combo1_Click() {
    ComboBox& list = mainForm().Combo1;
    wrapByChoice(list, 0, "<", ">", "</" + list.text() + ">");
}

void Combo2_Click() {
    wrapByChoice(mainForm().Combo2, 0, "<FONT FACE=\"", "\">", "</FONT>");
}

void Combo3_Click() {
    wrapByChoice(mainForm().Combo3, noSizeRow, "<FONT SIZE=\"", "\">", "</FONT>");
}

void Combo4_Click() {
    ComboBox& list = mainForm().Combo4;
    if (list.listIndex() > 0) activeText().setSelText(userStrings.Item(list.text()));
    list.setListIndex(0);
    focusDocument();
}

}  // namespace kelvor
