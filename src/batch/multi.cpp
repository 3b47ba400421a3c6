// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/multi.h"

#include <exception>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/error.h"
#include "base/event.h"
#include "batch/bytes_rewrite.h"
#include "batch/dry_run.h"
#include "batch/file_rewrite.h"
#include "batch/kept_files.h"
#include "batch/line_rewrite.h"
#include "controls/control.h"
#include "files/file_replace.h"
#include "files/temporary_directory.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "html/special_chars.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/fields.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

constexpr int summaryTab = 0;
constexpr int targetTab = 1;
constexpr int toEntityOption = 0;
/// The rows behind these are never filled in: they would rewrite the tags themselves.
constexpr std::size_t prefilledRows = 62;
/// In twips.
constexpr int columnWidths[] = {2408, 2407};

constexpr const char* temporaryName = "temp.$$$";
constexpr const char* messageTitle = "Multifile Find and Replace";

constexpr const char* caseExplanation =
    "Allows for case matching in the target files.  Once enabled, this option applies to all the items on the "
    "source->target list.  While it is off, \"Table\" is also found as \"TABLE\" and as \"table\", and each of them "
    "becomes the same replacement text.";

bool confirmsAbort() {
    platform().screen.beep();
    return confirms(
        "You have selected a non case sensitive find and replace. You have duplicate entries withing the "
        "items which you wish to find. Please note that if you do not remove these items, you may "
        "experience incorrect results.\r\n\r\nAbort operation now?",
        "Duplicate find items found");
}

/// Names what runs that were killed have left, and deletes it when the user says so.
void offerToDeleteAbandoned() {
    const auto abandoned = abandonedTemporaries(temporaryName);
    if (abandoned.empty()) return;
    std::string text = "A multifile find and replace was interrupted. What it was writing is still there:\r\n";
    for (const std::string& path : abandoned) text += "\r\n" + path;
    text += "\r\n\r\nShould a file of that run be half written, its whole new text is in there.\r\nDelete it now?";
    const Message question = {.text = text,
                              .title = messageTitle,
                              .icon = MessageIcon::question,
                              .buttons = MessageButtons::yesNo,
                              .standard = Answer::no};
    if (platform().dialogs.message(question) != Answer::yes) return;
    for (const std::string& path : abandoned) guarded([&] { removeAbandonedTemporary(path); });
}

const Message noFindText = {
    .text = "You must enter some text to be found.", .title = "Empty field", .icon = MessageIcon::exclamation};

/// False when the old file cannot be kept and the user ends the run.
bool rewriteOrReport(FileRewriter& rewriter, KeptFiles& kept, const std::string& path, const std::string& temporary) {
    try {
        return replacedOrAsked(kept, messageTitle, [&] { return rewriter.rewrite(path, temporary, pumpEvents); });
    } catch (const std::exception&) {
        const Error error = currentError();
        beepAndShow({.text = "Could not write to " + path + " skipping file.",
                     .cause = error.cause(),
                     .title = messageTitle,
                     .icon = MessageIcon::critical});
        logError(error);
        return true;
    }
}

}  // namespace

Multi::Multi()
    : ToolDialog("multi", "Mutlifile find and replace", AtEnd::focusDocument),
      Label5(*this, "Label5", caseExplanation) {
    selectThemselves(txtFind, txtReplace);
    setAllEnabled({&cmdRemoveItem, &cmdRemoveSummary, &cmdRemove, &cmdClearFiles, &cmdStart, &cmdDryRun}, false);
    Option1.select(toEntityOption);
    Command1_Click();
}

void Multi::mfrTab_Click() {
    if (mfrTab.tab() != targetTab || txtFind.text().empty()) return;
    if (confirms("The find text input box has data in it that has not been added to the summary.\r\n"
                 "Do you want to add it now?",
                 "Find text not added to summary"))
        cmdAdd_Click();
}

void Multi::cmdAdd_Click() {
    if (txtFind.text().empty()) {
        beepAndShow(noFindText);
    } else {
        addPair(txtFind.text(), txtReplace.text());
        cmdClear_Click();
        offerFilledSummary();
        checkStartButton();
    }
    txtFind.SetFocus();
}

void Multi::addPair(const std::string& text, const std::string& replacement) {
    // To remove filled-in rows lowers nextRow_ too. A pair whose replacement has no row would delete what it finds.
    if (nextRow_ < 1) throw Error(error_number::subscriptOutOfRange, "The summary has no row for the replacement text");
    lstSummary.addRow({text});
    lstSummary.setCell(nextRow_ - 1, 1, replacement);
    ++nextRow_;
}

void Multi::cmdClear_Click() {
    txtFind.setText("");
    txtReplace.setText("");
}

void Multi::cmdRemoveItem_Click() {
    if (lstSummary.selectedRow() < 0) throw Error(error_number::objectNotSet, "No item is selected");
    lstSummary.removeRow(lstSummary.selectedRow());
    --nextRow_;
    if (lstSummary.count() == 0) offerEmptySummary();
}

void Multi::cmdRemoveSummary_Click() {
    lstSummary.clear();
    nextRow_ = 1;
    offerEmptySummary();
}

void Multi::offerFilledSummary() {
    if (lstSummary.selectedRow() < 0) lstSummary.setSelectedRow(0);
    setAllEnabled({&cmdRemoveItem, &cmdRemoveSummary}, true);
}

void Multi::offerEmptySummary() {
    setAllEnabled({&cmdRemoveItem, &cmdRemoveSummary}, false);
    cmdAddSC.setEnabled(true);
    chkCase.setEnabled(true);
    chkCase.setValue(false);
    checkStartButton();
}

