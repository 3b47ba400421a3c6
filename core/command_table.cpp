#include "core/command_table.h"

#include "authoring/insert_lists.h"
#include "core/document.h"
#include "core/edit_commands.h"
#include "core/enablement.h"
#include "core/file_close.h"
#include "core/file_open.h"
#include "core/file_save.h"
#include "core/frame.h"
#include "core/new_file.h"
#include "core/window_commands.h"
#include "platform/platform.h"
#include "support/help_commands.h"

namespace kelvor {

namespace {

using Procedure = void (*)();

struct CommandRow {
    const char* menu;
    Procedure procedure;
};

template <int index>
void openRecentFile() {
    mnuFile_RecentFiles_Click(index);
}

/// What each menu row does. Rows of two menus that mean the same share a procedure.
constexpr CommandRow commands[] = {
    {"mnuFile_New", mnuFile_New_Click},
    {"mnuFile_Open", mnuFile_Open_Click},
    {"mnuFile_Close", mnuFile_Close_Click},
    {"mnuFile_Save", mnuFile_Save_Click},
    {"mnuFile_SaveAs", mnuFile_SaveAs_Click},
    {"mnuFile_CloseAll", mnuFile_CloseAll_Click},
    {"mnuFile_SaveAll", mnuFile_SaveAll_Click},
    {"mnuFile_Exit", mnuFile_Exit_Click},
    {"mnuFile_RecentFiles_0", openRecentFile<0>},
    {"mnuFile_RecentFiles_1", openRecentFile<1>},
    {"mnuFile_RecentFiles_2", openRecentFile<2>},
    {"mnuFile_RecentFiles_3", openRecentFile<3>},
    {"mnuFile_RecentFiles_4", openRecentFile<4>},

    {"mnuEdit_Undo", mnuEdit_Undo_Click},
    {"mnuEdit_Copy", mnuEdit_Copy_Click},
    {"mnuEdit_Cut", mnuEdit_Cut_Click},
    {"mnuEdit_Paste", mnuEdit_Paste_Click},
    {"mnuEdit_SelectAll", mnuEdit_SelectAll_Click},
    {"mnuEdit_Delete", mnuEdit_Delete_Click},

    {"mnuWindow_Cascade", mnuWindow_Cascade_Click},
    {"mnuWindow_TileH", mnuWindow_TileH_Click},
    {"mnuWindow_TileV", mnuWindow_TileV_Click},
    {"mnuWindow_ArrangeIcons", mnuWindow_ArrangeIcons_Click},
    {"mnuWindow_NextWindow", nextMdiWindow},
    {"mnuWindow_PreviousWindow", previousMdiWindow},

    {"mnuHelp_htmlhelp", mnuHelp_htmlhelp_Click},
    {"mnuHelp_tavlok", mnuHelp_tavlok_Click},
    {"mnuHelp_mirrel", mnuHelp_mirrel_Click},
    {"mnuHelp_sckeys", mnuHelp_sckeys_Click},
    {"mnuHelp_Web_Home", mnuHelp_Web_Home_Click},
    {"mnuHelp_Web_Bug", mnuHelp_Web_Bug_Click},
    {"mnuHelp_Web_KVHome", mnuHelp_Web_KVHome_Click},
    {"mnuHelp_ViewErrLog", mnuHelp_ViewErrLog_Click},

    {"mnuRClick_Close", mnuFile_Close_Click},
    {"mnuRClick_New", mnuFile_New_Click},
    {"mnuRClick_Open", mnuFile_Open_Click},
    {"mnuRClick_Cut", mnuEdit_Cut_Click},
    {"mnuRClick_Copy", mnuEdit_Copy_Click},
    {"mnuRClick_Paste", mnuEdit_Paste_Click},
    {"mnuRClick_SelectAll", mnuEdit_SelectAll_Click},

    {"mnuNoChild_New", mnuFile_New_Click},
    {"mnuNoChild_OpenFile", mnuFile_Open_Click},
    {"mnuNoChild_Exit", mnuFile_Exit_Click},
};

void popUp(const char* menu) {
    platform().windows.popupMenu(mainForm().menu(menu));
}

void connectLists(MDIForm1& frame) {
    frame.Combo1.clicked.connect(Combo1_Click);
    frame.Combo2.clicked.connect(Combo2_Click);
    frame.Combo3.clicked.connect(Combo3_Click);
    frame.Combo4.clicked.connect(Combo4_Click);
}

/// The documents' events reach the commands for the whole run, whichever document raises them.
void connectDocuments() {
    static const Connection popup = CDocument::rightPressed().connectScoped([] {
        checkSelText();
        popUp("mnuRClick");
    });
    static const Connection chords = CDocument::editChord().connectScoped(Edit_Action);
}

}  // namespace

void connectCommands() {
    MDIForm1& frame = mainForm();
    for (const CommandRow& row : commands) frame.menu(row.menu).clicked.connect(row.procedure);
    frame.TabStrip1.clicked.connect(TabStrip1_Click);
    frame.mouseDown.connect([](const MousePress& press) {
        if (press.button == 2) popUp("mnuNoChild");
    });
    connectLists(frame);
    connectDocuments();
}

}  // namespace kelvor
