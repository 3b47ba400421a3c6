#include "core/enablement.h"

#include "core/frame.h"

namespace kelvor {

namespace {

/// Menus that need the source of a document in front.
constexpr const char* sourceMenus[] = {"mnuFile_SaveAll", "mnuFile_CloseAll", "mnuEdit",
                                       "mnuFile_Save",    "mnuFile_SaveAs",   "mnuFile_Close"};
/// Those of them that are not even seen without it.
constexpr const char* hiddenMenus[] = {"mnuEdit"};

/// Popup rows that need a selection.
constexpr const char* selectionRows[] = {"mnuRClick_Cut", "mnuRClick_Copy"};

void setSelectionRows(bool on) {
    for (const char* name : selectionRows) mainForm().menu(name).setEnabled(on);
}

void setSourceCommands(bool on) {
    MDIForm1& frame = mainForm();
    for (const char* name : sourceMenus) frame.menu(name).setEnabled(on);
    for (const char* name : hiddenMenus) frame.menu(name).setVisible(on);
    for (ComboBox* list : {&frame.Combo1, &frame.Combo2, &frame.Combo3, &frame.Combo4}) list->setEnabled(on);
}

}  // namespace

void disableMenuItems() {
    setSourceCommands(false);
    mainForm().menu("mnuWindow").setVisible(false);
    mainForm().Picture2.setVisible(false);
}

void enableMenuItems() {
    if (mainForm().menu("mnuWindow").visible()) return;
    setSourceCommands(true);
    mainForm().menu("mnuWindow").setVisible(true);
}

void ControlFunctionForMode(int mode) {
    if (mode != view_mode::source && mode != view_mode::preview) return;
    setSourceCommands(mode == view_mode::source);
    if (mode == view_mode::source) mainForm().menu("mnuWindow").setVisible(true);
}

void disableRClickItems() {
    setSelectionRows(false);
}

void enableRClickItems() {
    setSelectionRows(true);
}

void checkSelText() {
    if (mainForm().activeForm().Text1.selLength() == 0) {
        disableRClickItems();
    } else {
        enableRClickItems();
    }
}

}  // namespace kelvor
