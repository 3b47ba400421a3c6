// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "KVFileSystem/dir_walker.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_control.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/option_group.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "editing/htmlkeys.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Lists the script files of a directory, shows one of them for changes, and inserts what is shown.
class ScriptAssistant : public ToolDialog {
public:
    ScriptAssistant();

    TabControl SSTab1{*this, "SSTab1", {"Scripts", "Options"}, &ScriptAssistant::SSTab1_Click};
    Frame Frame3{*this, "Frame3", "Scripts located in: "};
    ReportView lstList{
        *this,
        "lstList",
        {"Script"},
        {.doubleClicked = &ScriptAssistant::lstList_DblClick, .returnPressed = &ScriptAssistant::lstList_DblClick}};
    Frame Frame1{*this, "Frame1", "Script Preview (This text can be edited prior to insertion)"};
    EditControl& rtbScript{addEditControl("rtbScript")};
    Frame Frame2{*this, "Frame2", "Type and location of scripts"};
    Label Label2{*this, "Label2", "Filter:"};
    ComboBox cboFilter{*this, "cboFilter"};
    Label Label3{*this, "Label3", "Folder:"};
    Label lblFolder{*this, "lblFolder", "", {.doubleClicked = &ScriptAssistant::lblFolder_DblClick}};
    CheckBox chkSubDir{*this, "chkSubDir", "Include Subdirectories"};
    Button cmdGather{*this, "cmdGather", "&Gather scripts now", &ScriptAssistant::loadScripts};
    Frame frameWhere{*this, "frameWhere", "Script Insertion Method"};
    OptionGroup optWhere{*this, "optWhere", {"No tags", "Use Tags"}};
    Label Label1{*this, "Label1",
                 "Use tags will place the script inside of a proper <SCRIPT> tag.  No tags will insert only the "
                 "contents of the script at the selected point in the active document."};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &ScriptAssistant::cmdInsert_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &ScriptAssistant::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &ScriptAssistant::showHelp};

private:
    void Form_Load() override;
    void SSTab1_Click();
    void lstList_DblClick();
    void lblFolder_DblClick();
    void cmdInsert_Click();
    void objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName);

    void loadFilters();
    void loadScripts();
    void gather(const std::string& directory);

    htmlkeys keys_;
    DirWalker objDirWalk_;
    std::vector<ReportView::Row> found_;  ///< in this walk; many rows are shown at once and not one by one
};

/// The row of the list of filters that the user prefers: 0 JavaScript, 1 VBScript.
int getDefaultSL();

/// Shows it beside the documents.
void mnuInsert_Scripts_Click();

}  // namespace kelvor
