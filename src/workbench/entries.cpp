// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/entries.h"

#include <utility>
#include <vector>

#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

void listEntries(ReportView& list, const UserList& stored) {
    auto entries = stored.all();
    if (!entries) return;
    std::vector<ReportView::Row> rows;
    rows.reserve(entries->size());
    for (Setting& entry : *entries) rows.push_back({{std::move(entry.key), std::move(entry.value)}});
    list.addRows(std::move(rows));
    list.sortBy(0, true);
}

void storeEntries(const ReportView& list, const UserList& stored) {
    for (int row = 0; row < static_cast<int>(list.count()); ++row) stored.store(list.cell(row, 0), list.cell(row, 1));
}

void enterEntries(ReportView& list, std::initializer_list<Control*> buttons) {
    if (list.count() == 0) return setAllEnabled(buttons, false);
    list.setSelectedRow(0);
    list.SetFocus();
}

void selectSome(ReportView& list) {
    if (list.count() > 0 && list.selectedRow() < 0) list.setSelectedRow(0);
}

void popUpOver(const ReportView& list, MenuItem& popup, const MousePress& press) {
    if (press.button == MousePress::right && list.count() > 0) platform().windows.popupMenu(popup);
}

bool isMissing(Control& field, bool isEmpty) {
    if (!isEmpty) return false;
    field.SetFocus();
    beepAndShow({.text = "You must enter text in both text boxes proir to applying.",
                 .title = "Missing mandatory data",
                 .icon = MessageIcon::exclamation});
    return true;
}

void tellNameInUse(const std::string& kind, const std::string& name) {
    beepAndShow(
        {.text = "The " + kind + " name " + name + " is already in use, please change the name to something unique.",
         .title = "Name must be unique",
         .icon = MessageIcon::exclamation});
}

}  // namespace kelvor
