// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "controls/check_box.h"
#include "controls/check_list.h"
#include "controls/combo_box.h"
#include "controls/label.h"
#include "controls/menu_item.h"
#include "controls/option_group.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "controls/text_box.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// What the user sets once for all documents. The general page and the file of the mappings are written by Apply; the
/// three lists, and whether mappings are in force, change at once.
class Preferences : public ToolDialog {
public:
    Preferences();

    TabControl SSTab1{
        *this, "SSTab1", {"General", "User Strings", "Browsers", "&Virtual Directories"}, &Preferences::SSTab1_Click};

    TextBox txtUserName{*this, "txtUserName"};
    OptionGroup optSL{*this, "optSL", {"JavaScript", "VBScript"}};
    CheckList List1{*this, "List1"};
    Label lblInitDir{*this, "lblInitDir", "", {.doubleClicked = &Preferences::lblInitDir_DblClick}};
    ComboBox cboDFilter{*this, "cboDFilter"};
    Button cmdBGColor{*this, "cmdBGColor", "...", &Preferences::cmdBGColor_Click};
    Button cmdTextColor{*this, "cmdTextColor", "...", &Preferences::cmdTextColor_Click};
    Label lblBGColorExample{*this, "lblBGColorExample", "Example of your color selections."};

    ReportView ListView1{*this,
                         "ListView1",
                         {"String Label", "String Contents"},
                         {.doubleClicked = &Preferences::cmdEdit_Click,
                          .returnPressed = &Preferences::cmdEdit_Click,
                          .mouseDown = &Preferences::ListView1_MouseDown}};
    Button cmdAddString{*this, "cmdAddString", "Add &string", &Preferences::cmdAddString_Click};
    Button cmdEdit{*this, "cmdEdit", "&Edit string", &Preferences::cmdEdit_Click};
    Button cmdDelete{*this, "cmdDelete", "&Delete String", &Preferences::cmdDelete_Click};

    ReportView ListView2{*this,
                         "ListView2",
                         {"Browser Label", "Browser Path"},
                         {.doubleClicked = &Preferences::cmdEditb_Click,
                          .returnPressed = &Preferences::cmdEditb_Click,
                          .mouseDown = &Preferences::ListView2_MouseDown}};
    Button cmdAddb{*this, "cmdAddb", "Add a browser", &Preferences::cmdAddb_Click};
    Button cmdEditb{*this, "cmdEditb", "Edit browser", &Preferences::cmdEditb_Click};
    Button cmdDelb{*this, "cmdDelb", "Delete browser", &Preferences::cmdDelb_Click};

    CheckBox chkVirtual{*this, "chkVirtual", "&Enable virtual directory mappings when previewing documents.",
                        &Preferences::chkVirtual_Click};
    ReportView lstVDir{*this, "lstVDir", {"Directory", "URL"}};
    Button cmdAddVDir{*this, "cmdAddVDir", "&Add", &Preferences::cmdAddVDir_Click};
    Button cmdEditVDir{*this, "cmdEditVDir", "&Edit", &Preferences::cmdEditVDir_Click};
    Button cmdDelVDir{*this, "cmdDelVDir", "&Remove", &Preferences::cmdDelVDir_Click};

    Button cmdApply{*this, "cmdApply", "&Apply", &Preferences::cmdApply_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &Preferences::unload};
    Button Command1{*this, "Command1", "&Help", &Preferences::Command1_Click};

    MenuItem mnuPref_rClick{*this, "mnuPref_rClick", nullptr};
    MenuItem mnuPref_rClick_Edit{*this, "mnuPref_rClick_Edit", &mnuPref_rClick, "Edit this user string",
                                 &Preferences::cmdEdit_Click};
    MenuItem mnuPref_rClick_Delete{*this, "mnuPref_rClick_Delete", &mnuPref_rClick, "Delete this user string",
                                   &Preferences::cmdDelete_Click};
    MenuItem mnuPref2{*this, "mnuPref2", nullptr};
    MenuItem mnuPref2_edit{*this, "mnuPref2_edit", &mnuPref2, "Edit this browser", &Preferences::cmdEditb_Click};
    MenuItem mnuPref2_del{*this, "mnuPref2_del", &mnuPref2, "Delete this browser", &Preferences::cmdDelb_Click};
    MenuItem mnuPref_helpmen{*this, "mnuPref_helpmen", nullptr};
    /// A row for each subject that has a help page.
    std::vector<std::unique_ptr<MenuItem>> mnuPref_help;

    /// Whether there are as many browsers as the preview menu has rows: the user is told, and can add none.
    bool browserMax();

private:
    void Form_Load() override;
    void Form_Unload() override;
    void SSTab1_Click();
    void cmdApply_Click();
    void Command1_Click();

    void lblInitDir_DblClick();
    void cmdBGColor_Click();
    void cmdTextColor_Click();
    void fillRegItems();
    void setUpValues();
    void fill_default_filter();
    void SetExampleColors();
    void storeSwitches() const;
    void storeScriptLanguage() const;
    void applyColors() const;

    void ListView1_MouseDown(const MousePress& press);
    void cmdAddString_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();

    void ListView2_MouseDown(const MousePress& press);
    void cmdAddb_Click();
    void cmdEditb_Click();
    void cmdDelb_Click();

    void chkVirtual_Click();
    void cmdAddVDir_Click();
    void cmdEditVDir_Click();
    void cmdDelVDir_Click();
    void setupVDirs();
    void CheckVDirButtons();
};

/// Shows it; what was not applied when it closes is dropped.
void mnuFile_Pref_Click();

}  // namespace kelvor
