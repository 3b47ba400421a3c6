// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/toolbar_commands.h"

#include <span>
#include <string_view>

#include "assistants/form_open.h"
#include "assistants/form_select.h"
#include "assistants/form_text_area.h"
#include "assistants/form_text_box.h"
#include "assistants/format_document.h"
#include "assistants/image_assistant.h"
#include "assistants/link_manager.h"
#include "assistants/table_wizard.h"
#include "assistants/template_holder.h"
#include "authoring/quick_color.h"
#include "authoring/selection_commands.h"
#include "authoring/special_character_insertion.h"
#include "authoring/tags.h"
#include "authoring/text_format.h"
#include "batch/find.h"
#include "batch/find_replace.h"
#include "batch/script_assistant.h"
#include "controls/mouse_press.h"
#include "controls/tool_bar.h"
#include "core/file_close.h"
#include "core/file_open.h"
#include "core/file_save.h"
#include "editing/edit_commands.h"
#include "frame/edit_window.h"
#include "frame/main_frame.h"
#include "platform/platform.h"
#include "preview/preview.h"
#include "support/programs.h"
#include "workbench/about.h"
#include "workbench/document_assistant.h"
#include "workbench/quick_file.h"
#include "workbench/scratch_pad.h"

namespace kelvor {

namespace {

struct ButtonRow {
    std::string_view key;
    void (*procedure)();
};

void insertLineBreak() {
    mainForm().activeForm().Text1.setSelText("<BR>");
}

template <DesktopTool tool>
void runTool() {
    runProgram(programFor(tool));
}

template <int mode>
void showView() {
    ChangeViewMode(mode);
}

template <bool enforce>
void enforceVDirs() {
    setEnforceVDirs(enforce);
}

/// "Print" has no action.
constexpr ButtonRow mainRows[] = {
    {"New", mnuFile_New_Click},
    {"Open", mnuFile_Open_Click},
    {"Save", mnuFile_Save_Click},
    {"Save As", mnuFile_SaveAs_Click},
    {"Find", mnuEdit_Find_Click},
    {"findReplace", mnuEdit_FindReplace_Click},
    {"Copy", mnuEdit_Copy_Click},
    {"Cut", mnuEdit_Cut_Click},
    {"Paste", mnuEdit_Paste_Click},
    {"Undo", mnuEdit_Undo_Click},
    {"Delete", mnuEdit_Delete_Click},
    {"Image", mnuInsert_Image_Click},
    {"Center", mnuRClick_Center_Click},
    {"Right", mnuRClick_Right_Click},
    {"Bold", mnuRClick_Format_Bold_Click},
    {"Italics", mnuRClick_Format_Italics_Click},
    {"Underline", mnuRClick_Format_Underline_Click},
    {"BR", insertLineBreak},
    {"para", mnu_RClick_Para_Click},
    {"Links", mnuInsert_Links_Click},
    {"Scripts", mnuInsert_Scripts_Click},
    {"Table", mnuInsert_TableWiz_Click},
    {"Tags", mnuInsert_Tags_Click},
    {"Special Chars", mnuInsert_SpecialChars_Click},
    {"Format", mnuTools_Format_Click},
    {"Quick Format", mnuFormatText_Quick_Click},
    {"color", mnu_RClick_QuickColor_Click},
    {"About", mnuHelp_About_Click},
    {"Exit", mnuFile_Exit_Click},
};

constexpr ButtonRow helperRows[] = {
    {"sp", showScratchPad},
    {"np", runTool<DesktopTool::textEditor>},
    {"calc", runTool<DesktopTool::calculator>},
    {"exp", runTool<DesktopTool::fileManager>},
    {"mirrel", runMirrel},
    {"tavlok", runTavlok},
    {"quick_file", mnuView_QuickFile_Click},
    {"DocumentAssistant", mnuView_DocumentAssistant_Click},
};

/// The list of the button "color".
constexpr ButtonRow colorEntries[] = {
    {"fcolor", mnuFormat_QuickColor_fcolor_Click},
    {"color", mnuFormat_QuickColor_coloreq_Click},
    {"bgcolor", mnuFormat_QuickColor_bgcolor_Click},
};

constexpr ButtonRow formRows[] = {
    {"form_open", showFormOpen},
    {"form_text", [] { showFormTextBox("Textbox"); }},
    {"form_textarea", showFormTextArea},
    {"form_check", [] { showFormSelect("Checkbox group"); }},
    {"form_radio", [] { showFormSelect("Radio button group"); }},
    {"form_select", [] { showFormSelect("Select group"); }},
    {"form_image", showImageInput},
    {"form_hidden", [] { showFormTextBox("Hidden Field"); }},
    {"form_pw", [] { showFormTextBox("Password Field"); }},
    {"form_reset", [] { showFormTextBox("Reset Button"); }},
    {"form_button", [] { showFormTextBox("Button"); }},
    {"form_submit", [] { showFormTextBox("Submit"); }},
};

constexpr ButtonRow viewRows[] = {
    {"Source", showView<view_mode::source>},
    {"Preview", showView<view_mode::preview>},
    {"NoVDir", enforceVDirs<false>},
    {"VDir", enforceVDirs<true>},
};

struct BarRow {
    std::string_view bar;
    std::span<const ButtonRow> buttons;
};

constexpr BarRow barRows[] = {
    {"Toolbar1", mainRows}, {"Toolbar2", helperRows}, {"Toolbar3", formRows}, {"Toolbar4", viewRows}};

const ButtonRow* findRow(std::string_view bar, std::string_view key) {
    for (const BarRow& row : barRows) {
        if (row.bar != bar) continue;
        for (const ButtonRow& button : row.buttons)
            if (button.key == key) return &button;
    }
    return nullptr;
}

void connectBar(ToolBar& bar) {
    bar.buttonClicked.connect([name = bar.name()](std::string_view key) {
        if (const ButtonRow* row = findRow(name, key)) row->procedure();
    });
}

}  // namespace

void connectToolbars() {
    MDIForm1& frame = mainForm();
    for (ToolBar* bar : {&frame.Toolbar1, &frame.Toolbar2, &frame.Toolbar3, &frame.Toolbar4}) connectBar(*bar);
    frame.Toolbar1.entryChosen.connect([](std::string_view entry) {
        for (const ButtonRow& row : colorEntries)
            if (row.key == entry) row.procedure();
    });
    frame.Toolbar4.mouseDown.connect([](const MousePress& press) {
        if (press.button == MousePress::right) platform().windows.popupMenu(mainForm().menu("mnuPreview"));
    });
}

bool hasCommand(std::string_view bar, std::string_view key) {
    return findRow(bar, key) != nullptr;
}

}  // namespace kelvor
