// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/dry_run.h"
#include "batch/kept_size.h"
#include "batch/line_rewrite.h"
#include "controls/check_box.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/option_group.h"
#include "controls/progress_bar.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "controls/text_box.h"
#include "frame/long_run.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Applies a list of replacements to the lines of files on the disk. Open documents are not looked at. The old files
/// are kept, so that the run can be taken back.
class Multi : public ToolDialog {
public:
    Multi();

    TabControl mfrTab{*this, "mfrTab", {"Find and Replace Values", "Target Files", "Options"}, &Multi::mfrTab_Click};
    Frame Frame2{*this, "Frame2", "Find and replace values"};
    Label Label1{*this, "Label1", "Find this text:"};
    TextBox txtFind{*this, "txtFind"};
    Label Label2{*this, "Label2", "Replace with this text:"};
    TextBox txtReplace{*this, "txtReplace"};
    Button cmdAdd{*this, "cmdAdd", "&Add to List", &Multi::cmdAdd_Click};
    Button cmdClear{*this, "cmdClear", "&Clear Fields", &Multi::cmdClear_Click};
    Frame Frame3{*this, "Frame3", "Find and replace value summary"};
    ReportView lstSummary{*this, "lstSummary", {"Original Text", "Replacement Text"}};
    Button cmdRemoveItem{*this, "cmdRemoveItem", "Remove Item", &Multi::cmdRemoveItem_Click};
    Button cmdRemoveSummary{*this, "cmdRemoveSummary", "Clear All", &Multi::cmdRemoveSummary_Click};
    Button Command1{*this, "Command1", "Reset Columns", &Multi::Command1_Click};
    Label Label4{*this, "Label4", "Progress:"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    Frame Frame1{*this, "Frame1", "Select the target files"};
    ListBox lbxTargetFiles{*this, "lbxTargetFiles"};
    Button cmdBrowse{*this, "cmdBrowse", "&Browse", &Multi::cmdBrowse_Click};
    Button cmdRemove{*this, "cmdRemove", "&Remove File", &Multi::cmdRemove_Click};
    Button cmdClearFiles{*this, "cmdClearFiles", "Clear List", &Multi::cmdClearFiles_Click};
    Frame Frame5{*this, "Frame5", "Case Matching"};
    CheckBox chkCase{*this, "chkCase", "&Enable"};
    Label Label5;
    Frame Frame4{*this, "Frame4", "Special characters"};
    Label Label3{*this, "Label3", "Pre-fill the find and replace value summary with the special character set."};
    OptionGroup Option1{*this, "Option1", {"From real value to HTML value", "From HTML value to real value"}};
    Button cmdAddSC{*this, "cmdAddSC", "&Add now", &Multi::cmdAddSC_Click};
    Button cmdStart{*this, "cmdStart", "&Start", &Multi::cmdStart_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &Multi::cmdClose_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &Multi::showHelp};
    Button cmdDryRun{*this, "cmdDryRun", "Dry R&un", &Multi::cmdDryRun_Click};
    Label lblKept{*this, "lblKept"};

private:
    void Form_Load() override { txtFind.SetFocus(); }
    void Form_QueryUnload(bool& cancel) override { run_.keepOpen(cancel); }
    void mfrTab_Click();
    void cmdAdd_Click();
    void cmdClear_Click();
    void cmdRemoveItem_Click();
    void cmdRemoveSummary_Click();
    void Command1_Click();
    void cmdBrowse_Click();
    void cmdRemove_Click();
    void cmdClearFiles_Click();
    void cmdAddSC_Click();
    void cmdStart_Click();
    void cmdClose_Click() { run_.closePressed(); }
    void cmdDryRun_Click();

    void addPair(const std::string& text, const std::string& replacement);
    void offerFilledSummary();
    void offerEmptySummary();
    void checkTargets();
    void checkStartButton();
    void fillMultiSpecialChars();
    void fillFindAndReplaceCollections();
    void initGauges();
    bool prepareRun();
    void findReplaceMulti();
    std::optional<std::vector<DryRunFile>> lookAt(const std::vector<std::string>& targets);
    void disableControls();
    void enableControls();

    LongRun run_{{.close = cmdClose,
                  .controls = {&cmdAdd, &cmdClear, &cmdRemoveItem, &cmdRemoveSummary, &Command1, &cmdStart, &cmdDryRun},
                  .question = "Are you sure that you want to cancel?",
                  .title = "Cancel multifile find and replace",
                  .also = [this](bool reachable) { reachable ? enableControls() : disableControls(); }}};
    /// The row of the summary, from 1, that gets the next replacement. Rows that were filled in by the special
    /// characters do not count.
    int nextRow_ = 1;
    std::vector<FindItem> findItems_;
    bool isDryRun_ = false;  ///< whether the run in progress writes nothing
    KeptSize keptSize_;      ///< of lbxTargetFiles
};

/// The first 62 rows of the special character table as replacements.
/// @param toEntity  whether characters are replaced by their entities, or the other way round
std::vector<FindItem> specialCharItems(bool toEntity);

void mnuTools_multi_Click();

}  // namespace kelvor
