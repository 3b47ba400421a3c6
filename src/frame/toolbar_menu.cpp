// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/toolbar_menu.h"

#include "controls/control.h"
#include "controls/menu_item.h"
#include "frame/main_frame.h"

namespace kelvor {

namespace {

/// Turns a row of the Toolbars menu, and the bar with it.
void flip(const char* row, Control& bar) {
    MenuItem& item = mainForm().menu(row);
    bar.setVisible(!bar.visible());
    item.setChecked(bar.visible());
}

}  // namespace

void mnuToolbars_Main_Click() {
    flip("mnuToolbars_Main", mainForm().Toolbar1);
}

void mnuToolBars_helpers_Click() {
    flip("mnuToolBars_helpers", mainForm().Toolbar2);
}

void mnuToolBars_forms_Click() {
    flip("mnuToolBars_forms", mainForm().Toolbar3);
}

void mnuView_dropDown_Click() {
    MenuItem& item = mainForm().menu("mnuView_dropDown");
    item.setChecked(!item.checked());
    mainForm().Picture1.setVisible(item.checked());
}

}  // namespace kelvor
