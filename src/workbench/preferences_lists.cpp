// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the user strings and of the browsers.
#include <string>

#include "authoring/insert_lists.h"
#include "base/event.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "preview/preview.h"
#include "support/messages.h"
#include "support/user_settings.h"
#include "workbench/add_browser.h"
#include "workbench/add_string.h"
#include "workbench/entries.h"
#include "workbench/preferences.h"

namespace kelvor {

namespace {

const Message noMoreBrowsers = {
    .text =
        "You have reached the 15-browser limit.\r\nYou will have to delete an existing browser prior to setting up a "
        "new one.",
    .title = "Kelvor",
    .icon = MessageIcon::information};

}  // namespace

void Preferences::ListView1_MouseDown(const MousePress& press) {
    popUpOver(ListView1, mnuPref_rClick, press);
}

void Preferences::cmdAddString_Click() {
    openToolForm(toolForm<AddString>(), ShowMode::modal);
    selectSome(ListView1);
}

void Preferences::cmdEdit_Click() {
    const int row = ListView1.selectedRow();
    if (row < 0) return;
    toolForm<AddString>().edit(ListView1.cell(row, 0), ListView1.cell(row, 1));
    openToolForm(toolForm<AddString>(), ShowMode::modal);
}

void Preferences::cmdDelete_Click() {
    const int row = ListView1.selectedRow();
    if (row < 0) return;
    const std::string label = ListView1.cell(row, 0);
    if (!confirmDeletion("Delete [" + label + "] user string?")) return;
    removeUserString(label, userStringRow(label));
    user::strings.remove(label);
    ListView1.removeRow(row);
    setAllEnabled({&cmdEdit, &cmdDelete}, ListView1.count() > 0);
}

bool Preferences::browserMax() {
    if (ListView2.count() != browserCapacity) return false;
    beepAndShow(noMoreBrowsers);
    cmdAddb.setEnabled(false);
    return true;
}

void Preferences::ListView2_MouseDown(const MousePress& press) {
    popUpOver(ListView2, mnuPref2, press);
}

void Preferences::cmdAddb_Click() {
    if (browserMax()) return;
    openToolForm(toolForm<AddBrowser>(), ShowMode::modal);
    selectSome(ListView2);
}

void Preferences::cmdEditb_Click() {
    const int row = ListView2.selectedRow();
    if (row < 0) return;
    toolForm<AddBrowser>().edit(ListView2.cell(row, 0), ListView2.cell(row, 1));
    openToolForm(toolForm<AddBrowser>(), ShowMode::modal);
}

void Preferences::cmdDelb_Click() {
    const int row = ListView2.selectedRow();
    if (row < 0) return;
    const std::string label = ListView2.cell(row, 0);
    if (!confirmDeletion("Delete [" + label + "] browser?")) return;
    user::browsers.remove(label);
    ListView2.removeRow(row);
    guarded(setUpBrowsers);
    setAllEnabled({&cmdEditb, &cmdDelb}, ListView2.count() > 0);
    if (ListView2.count() < browserCapacity) cmdAddb.setEnabled(true);
}

}  // namespace kelvor