void Multi::Command1_Click() {
    for (const int column : {0, 1}) lstSummary.setColumnWidth(column, columnWidths[column]);
}

void Multi::cmdAddSC_Click() {
    fillMultiSpecialChars();
    chkCase.setValue(true);
    chkCase.setEnabled(false);
    cmdAddSC.setEnabled(false);
    offerFilledSummary();
}

void Multi::fillMultiSpecialChars() {
    std::vector<ReportView::Row> rows;
    for (FindItem& item : specialCharItems(Option1.selected() == toEntityOption))
        rows.push_back({{std::move(item.text), std::move(item.replacement)}});
    lstSummary.addRows(std::move(rows));
}

void Multi::cmdBrowse_Click() {
    const auto targets = pickFiles("Select the target files (multiple selections allowed)");
    if (targets.empty()) return;
    lbxTargetFiles.addRows(targets);
    keptSize_.add(targets);
    lbxTargetFiles.setSelectedRow(0);
    checkTargets();
}

void Multi::cmdRemove_Click() {
    keptSize_.remove(lbxTargetFiles.selectedRow());
    lbxTargetFiles.removeRow(lbxTargetFiles.selectedRow());
    checkTargets();
}

void Multi::cmdClearFiles_Click() {
    lbxTargetFiles.clear();
    keptSize_.clear();
    checkTargets();
}

void Multi::checkTargets() {
    const bool any = lbxTargetFiles.count() > 0;
    cmdRemove.setEnabled(any);
    cmdClearFiles.setEnabled(any);
    lblKept.setCaption(keptSize_.caption());
    checkStartButton();
}

void Multi::checkStartButton() {
    setAllEnabled({&cmdStart, &cmdDryRun}, !run_.isGoingOn() && lstSummary.count() > 0 && lbxTargetFiles.count() > 0);
}

void Multi::cmdStart_Click() {
    isDryRun_ = false;
    mfrTab.setTab(summaryTab);
    const ScopedRun run(run_);
    if (prepareRun()) findReplaceMulti();
}

/// False when the user does not want the run.
bool Multi::prepareRun() {
    fillFindAndReplaceCollections();
    initGauges();
    pumpEvents();
    sortFindItems(findItems_);
    return !checkForDupes(findItems_, chkCase.value()) || !confirmsAbort();
}

void Multi::cmdDryRun_Click() {
    isDryRun_ = true;
    mfrTab.setTab(summaryTab);
    const std::vector<std::string> targets = lbxTargetFiles.rows();
    const auto files = lookAt(targets);
    if (files && isLoaded()) showDryRun(findItems_, *files, targets.size() - files->size());
}

void Multi::fillFindAndReplaceCollections() {
    findItems_.clear();
    for (int row = 0; row < static_cast<int>(lstSummary.count()); ++row)
        findItems_.push_back({lstSummary.cell(row, 0), lstSummary.cell(row, 1)});
}

void Multi::initGauges() {
    ProgressBar1.setRange(0, static_cast<int>(lbxTargetFiles.count()));
}

void Multi::findReplaceMulti() {
    // The list can still be changed by the events that are let run.
    const std::vector<std::string> targets = lbxTargetFiles.rows();
    KeptFiles kept({messageTitle, platform().clock.now(), findItems_}, targets);
    FileRewriter rewriter(LineRewrite(findItems_, chkCase.value()), kept);
    int number = 0;
    for (const std::string& target : targets) {
        pumpEvents();
        if (run_.isCancelled()) break;
        const std::string temporary = getTempDir() + temporaryName;
        clearTemporary(temporary);
        if (!rewriteOrReport(rewriter, kept, target, temporary)) break;
        pumpEvents();
        ProgressBar1.setValue(++number);
    }
}

/// Nothing when the user does not want it.
std::optional<std::vector<DryRunFile>> Multi::lookAt(const std::vector<std::string>& targets) {
    const ScopedRun run(run_);
    if (!prepareRun()) return std::nullopt;
    BytesRewrite rewrite(LineRewrite(findItems_, chkCase.value(), LineRewrite::Counting::on));
    std::vector<DryRunFile> files;
    std::unordered_set<std::string> seen;
    for (const std::string& target : targets) {
        pumpEvents();
        if (run_.isCancelled() || !isLoaded()) break;
        const bool isNew = seen.insert(target).second;
        files.push_back(isNew ? lookAtFile(rewrite, target, pumpEvents)
                              : DryRunFile{.path = target, .isRepeated = true});
        ProgressBar1.setValue(static_cast<int>(files.size()));
    }
    return files;
}

void Multi::disableControls() {
    cmdClose.setDefault(true);
}

void Multi::enableControls() {
    ProgressBar1.setValue(0);
    cmdClose.setDefault(false);
    if (isDryRun_) return cmdDryRun.SetFocus();
    chkCase.setEnabled(true);
    chkCase.setValue(false);
    cmdAddSC.setEnabled(true);
    cmdStart.SetFocus();
}

std::vector<FindItem> specialCharItems(bool toEntity) {
    std::vector<FindItem> items;
    for (std::size_t row = 0; row < prefilledRows; ++row) {
        const SpecialCharEntry& entry = specialChars[row];
        FindItem item{entry.character, entry.entity};
        if (!toEntity) std::swap(item.text, item.replacement);
        items.push_back(std::move(item));
    }
    return items;
}

void mnuTools_multi_Click() {
    guarded(offerToDeleteAbandoned);
    openToolForm(toolForm<Multi>(), ShowMode::modal);
}

}  // namespace kelvor
