// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/enablement.h"

#include "controls/combo_box.h"
#include "controls/tool_bar.h"
#include "frame/edit_window.h"
#include "frame/main_frame.h"

namespace kelvor {

namespace {

/// List A: buttons of the main toolbar that need the source of a document in front.
constexpr const char* sourceButtons[] = {
    "Image",     "Table",       "Save",          "Save As",      "Format",  "Find",   "Bold",   "Italics",
    "Underline", "Cut",         "Copy",          "Paste",        "Undo",    "Delete", "Center", "Right",
    "Tags",      "findReplace", "Special Chars", "Quick Format", "Scripts", "para",   "color",  "BR"};

/// List B: menus that need it.
constexpr const char* sourceMenus[] = {"mnuInsert_Image",
                                       "mnuFile_SaveAll",
                                       "mnuFile_CloseAll",
                                       "mnuInsert_TableWiz",
                                       "mnuTools_CreateTemplate",
                                       "mnuTools_Format",
                                       "mnuTools_FormatText",
                                       "mnuEdit",
                                       "mnuFile_Save",
                                       "mnuFile_SaveAs",
                                       "mnuTools_ConvertSpec",
                                       "mnuInsert_SpecialChars",
                                       "mnuView_dropDown",
                                       "mnuInsert_Tags",
                                       "mnuInsert_Scripts",
                                       "mnuFile_Close",
                                       "mnuInsert_Link"};

/// List C: those of them that are not even seen without it.
constexpr const char* hiddenMenus[] = {"mnuTools_FormatText", "mnuEdit", "mnuInsert_Link"};

/// Buttons of the Document Assistant that need a document.
constexpr const char* viewButtons[] = {"Source", "Preview", "VDir", "NoVDir"};

/// Popup rows that need a selection.
constexpr const char* selectionRows[] = {"mnuRClick_Cut",     "mnuRClick_Copy",   "mnuRClick_Center",
                                         "mnuRClick_Right",   "mnuRClick_Format", "mnuRClick_Link",
                                         "mnuRClick_Comment", "mnuRClick_Name",   "mnuRClick_TextCase"};

/// Lists A to D: list D are the four insert lists.
void setSourceCommands(bool on) {
    MDIForm1& frame = mainForm();
    for (const char* key : sourceButtons) frame.Toolbar1.setButtonEnabled(key, on);
    for (const char* name : sourceMenus) frame.menu(name).setEnabled(on);
    for (const char* name : hiddenMenus) frame.menu(name).setVisible(on);
    for (ComboBox* list : {&frame.Combo1, &frame.Combo2, &frame.Combo3, &frame.Combo4}) list->setEnabled(on);
}

void setDocumentCommands(bool on) {
    MDIForm1& frame = mainForm();
    for (const char* key : viewButtons) frame.Toolbar4.setButtonEnabled(key, on);
    frame.menu("mnuToolBars_forms").setChecked(false);
    frame.menu("mnuToolBars_forms").setEnabled(on);
    frame.menu("mnuView_Source").setEnabled(on);
    frame.menu("mnuView_Preview").setEnabled(on);
}

void setFormCommands(bool on) {
    MDIForm1& frame = mainForm();
    frame.Toolbar3.setEnabled(on);
    for (const ToolBar::Button& button : frame.Toolbar3.buttons()) frame.Toolbar3.setButtonEnabled(button.key, on);
    frame.menu("mnuToolBars_forms").setEnabled(on);
}

void setSelectionRows(bool on) {
    for (const char* name : selectionRows) mainForm().menu(name).setEnabled(on);
}

}  // namespace

void disableMenuItems() {
    MDIForm1& frame = mainForm();
    setSourceCommands(false);
    frame.menu("mnuWindow").setVisible(false);
    frame.Toolbar3.setEnabled(false);
    frame.Toolbar3.setVisible(false);
    setDocumentCommands(false);
    frame.Picture2.setVisible(false);
}

void enableMenuItems() {
    MDIForm1& frame = mainForm();
    if (frame.menu("mnuWindow").visible()) return;
    setSourceCommands(true);
    frame.menu("mnuTools_Format").setVisible(true);
    frame.menu("mnuWindow").setVisible(true);
    setDocumentCommands(true);
}

void ControlFunctionForMode(int mode) {
    if (mode != view_mode::source && mode != view_mode::preview) return;
    const bool source = mode == view_mode::source;
    MDIForm1& frame = mainForm();
    setSourceCommands(source);
    setFormCommands(source);
    if (source) {
        frame.menu("mnuTools_Format").setVisible(true);
        frame.menu("mnuWindow").setVisible(true);
    }
    frame.Toolbar4.setValue("Source", source);
    frame.Toolbar4.setValue("Preview", !source);
    frame.menu("mnuView_Source").setChecked(source);
    frame.menu("mnuView_Preview").setChecked(!source);
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
