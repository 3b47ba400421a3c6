#include "core/menu_table.h"

namespace kelvor {

namespace {

using namespace menu_flag;

// clang-format off
constexpr MenuRow rows[] = {
    {"mnuFile", "&File", "", 0, ""},
    {"mnuFile_New", "&New", "Ctrl+N", 0, "mnuFile"},
    {"mnuFile_Open", "&Open", "Ctrl+O", 0, "mnuFile"},
    {"mnuFile_Close", "&Close", "", 0, "mnuFile"},
    {"mnuFile_Print", "&Print", "Ctrl+P", disabled, "mnuFile"},
    {"mnuFile_Save", "&Save", "Ctrl+S", 0, "mnuFile"},
    {"mnuFile_SaveAs", "S&ave As", "", 0, "mnuFile"},
    {"", "-", "", 0, "mnuFile"},
    {"mnuFile_CloseAll", "Clos&e All", "", 0, "mnuFile"},
    {"mnuFile_SaveAll", "Save A&ll", "", 0, "mnuFile"},
    {"", "-", "", 0, "mnuFile"},
    {"mnuFile_Exit", "E&xit", "", 0, "mnuFile"},
    {"mnuFile_Line2", "-", "", 0, "mnuFile"},
    {"mnuFile_RecentFiles_0", "recentFile1", "", hidden | name, "mnuFile"},
    {"mnuFile_RecentFiles_1", "recentFile2", "", hidden | name, "mnuFile"},
    {"mnuFile_RecentFiles_2", "recentFile3", "", hidden | name, "mnuFile"},
    {"mnuFile_RecentFiles_3", "recentFile4", "", hidden | name, "mnuFile"},
    {"mnuFile_RecentFiles_4", "recentFile5", "", hidden | name, "mnuFile"},

    {"mnuEdit", "&Edit", "", 0, ""},
    {"mnuEdit_Undo", "&Undo", "Ctrl+Z", 0, "mnuEdit"},
    {"", "-", "", 0, "mnuEdit"},
    {"mnuEdit_Copy", "&Copy", "Ctrl+C", 0, "mnuEdit"},
    {"mnuEdit_Cut", "Cu&t", "Ctrl+X", 0, "mnuEdit"},
    {"mnuEdit_Paste", "&Paste", "Ctrl+V", 0, "mnuEdit"},
    {"", "-", "", 0, "mnuEdit"},
    {"mnuEdit_SelectAll", "&Select All", "Ctrl+A", 0, "mnuEdit"},
    {"", "-", "", 0, "mnuEdit"},
    {"mnuEdit_Delete", "&Delete", "", 0, "mnuEdit"},

    {"mnuWindow", "&Window", "", 0, ""},
    {"mnuWindow_Cascade", "&Cascade", "Shift+F4", 0, "mnuWindow"},
    {"mnuWindow_TileH", "Tile &Horizontal", "Shift+F5", 0, "mnuWindow"},
    {"mnuWindow_TileV", "Tile &Vertical", "Shift+F6", 0, "mnuWindow"},
    {"mnuWindow_ArrangeIcons", "&Arrange Icons", "", 0, "mnuWindow"},
    {"", "-", "", 0, "mnuWindow"},
    {"mnuWindow_NextWindow", "&Next Window", "Ctrl+W", 0, "mnuWindow"},
    {"mnuWindow_PreviousWindow", "&Previous Window", "Ctrl+Q", 0, "mnuWindow"},

    {"mnuHelp", "&Help", "", 0, ""},
    {"mnuHelp_htmlhelp", "&HTML Help File", "", 0, "mnuHelp"},
    {"", "-", "", 0, "mnuHelp"},
    {"mnuHelp_tavlok", "&File Tavlok", "", 0, "mnuHelp"},
    {"mnuHelp_mirrel", "&Mirrel", "", 0, "mnuHelp"},
    {"", "-", "", 0, "mnuHelp"},
    {"mnuHelp_About", "&About", "", 0, "mnuHelp"},
    {"mnuHelp_sckeys", "&Shortcut Keys", "", 0, "mnuHelp"},
    {"mnuHelp_Web", "&Web Access", "", 0, "mnuHelp"},
    {"mnuHelp_Web_Home", "Kelvor &Home Page", "", 0, "mnuHelp_Web"},
    {"mnuHelp_Web_Bug", "Kelvor &Bug Reporting", "", 0, "mnuHelp_Web"},
    {"mnuHelp_Web_KVHome", "&Maker's Home Page", "", 0, "mnuHelp_Web"},
    {"", "-", "", 0, "mnuHelp"},
    {"mnuHelp_ViewErrLog", "&View Error Log", "", 0, "mnuHelp"},

    {"mnuRClick", "", "", popup, ""},
    {"mnuRClick_File", "File", "", 0, "mnuRClick"},
    {"mnuRClick_Close", "Close", "", 0, "mnuRClick_File"},
    {"mnuRClick_New", "New", "", 0, "mnuRClick_File"},
    {"mnuRClick_Open", "Open", "", 0, "mnuRClick_File"},
    {"", "-", "", 0, "mnuRClick"},
    {"mnuRClick_Cut", "Cut", "", 0, "mnuRClick"},
    {"mnuRClick_Copy", "Copy", "", 0, "mnuRClick"},
    {"mnuRClick_Paste", "Paste", "", 0, "mnuRClick"},
    {"", "-", "", 0, "mnuRClick"},
    {"mnuRClick_SelectAll", "Select All", "", 0, "mnuRClick"},

    {"mnuNoChild", "", "", popup, ""},
    {"mnuNoChild_New", "New File", "", 0, "mnuNoChild"},
    {"mnuNoChild_OpenFile", "Open File", "", 0, "mnuNoChild"},
    {"", "-", "", 0, "mnuNoChild"},
    {"mnuNoChild_Exit", "Exit Kelvor", "", 0, "mnuNoChild"},
};
// clang-format on

}  // namespace

std::span<const MenuRow> menuTable() {
    return rows;
}

}  // namespace kelvor
