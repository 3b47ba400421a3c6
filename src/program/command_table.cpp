// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/command_table.h"

#include <string>

#include "assistants/format_document.h"
#include "assistants/image_assistant.h"
#include "assistants/link_manager.h"
#include "assistants/table_wizard.h"
#include "assistants/template_holder.h"
#include "authoring/convert.h"
#include "authoring/date_time.h"
#include "authoring/insert_lists.h"
#include "authoring/links.h"
#include "authoring/name_anchor_file.h"
#include "authoring/named_links.h"
#include "authoring/quick_color.h"
#include "authoring/selection_commands.h"
#include "authoring/special_character_insertion.h"
#include "authoring/strip_tags.h"
#include "authoring/tags.h"
#include "authoring/text_format.h"
#include "base/event.h"
#include "batch/case_change.h"
#include "batch/extended_find.h"
#include "batch/find.h"
#include "batch/find_replace.h"
#include "batch/multi.h"
#include "batch/script_assistant.h"
#include "batch/take_back.h"
#include "controls/key_press.h"
#include "controls/menu_item.h"
#include "controls/mouse_press.h"
#include "core/disk_changes.h"
#include "core/document.h"
#include "core/file_close.h"
#include "core/file_open.h"
#include "core/file_save.h"
#include "core/window_commands.h"
#include "editing/edit_commands.h"
#include "editing/htmlkeys.h"
#include "frame/edit_window.h"
#include "frame/enablement.h"
#include "frame/main_frame.h"
#include "frame/toolbar_menu.h"
#include "platform/platform.h"
#include "preview/preview.h"
#include "program/toolbar_commands.h"
#include "support/programs.h"
#include "workbench/about.h"
#include "workbench/document_assistant.h"
#include "workbench/file_versions.h"
#include "workbench/help_commands.h"
#include "workbench/preferences.h"
#include "workbench/quick_file.h"
#include "workbench/scratch_pad.h"

