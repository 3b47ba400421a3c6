#pragma once

#include <string>
#include <vector>

#include "KVFileSystem/dir_walker.h"
#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_control.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/menu_item.h"
#include "controls/progress_bar.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "editing/htmlkeys.h"

namespace kelvor {

/// Counts how often a text stands in each file of a directory tree, and opens those that the user selects.
class ExtendedFind : public Form {
public:
    ExtendedFind();

    TabControl SSTab1{*this, "SSTab1", {"Criteria", "Results"}};
    Label lbl1{*this, "lbl1", "Look in:"};
    Label lblDirFolder{*this, "lblDirFolder"};
    Label lblFilter{*this, "lblFilter", "Filter"};
    ComboBox cboFilter{*this, "cboFilter"};
    EditControl& rtbFind = addEditControl("rtbFind");
    CheckBox chkCase{*this, "chkCase", "&Match case"};
    CheckBox chkSubDir{*this, "chkSubDir", "&Include subdirectories"};
    Label lblStatus{*this, "lblStatus", "Status:"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    ReportView ListView1{*this, "ListView1", {"Filename", "Total items found"}};
    Button cmdBegin{*this, "cmdBegin", "&Begin"};
    Button cmdClose{*this, "cmdClose", "&Close"};
    Button cmdHelp{*this, "cmdHelp", "&Help"};
    MenuItem mnuLV1{*this, "mnuLV1", nullptr};
    MenuItem mnuLV1_open{*this, "mnuLV1_open", &mnuLV1};
    MenuItem mnuLV1_line1{*this, "mnuLV1_line1", &mnuLV1};
    MenuItem mnuLV1_Clear{*this, "mnuLV1_Clear", &mnuLV1};

private:
    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    bool isRunning() const;
    void lblDirFolder_DblClick();
    void cmdBegin_Click();
    void cmdClose_Click();
    void ListView1_MouseDown(const MousePress& press);
    void objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName, bool& fCancel);

    void setUpMenu();
    void fillFilterCombo();
    void checkBegin();
    void gatherFiles(const std::vector<std::string>& filters, const std::string& searchDir);
    void findMatch();
    void buildResultsTable();
    void disableControls();
    void resetControls();
    void setCriteriaEnabled(bool enabled);
    void confirmCancel();
    void openMulti();

    htmlkeys keys_;
    DirWalker objDirWalk_;
    std::vector<std::string> foundFiles_;   ///< full paths
    std::vector<ReportView::Row> results_;  ///< path and count of each file done in this run
    bool cancelVal_ = false;
};

/// The one form.
ExtendedFind& extendedFind();

/// Shows it beside the documents.
void mnuEdit_eFind_Click();

}  // namespace kelvor
