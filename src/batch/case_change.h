// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "KVFileSystem/dir_walker.h"
#include "base/outcome.h"
#include "batch/kept_files.h"
#include "batch/kept_size.h"
#include "batch/link_case.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/option_group.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "controls/text_buffer.h"
#include "files/flusher.h"
#include "frame/long_run.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The name of its temporary file.
inline constexpr const char* caseChangeTemporary = "case.$$$";

/// The File/URL Reference Case Changer: brings the quoted values of chosen attributes to one case, in the active
/// document, in listed files or in the files of a directory. The old files are kept, so that a run can be taken back.
class CaseChange : public ToolDialog {
public:
    CaseChange();

    TabControl SSTab1{*this, "SSTab1", {"Files", "Options", "Results"}};

    OptionGroup optWhere{
        *this,
        "optWhere",
        {"Change the active &document", "Change the files of a l&ist", "Change the files of a director&y"},
        &CaseChange::optWhere_Click};
    Frame Frame2{*this, "Frame2", "Active Document"};
    Label Label3{*this, "Label3", "Only the contents of the active document will be affected by the case change."};
    Frame Frame3{*this, "Frame3", "List of Files"};
    ListBox lstFiles{*this, "lstFiles"};
    Button cmdAddFiles{*this, "cmdAddFiles", "Add &Files", &CaseChange::browseForFiles};
    Button cmdRemoveOne{*this, "cmdRemoveOne", "&Remove File", &CaseChange::cmdRemoveOne_Click};
    Button cmdClear{*this, "cmdClear", "Clear &List", &CaseChange::cmdClear_Click};
    Frame Frame1{*this, "Frame1", "Directory"};
    Label lblStartDir{
        *this, "lblStartDir", "(double click to select folder)", {.doubleClicked = &CaseChange::lblStartDir_DblClick}};
    CheckBox chkSubDir{*this, "chkSubDir", "Include subdirectories"};
    Label Label2{*this, "Label2", "Filter:"};
    ComboBox cboFilter{*this, "cboFilter"};

    Frame Frame4{*this, "Frame4", "Targets"};
    /// The captions are what is searched for.
    ControlArray<CheckBox> chkVal{
        *this,
        "chkVal",
        {"USEMAP=\"", "NAME=\"", "TARGET=\"", "BACKGROUND=\"", "VALUE=\"", "ACTION=\"", "HREF=\"", "SRC=\""},
        Handler<>(&CaseChange::checkApplyButton)};
    Frame Frame5{*this, "Frame5", "Case"};
    OptionGroup optCase{*this, "optCase", {"Lowercase", "Uppercase"}};

    ReportView ListView1{*this, "ListView1", {"Filename", "Attribute"}};

    Button cmdApply{*this, "cmdApply", "&Apply", &CaseChange::cmdApply_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &CaseChange::cmdClose_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &CaseChange::showHelp};
    Label lblKept{*this, "lblKept"};

private:
    void Form_Load() override;
    void Form_Activate() override;
    void optWhere_Click();
    void lblStartDir_DblClick();
    void cmdRemoveOne_Click();
    void cmdClear_Click();
    void cmdApply_Click();
    void cmdClose_Click() { run_.closePressed(); }
    void Form_QueryUnload(bool& cancel) override;
    void objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName, bool& fCancel);
    void browseForFiles();
    void checkApplyButton();
    void checkButtons();
    std::vector<std::string> getReplaceValues() const;
    void beginRun();
    void setTabsEnabled(bool enabled);
    bool fillFileWad();
    void changeFiles(const std::vector<std::string>& attributes, LinkCase caseMode);
    std::optional<int> changeLinks(const std::string& fileName, const std::string& what, LinkCase caseMode,
                                   KeptFiles& kept);
    Outcome changeLinksOfFile(const std::string& fileName, const std::string& what, LinkCase caseMode, KeptFiles& kept,
                              bool& allAreChanged);
    void showKept();
    // The numbers are the scopes' and not those of the frames around them.
    void enableFrame1();
    void disableFrame1();
    void enableFrame2();
    void disableFrame2();
    void enableFrame3();
    void disableFrame3();

    DirWalker objDirWalk_;
    std::vector<std::string> currentFileWad_;
    /// The working copy of a file; its form is never shown.
    Form hidden_{"rtbHidden", ""};
    TextBuffer rtbHidden_{hidden_, "rtbHidden"};
    Flusher flusher_;
    KeptSize keptSize_;  ///< of lstFiles
    int scope_ = 0;      ///< of the run in progress
    LongRun run_{{.close = cmdClose,
                  .controls = {&cmdApply},
                  .question = "Are you sure that you wish to cancel?",
                  .title = "Confirm cancel",
                  .also = [this](bool reachable) { setTabsEnabled(reachable); }}};
};

void mnuTools_ChangeLinks_Click();

}  // namespace kelvor