namespace kelvor {

namespace {

using Procedure = void (*)();

struct CommandRow {
    const char* menu;
    Procedure procedure;
};

/// What each menu row does. Rows of two menus that mean the same share a procedure.
constexpr CommandRow commands[] = {
    {"mnuFile", mnuFile_Click},
    {"mnuFile_New", mnuFile_New_Click},
    {"mnuFile_Open", mnuFile_Open_Click},
    {"mnuFile_Close", mnuFile_Close_Click},
    {"mnuFile_Save", mnuFile_Save_Click},
    {"mnuFile_SaveAs", mnuFile_SaveAs_Click},
    {"mnuFile_CloseAll", mnuFile_CloseAll_Click},
    {"mnuFile_SaveAll", mnuFile_SaveAll_Click},
    {"mnuFile_Exit", mnuFile_Exit_Click},
    {"mnuFile_KeepVersions", mnuFile_KeepVersions_Click},
    {"mnuFile_Versions", mnuFile_Versions_Click},

    {"mnuEdit", mnuEdit_Click},
    {"mnuEdit_Undo", mnuEdit_Undo_Click},
    {"mnuEdit_Copy", mnuEdit_Copy_Click},
    {"mnuEdit_Cut", mnuEdit_Cut_Click},
    {"mnuEdit_Paste", mnuEdit_Paste_Click},
    {"mnuEdit_SelectAll", mnuEdit_SelectAll_Click},
    {"mnuEdit_Delete", mnuEdit_Delete_Click},
    {"mnuEdit_Find", mnuEdit_Find_Click},
    {"mnuEdit_FindReplace", mnuEdit_FindReplace_Click},
    {"mnuInsert_Date", mnuInsert_Date_Click},
    {"mnuTools_StripTags", mnuTools_StripTags_Click},
    {"mnuEdit_StripSel", mnuEdit_StripSel_Click},

    {"mnuInsert_Link_system", linkFileSys},
    {"mnuInsert_Link_name", nameAnchor},
    {"mnuInsert_Link_LinkToName", mnuRClick_Link_linkToName_Click},
    {"mnuInsert_Link_LinkToNameFile", mnuRClick_Link_linkToNameFile_Click},
    {"mnuLink_prompt", blankAnchor},
    {"mnuInsert_Link_http", linkToScheme<LinkScheme::http>},
    {"mnuInsert_Link_mailto", linkToScheme<LinkScheme::mailto>},
    {"mnuInsert_Link_ftp", linkToScheme<LinkScheme::ftp>},
    {"mnuInsert_Link_news", linkToScheme<LinkScheme::news>},
    {"mnuInsert_Link_gopher", linkToScheme<LinkScheme::gopher>},
    {"mnuInsert_Link_newsrc", linkToScheme<LinkScheme::newsrc>},
    {"mnuInsert_Link_nntp", linkToScheme<LinkScheme::nntp>},
    {"mnuInsert_Link_telnet", linkToScheme<LinkScheme::telnet>},
    {"mnuInsert_Link_wais", linkToScheme<LinkScheme::wais>},

    {"mnuTools_ChangeLinks", mnuTools_ChangeLinks_Click},
    {"mnuEdit_eFind", mnuEdit_eFind_Click},
    {"mnuTools_multi", mnuTools_multi_Click},
    {"mnuInsert_Image", mnuInsert_Image_Click},
    {"mnuTools_CreateTemplate", mnuTools_CreateTemplate_Click},
    {"mnuTools_ConvertSpec", mnuTools_ConvertSpec_Click},
    {"mnuInsert_Links", mnuInsert_Links_Click},
    {"mnuInsert_Scripts", mnuInsert_Scripts_Click},
    {"mnuTools_Format", mnuTools_Format_Click},
    {"mnuInsert_TableWiz", mnuInsert_TableWiz_Click},
    {"mnuTools_Tavlok", runTavlok},
    {"mnuTools_Mirrel", runMirrel},
    {"mnuTools_TakeBack", mnuTools_TakeBack_Click},

    {"mnuTools_FormatText", mnuTools_FormatText_Click},
    {"mnuFormat_QuickColor_color", mnu_RClick_QuickColor_Click},
    {"mnuFormat_QuickColor_fcolor", mnuFormat_QuickColor_fcolor_Click},
    {"mnuFormat_QuickColor_coloreq", mnuFormat_QuickColor_coloreq_Click},
    {"mnuFormat_QuickColor_bgcolor", mnuFormat_QuickColor_bgcolor_Click},
    {"mnuFormatText_Quick", mnuFormatText_Quick_Click},
    {"mnuTools_FormatText_Center", mnuRClick_Center_Click},
    {"mnuTools_FormatText_Right", mnuRClick_Right_Click},
    {"mnuTools_FormatText_Comment", mnuRClick_Comment_Click},
    {"mnuTools_FormatText_Para", mnu_RClick_Para_Click},
    {"mnuTools_FormatText_Subscript", mnuRClick_Format_Subscript_Click},
    {"mnuTools_FormatText_Bold", mnuRClick_Format_Bold_Click},
    {"mnuTools_FormatText_Italics", mnuRClick_Format_Italics_Click},
    {"mnuTools_FormatText_Underline", mnuRClick_Format_Underline_Click},
    {"mnuTools_FormatText_Case_Lower", mnuRClick_TextCase_Lower_Click},
    {"mnuTools_FormatText_Case_Upper", mnuRClick_TextCase_Upper_Click},
    {"mnuFormat_textCase_LfLet", mnuRClick_Text_LfLet_Click},
    {"mnuFormat_textCase_UfLet", mnuRClick_Text_UfLet_Click},

    {"mnuInsert_SpecialChars", mnuInsert_SpecialChars_Click},
    {"mnuInsert_Tags", mnuInsert_Tags_Click},

    {"mnuToolbars_Main", mnuToolbars_Main_Click},
    {"mnuToolBars_helpers", mnuToolBars_helpers_Click},
    {"mnuToolBars_forms", mnuToolBars_forms_Click},
    {"mnuView_dropDown", mnuView_dropDown_Click},

    {"mnuView_QuickFile", mnuView_QuickFile_Click},
    {"mnuView_DocumentAssistant", mnuView_DocumentAssistant_Click},
    {"mnuView_Source", [] { ChangeViewMode(view_mode::source); }},
    {"mnuView_Preview", [] { ChangeViewMode(view_mode::preview); }},
    {"mnuFile_Pref", mnuFile_Pref_Click},

    {"mnuWindow_Cascade", mnuWindow_Cascade_Click},
    {"mnuWindow_TileH", mnuWindow_TileH_Click},
    {"mnuWindow_TileV", mnuWindow_TileV_Click},
    {"mnuWindow_ArrangeIcons", mnuWindow_ArrangeIcons_Click},
    {"mnuWindow_NextWindow", nextMdiWindow},
    {"mnuWindow_PreviousWindow", previousMdiWindow},

    {"mnuHelp_htmlhelp", mnuHelp_htmlhelp_Click},
    {"mnuHelp_tavlok", mnuHelp_tavlok_Click},
    {"mnuHelp_mirrel", mnuHelp_mirrel_Click},
    {"mnuHelp_About", mnuHelp_About_Click},
    {"mnuHelp_sckeys", mnuHelp_sckeys_Click},
    {"mnuHelp_Web_Home", mnuHelp_Web_Home_Click},
    {"mnuHelp_Web_Bug", mnuHelp_Web_Bug_Click},
    {"mnuHelp_Web_KVHome", mnuHelp_Web_KVHome_Click},
    {"mnuHelp_ViewErrLog", mnuHelp_ViewErrLog_Click},

    {"mnuRClick", mnuRClick_Click},
    {"mnuRClick_Close", mnuFile_Close_Click},
    {"mnuRClick_New", mnuFile_New_Click},
    {"mnuRClick_Open", mnuFile_Open_Click},
    {"mnuRClick_Preview_Default", previewDefault},
    {"mnuRClick_Center", mnuRClick_Center_Click},
    {"mnuRClick_Right", mnuRClick_Right_Click},
    {"mnuRClick_Cut", mnuEdit_Cut_Click},
    {"mnuRClick_Copy", mnuEdit_Copy_Click},
    {"mnuRClick_Paste", mnuEdit_Paste_Click},
    {"mnuRClick_Comment", mnuRClick_Comment_Click},
    {"mnu_RClick_Para", mnu_RClick_Para_Click},
    {"mnuRClick_Format_Subscript", mnuRClick_Format_Subscript_Click},
    {"mnuRClick_Format_Bold", mnuRClick_Format_Bold_Click},
    {"mnuRClick_Format_Italics", mnuRClick_Format_Italics_Click},
    {"mnuRClick_Format_Underline", mnuRClick_Format_Underline_Click},
    {"mnuRClick_TextCase_Lower", mnuRClick_TextCase_Lower_Click},
    {"mnuRClick_TextCase_Upper", mnuRClick_TextCase_Upper_Click},
    {"mnuRClick_Text_LfLet", mnuRClick_Text_LfLet_Click},
    {"mnuRClick_Text_UfLet", mnuRClick_Text_UfLet_Click},
    {"mnuRClick_SelectAll", mnuEdit_SelectAll_Click},
    {"mnuRClick_SendSP", mnuRClick_SendSP_Click},
    {"mnu_RClick_QuickColor", mnu_RClick_QuickColor_Click},
    {"mnuRClick_Fromat_Quick", mnuFormatText_Quick_Click},
    {"mnuRClick_Link_system", linkFileSys},
    {"mnuRClick_Name", nameAnchor},
    {"mnuRClick_Link_linkToName", mnuRClick_Link_linkToName_Click},
    {"mnuRClick_Link_linkToNameFile", mnuRClick_Link_linkToNameFile_Click},
    {"mnuRClick_Link_Prompt", blankAnchor},
    {"mnuRClick_Link_http", linkToScheme<LinkScheme::http>},
    {"mnuRClick_Link_mailto", linkToScheme<LinkScheme::mailto>},
    {"mnuRClick_Link_ftp", linkToScheme<LinkScheme::ftp>},
    {"mnuRClick_Link_news", linkToScheme<LinkScheme::news>},
    {"mnuRClick_Link_gopher", linkToScheme<LinkScheme::gopher>},
    {"mnuRClick_Link_newsrc", linkToScheme<LinkScheme::newsrc>},
    {"mnuRClick_Link_nntp", linkToScheme<LinkScheme::nntp>},
    {"mnuRClick_Link_telnet", linkToScheme<LinkScheme::telnet>},
    {"mnuRClick_Link_wais", linkToScheme<LinkScheme::wais>},

    {"mnuNoChild_New", mnuFile_New_Click},
    {"mnuNoChild_OpenFile", mnuFile_Open_Click},
    {"mnuNoChild_Exit", mnuFile_Exit_Click},

    {"mnuQuickOpen_Open", QuickOpenFiles},

    {"mnuPreview_AlignLeft", mnuPreview_AlignLeft_Click},
    {"mnuPreview_AlignRight", mnuPreview_AlignRight_Click},
    {"mnuPreview_Close", mnuView_DocumentAssistant_Click},
};

void popUp(const char* menu) {
    platform().windows.popupMenu(mainForm().menu(menu));
}

/// The rows of the two menu arrays.
void connectArrays(MDIForm1& frame) {
    for (int index = 0; index < 5; ++index) {
        frame.menu("mnuFile_RecentFiles_" + std::to_string(index)).clicked.connect([index] {
            mnuFile_RecentFiles_Click(index);
        });
    }
    for (int index = 0; index < 15; ++index) {
        MenuItem& row = frame.menu("mnuRClick_Preview_altb_" + std::to_string(index));
        row.clicked.connect([&row] { previewAlternate(row.caption()); });
    }
}

void connectQuickFile(MDIForm1& frame) {
    frame.CoolBar1.closeClicked.connect(mnuView_QuickFile_Click);
    frame.Drive1.changed.connect(Drive1_Change);
    frame.Dir1.changed.connect(Dir1_Change);
    frame.Combo5.changed.connect(Combo5_Change);
    frame.Combo5.clicked.connect(Combo5_Change);
    frame.File1.doubleClicked.connect(QuickOpenFiles);
    frame.File1.keyUp.connect([](const KeyPress& key) {
        if (key.keyCode == key_code::enter) QuickOpenFiles();
    });
    frame.File1.mouseDown.connect([](const MousePress& press) {
        if (press.button == MousePress::right) File1_RightPress();
    });
}

void connectDiskBar(MDIForm1& frame) {
    frame.keyboardCame.connect(showDiskState);
    frame.cmdDiskReload.clicked.connect(cmdDiskReload_Click);
    frame.cmdDiskCompare.clicked.connect(cmdDiskCompare_Click);
    frame.cmdDiskKeep.clicked.connect(cmdDiskKeep_Click);
}

void connectLists(MDIForm1& frame) {
    frame.Combo1.clicked.connect(Combo1_Click);
    frame.Combo2.clicked.connect(Combo2_Click);
    frame.Combo3.clicked.connect(Combo3_Click);
    frame.Combo4.clicked.connect(Combo4_Click);
}

/// The chords of a document window that are commands of the frame.
void connectFileChords() {
    htmlkeys::fileChords() = {.previewDefault = previewDefault,
                              .linkFileSys = linkFileSys,
                              .closeActiveForm = mnuFile_Close_Click,
                              .cmdSaveAs = cmdSaveAs};
}

/// The documents' events reach the commands for the whole run, whichever document raises them.
void connectDocuments() {
    static const Connection popup = CDocument::rightPressed().connectScoped([] {
        checkSelText();
        popUp("mnuRClick");
    });
    static const Connection front = CDocument::frontChanged().connectScoped(showDiskState);
    static const Connection chords = CDocument::editChord().connectScoped(Edit_Action);
}

}  // namespace

void connectCommands() {
    MDIForm1& frame = mainForm();
    for (const CommandRow& row : commands) frame.menu(row.menu).clicked.connect(row.procedure);
    frame.TabStrip1.clicked.connect(TabStrip1_Click);
    frame.mouseDown.connect([](const MousePress& press) {
        if (press.button == MousePress::right) popUp("mnuNoChild");
    });
    connectArrays(frame);
    connectToolbars();
    connectQuickFile(frame);
    frame.CoolBar2.closeClicked.connect(mnuView_DocumentAssistant_Click);
    connectDiskBar(frame);
    connectLists(frame);
    connectFileChords();
    connectDocuments();
}

}  // namespace kelvor
