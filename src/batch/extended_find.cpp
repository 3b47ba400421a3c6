// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/extended_find.h"

#include "base/outcome.h"
#include "batch/file_count.h"
#include "batch/walk_filters.h"
#include "controls/mouse_press.h"
#include "core/file_open.h"
#include "core/recent_files.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "text/line_ends.h"

namespace kelvor {

namespace {

/// Pages of SSTab1.
constexpr int criteriaPage = 0;
constexpr int resultsPage = 1;

/// The column of ListView1 with numbers.
constexpr int countColumn = 1;

/// ".html" is reached through "*.htm". The last row names two kinds that it does not find.
const std::vector<WalkFilter>& filters() {
    static const std::vector<WalkFilter> rows = {
        {"(All files)", {"*.*"}},
        {".htm, .html, .shtml", {"*.htm", "*.shtml"}},
        {".cgi", {"*.cgi"}},
        {".c", {"*.c"}},
        {".vbs", {"*.vbs"}},
        {".js", {"*.js"}},
        {".pl", {"*.pl"}},
        {".pl, .cgi, .c", {"*.pl", "*.cgi", "*.c"}},
        {".txt", {"*.txt"}},
        {".asp", {"*.asp"}},
        {".html, .htm, .shtml, .cgi, .pl, .c, .vbs, .js, .txt, .asp",
         {"*.htm", "*.shtml", "*.cgi", "*.pl", "*.c", "*.txt", "*.asp"}},
    };
    return rows;
}

}  // namespace

ExtendedFind::ExtendedFind() : ToolDialog("frmEfind", "Extended Find", AtEnd::focusDocument) {
    objDirWalk_.ItemFound = [this](const std::string& sPath, const std::string& sFileName, bool& fCancel) {
        objDirWalk_ItemFound(sPath, sFileName, fCancel);
    };
    ListView1.setMultiSelect(true);
    ListView1.setRightAligned(countColumn);
    lblDirFolder.setToolTip("Double click to browse...");
    cmdBegin.setEnabled(false);
    ProgressBar1.setVisible(false);
    mnuLV1.makePopup();
}

void ExtendedFind::Form_Load() {
    keys_.setHookedRTB(&rtbFind);
    ProgressBar1.setValue(0);
    SSTab1.setTabEnabled(resultsPage, false);
    fillFilterCombo();
    rtbFind.SetFocus();
}

void ExtendedFind::fillFilterCombo() {
    fillWithFilters(cboFilter, filters());
}

void ExtendedFind::checkBegin() {
    cmdBegin.setEnabled(rtbFind.textLength() > 0 && !lblDirFolder.caption().empty());
}

void ExtendedFind::lblDirFolder_DblClick() {
    const std::string folder = browseForFolder("Select the starting directory.");
    if (!folder.empty()) lblDirFolder.setCaption(folder);
    checkBegin();
}

void ExtendedFind::cmdBegin_Click() {
    lblStatus.setCaption("Gathering files...");
    const ScopedRun run(run_);
    platform().screen.processEvents();
    foundFiles_.clear();
    SSTab1.setTab(criteriaPage);
    ListView1.clear();
    gatherFiles(filters()[static_cast<std::size_t>(cboFilter.listIndex())].patterns, lblDirFolder.caption());
}

void ExtendedFind::gatherFiles(const std::vector<std::string>& filters, const std::string& searchDir) {
    const std::string directory = joinPath(searchDir, "");
    walkForEach(objDirWalk_, filters, directory, chkSubDir.value());
    if (!isLoaded()) return;
    if (!foundFiles_.empty()) return findMatch();
    run_.end();
    cmdBegin.SetFocus();
    tellNoFiles(directory);
}

void ExtendedFind::objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName, bool& fCancel) {
    foundFiles_.push_back(sPath + sFileName);
    pumpEvents();
    fCancel = !isLoaded();
}

void ExtendedFind::findMatch() {
    // The end of the program ends the run too.
    const auto goesOn = [this] {
        pumpEvents();
        return !run_.isCancelled() && isLoaded();
    };
    FileCount counter(withLineEnd(rtbFind.textView(), "\r\n"), chkCase.value(), goesOn);
    cmdClose.setEnabled(true);
    results_.clear();
    lblStatus.setCaption("Searching files:");
    ProgressBar1.setRange(0, static_cast<int>(foundFiles_.size()));
    ProgressBar1.setVisible(true);
    for (const std::string& path : foundFiles_) {
        if (!goesOn()) break;
        const auto [outcome, count] = counter.in(path);
        if (outcome == FileCount::Outcome::stopped) break;
        results_.push_back({{path, outcome == FileCount::Outcome::counted ? std::to_string(count) : "Error"}});
        ProgressBar1.setValue(static_cast<int>(results_.size()));
    }
    if (isLoaded()) buildResultsTable();
}

void ExtendedFind::buildResultsTable() {
    run_.end();
    ListView1.addRows(std::exchange(results_, {}));
    SSTab1.setTabEnabled(resultsPage, true);
    SSTab1.setTab(resultsPage);
    if (ListView1.count() == 0) return cmdBegin.SetFocus();
    ListView1.setSelectedRow(0);
    ListView1.SetFocus();
}

/// While files are gathered there is nothing to cancel.
void ExtendedFind::disableControls() {
    cmdClose.setEnabled(false);
    SSTab1.setTabEnabled(resultsPage, false);
}

void ExtendedFind::resetControls() {
    chkSubDir.setValue(false);
    chkCase.setValue(false);
    ProgressBar1.setVisible(false);
    ProgressBar1.setValue(0);
    lblStatus.setCaption("Status:");
}

void ExtendedFind::ListView1_MouseDown(const MousePress& press) {
    if (press.button == MousePress::right && ListView1.count() > 0) platform().windows.popupMenu(mnuLV1);
}

/// Nothing while another tool works on the document in front.
void ExtendedFind::openMulti() {
    if (!mainForm().enabled()) return;
    for (int row = 0; row < static_cast<int>(ListView1.count()); ++row) {
        if (!ListView1.isSelected(row)) continue;
        const std::string path = ListView1.cell(row, 0);
        if (const Outcome opened = fileOpen(path, false)) {
            updateOpenFileCollection();
            ListView1.setSelected(row, false);
        } else {
            reportOpenError(path, opened.cause());
        }
    }
}

void mnuEdit_eFind_Click() {
    openToolForm(toolForm<ExtendedFind>(), ShowMode::floating);
}

}  // namespace kelvor
