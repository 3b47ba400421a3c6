// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/case_change.h"

#include <utility>

#include "base/error.h"
#include "batch/walk_filters.h"
#include "controls/control.h"
#include "editing/insertion.h"
#include "files/file_replace.h"
#include "files/paths.h"
#include "files/temporary_directory.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

const std::string noDirectory = "(double click to select folder)";

/// Choices of optWhere.
constexpr int activeDocument = 0;
constexpr int listOfFiles = 1;
constexpr int directoryTree = 2;

/// Pages of SSTab1.
constexpr int filesPage = 0;
constexpr int optionsPage = 1;
constexpr int resultsPage = 2;

/// Pictures of a row.
constexpr int allChanged = 1;
constexpr int someRefused = 2;

/// The rows of cboFilter.
const std::vector<WalkFilter>& filters() {
    static const std::vector<WalkFilter> rows = {
        {"(All files)", {"*.*"}},
        {".htm, .html, .shtml", {"*.htm", "*.shtml"}},
        {".asp", {"*.asp"}},
        {".htm, .html, .shtml, *.asp", {"*.htm", "*.shtml", "*.asp"}},
    };
    return rows;
}

Error notInEncoding(const std::string& file) {
    return {error_number::invalidProcedureCall,
            "The file's encoding lacks a letter in its other case; the file stays as it is: " + file};
}

BatchRun runOf(const std::vector<std::string>& attributes, const std::string& caseMode) {
    BatchRun run{"File/URL Reference Case Changer", platform().clock.now(), {}};
    for (const std::string& attribute : attributes) run.changes.push_back({attribute, caseMode});
    return run;
}

}  // namespace

CaseChange::CaseChange() : ToolDialog("frmCaseChange", "File/URL Reference Case Changer") {
    objDirWalk_.ItemFound = [this](const std::string& sPath, const std::string& sFileName, bool& fCancel) {
        objDirWalk_ItemFound(sPath, sFileName, fCancel);
    };
    ListView1.setIcons({"ok", "warning"});
}

void CaseChange::Form_Load() {
    fillWithFilters(cboFilter, filters());
    optCase.select(0);
    checkButtons();
    checkApplyButton();
}

void CaseChange::Form_Activate() {
    const bool hasDocument = hasMdiChild();
    optWhere[activeDocument].setEnabled(hasDocument);
    optWhere.select(hasDocument ? activeDocument : listOfFiles);
}

/// A run that was left without files keeps the form open too.
void CaseChange::Form_QueryUnload(bool& cancel) {
    cancel = cancel || run_.isGoingOn();
}

void CaseChange::optWhere_Click() {
    const int where = optWhere.selected();
    if (where != activeDocument) disableFrame1();
    if (where != listOfFiles) disableFrame2();
    if (where != directoryTree) disableFrame3();
    if (where == activeDocument) enableFrame1();
    if (where == listOfFiles) enableFrame2();
    if (where == directoryTree) enableFrame3();
    showKept();
    checkApplyButton();
}

void CaseChange::lblStartDir_DblClick() {
    const std::string directory = browseForFolder("Select the starting directory.");
    if (!directory.empty()) lblStartDir.setCaption(directory);
    checkApplyButton();
}

void CaseChange::browseForFiles() {
    const auto files = pickFiles("Select files (multiple selections allowed)");
    if (files.empty()) return;
    lstFiles.addRows(files);
    keptSize_.add(files);
    lstFiles.setSelectedRow(0);
    checkButtons();
    checkApplyButton();
}

void CaseChange::cmdRemoveOne_Click() {
    keptSize_.remove(lstFiles.selectedRow());
    if (lstFiles.selectedRow() >= 0) lstFiles.removeRow(lstFiles.selectedRow());
    checkButtons();
    checkApplyButton();
}

void CaseChange::cmdClear_Click() {
    lstFiles.clear();
    keptSize_.clear();
    checkButtons();
    checkApplyButton();
}

void CaseChange::checkApplyButton() {
    const int where = optWhere.selected();
    const bool ready = where == activeDocument || (where == listOfFiles && lstFiles.count() > 0) ||
                       (where == directoryTree && lblStartDir.caption() != noDirectory);
    if (!run_.isGoingOn()) cmdApply.setEnabled(ready && !getReplaceValues().empty());
}

void CaseChange::checkButtons() {
    showKept();
    setAllEnabled({&cmdRemoveOne, &cmdClear}, lstFiles.count() > 0);
}

std::vector<std::string> CaseChange::getReplaceValues() const {
    std::vector<std::string> values;
    for (std::size_t box = 0; box < chkVal.size(); ++box)
        if (chkVal[box].value()) values.push_back(chkVal[box].caption());
    return values;
}

/// A directory without files leaves the controls as the run has made them; an error ends it.
void CaseChange::cmdApply_Click() {
    ScopedRun run(run_);
    beginRun();
    const LinkCase caseMode = optCase.selected() == 0 ? LinkCase::lower : LinkCase::upper;
    if (!fillFileWad()) return run.release();
    changeFiles(getReplaceValues(), caseMode);
    run_.end();
    cmdApply.SetFocus();
}

