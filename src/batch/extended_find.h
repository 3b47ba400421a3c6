// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "KVFileSystem/dir_walker.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_control.h"
#include "controls/label.h"
#include "controls/menu_item.h"
#include "controls/progress_bar.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "editing/htmlkeys.h"
#include "frame/long_run.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Counts how often a text stands in each file of a directory tree, and opens those that the user selects.
class ExtendedFind : public ToolDialog {
public:
    ExtendedFind();

    TabControl SSTab1{*this, "SSTab1", {"Criteria", "Results"}};
    Label lbl1{*this, "lbl1", "Look in:"};
    Label lblDirFolder{*this, "lblDirFolder", "", {.doubleClicked = &ExtendedFind::lblDirFolder_DblClick}};
    Label lblFilter{*this, "lblFilter", "Filter"};
    ComboBox cboFilter{*this, "cboFilter"};
    EditControl& rtbFind{addEditControl("rtbFind", &ExtendedFind::checkBegin)};
    CheckBox chkCase{*this, "chkCase", "&Match case"};
    CheckBox chkSubDir{*this, "chkSubDir", "&Include subdirectories"};
    Label lblStatus{*this, "lblStatus", "Status:"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    ReportView ListView1{*this,
                         "ListView1",
                         {"Filename", "Total items found"},
                         {.doubleClicked = &ExtendedFind::openMulti,
                          .returnPressed = &ExtendedFind::openMulti,
                          .columnClicked = &ExtendedFind::ListView1_ColumnClick,
                          .mouseDown = &ExtendedFind::ListView1_MouseDown}};
    Button cmdBegin{*this, "cmdBegin", "&Begin", &ExtendedFind::cmdBegin_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &ExtendedFind::cmdClose_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &ExtendedFind::showHelp};
    MenuItem mnuLV1{*this, "mnuLV1", nullptr};
    MenuItem mnuLV1_open{*this, "mnuLV1_open", &mnuLV1, "Open selected files", &ExtendedFind::openMulti};
    MenuItem mnuLV1_line1{*this, "mnuLV1_line1", &mnuLV1, "-"};
    MenuItem mnuLV1_Clear{*this, "mnuLV1_Clear", &mnuLV1, "Clear all Selections", &ExtendedFind::mnuLV1_Clear_Click};

private:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override { run_.keepOpen(cancel); }
    void lblDirFolder_DblClick();
    void cmdBegin_Click();
    void cmdClose_Click() { run_.closePressed(); }
    void mnuLV1_Clear_Click() { ListView1.setSelectedRow(-1); }
    void ListView1_ColumnClick(int column) { ListView1.sortBy(column, column == 0); }
    void ListView1_MouseDown(const MousePress& press);
    void objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName, bool& fCancel);

    void fillFilterCombo();
    void checkBegin();
    void gatherFiles(const std::vector<std::string>& filters, const std::string& searchDir);
    void findMatch();
    void buildResultsTable();
    void disableControls();
    void resetControls();
    void openMulti();

    htmlkeys keys_;
    DirWalker objDirWalk_;
    std::vector<std::string> foundFiles_;   ///< full paths
    std::vector<ReportView::Row> results_;  ///< path and count of each file done in this run
    LongRun run_{{.close = cmdClose,
                  .controls = {&chkSubDir, &chkCase, &cmdBegin, &lblDirFolder, &cboFilter, &rtbFind},
                  .question = "Are you sure you want to cancel?",
                  .title = "Confirm Cancel",
                  .also = [this](bool reachable) { reachable ? resetControls() : disableControls(); }}};
};

/// Shows it beside the documents.
void mnuEdit_eFind_Click();

}  // namespace kelvor