void CaseChange::beginRun() {
    scope_ = optWhere.selected();
    ListView1.clear();
    SSTab1.setTab(resultsPage);
}

void CaseChange::setTabsEnabled(bool enabled) {
    for (const int page : {filesPage, optionsPage}) SSTab1.setTabEnabled(page, enabled);
}

/// Collects the files of the run, which cannot be cancelled meanwhile; false when there are none, and the user has been
/// told.
bool CaseChange::fillFileWad() {
    currentFileWad_.clear();
    if (scope_ == activeDocument) currentFileWad_.push_back(mainForm().activeForm().caption());
    if (scope_ == listOfFiles) currentFileWad_ = lstFiles.rows();
    if (scope_ != directoryTree) return true;
    const std::string directory = joinPath(lblStartDir.caption(), "");
    const auto row = static_cast<std::size_t>(cboFilter.listIndex());
    cmdClose.setEnabled(false);
    walkForEach(objDirWalk_, filters().at(row).patterns, directory, chkSubDir.value());
    cmdClose.setEnabled(true);
    // The end of the program ends the run too, before the first file.
    if (!isLoaded()) return false;
    if (currentFileWad_.empty()) tellNoFiles(directory, "filter(s)");
    KeptSize size;
    size.add(currentFileWad_);
    lblKept.setCaption(size.caption());
    return !currentFileWad_.empty();
}

void CaseChange::objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName, bool& fCancel) {
    currentFileWad_.push_back(sPath + sFileName);
    pumpEvents();
    fCancel = !isLoaded();
}

void CaseChange::changeFiles(const std::vector<std::string>& attributes, LinkCase caseMode) {
    KeptFiles kept(runOf(attributes, optCase[optCase.selected()].caption()), currentFileWad_);
    for (const std::string& file : currentFileWad_) {
        for (const std::string& attribute : attributes) {
            const auto picture = changeLinks(file, attribute, caseMode, kept);
            if (!picture) return;
            ListView1.addRow({file, attribute}, *picture);
        }
        pumpEvents();
        if (run_.isCancelled() || !isLoaded()) break;
    }
}

/// Works on the active document, whatever the file, when that is the scope of the run.
/// @return the picture of its row; nothing when the old file cannot be kept and the user ends the run
std::optional<int> CaseChange::changeLinks(const std::string& fileName, const std::string& what, LinkCase caseMode,
                                           KeptFiles& kept) {
    bool allAreChanged = true;
    if (scope_ == activeDocument) {
        // The user's typing would part the references from their places.
        const DisabledFrame disabled;
        allAreChanged = changeLinkCase(activeText(), what, caseMode);
    } else if (!replacedOrAsked(kept, caption(),
                                [&] { return changeLinksOfFile(fileName, what, caseMode, kept, allAreChanged); })) {
        return std::nullopt;
    }
    return allAreChanged ? allChanged : someRefused;
}

Outcome CaseChange::changeLinksOfFile(const std::string& fileName, const std::string& what, LinkCase caseMode,
                                      KeptFiles& kept, bool& allAreChanged) {
    auto file = readForReplacement(fileName);
    rtbHidden_.startFileText(decode(std::move(file.bytes)), std::nullopt);
    allAreChanged = changeLinkCase(rtbHidden_, what, caseMode);
    const auto bytes = encode(rtbHidden_.textView(), rtbHidden_.encoding());
    if (!bytes) throw notInEncoding(fileName);
    const std::string temporary = getTempDir() + caseChangeTemporary;
    clearTemporary(temporary);
    return kept.replace(file, *bytes, temporary, flusher_, pumpEvents);
}

/// What the next run will keep, as far as that is known before it.
void CaseChange::showKept() {
    lblKept.setCaption(optWhere.selected() == listOfFiles ? keptSize_.caption() : "");
}

void CaseChange::enableFrame1() {
    setAllEnabled({&Frame2, &Label3}, true);
}

void CaseChange::disableFrame1() {
    setAllEnabled({&Frame2, &Label3}, false);
}

void CaseChange::enableFrame2() {
    setAllEnabled({&Frame3, &lstFiles, &cmdAddFiles}, true);
    checkButtons();
}

void CaseChange::disableFrame2() {
    setAllEnabled({&Frame3, &lstFiles, &cmdAddFiles, &cmdRemoveOne, &cmdClear}, false);
}

void CaseChange::enableFrame3() {
    setAllEnabled({&Frame1, &lblStartDir, &chkSubDir, &Label2, &cboFilter}, true);
}

void CaseChange::disableFrame3() {
    setAllEnabled({&Frame1, &lblStartDir, &chkSubDir, &Label2, &cboFilter}, false);
}

void mnuTools_ChangeLinks_Click() {
    openToolForm(toolForm<CaseChange>(), ShowMode::floating);
}

}  // namespace kelvor
