// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/find_replace.h"

#include "batch/find.h"
#include "controls/form.h"
#include "editing/insertion.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/services.h"
#include "support/fields.h"
#include "text/line_ends.h"

namespace kelvor {

namespace {

int sizeOf(const std::string& text) {
    return static_cast<int>(text.size());
}

const Message replaceThis = {.text = "Replace this instance?",
                             .title = "Find and Replace",
                             .icon = MessageIcon::question,
                             .buttons = MessageButtons::yesNoCancel};

}  // namespace

FindReplace::FindReplace() : ToolDialog("findReplace", "Find and Replace", AtEnd::focusDocument) {
    selectThemselves(txtFindText, txtReplace);
}

void FindReplace::Form_Load() {
    findKeys_.setHookedRTB(&txtFindText);
    replaceKeys_.setHookedRTB(&txtReplace);
    txtFindText.setText(activeText().selText());
    txtFindText.SetFocus();
}

void FindReplace::Form_QueryUnload(bool& cancel) {
    if (!run_.canBeCancelled()) return;
    run_.cancel();
    cancel = true;
}

/// With the box ticked the document's selection is the range, without it the text to find.
void FindReplace::chkWithin_Click() {
    txtFindText.setText(chkWithin.value() ? std::string() : activeText().selText());
    if (chkWithin.value()) txtFindText.SetFocus();
}

void FindReplace::txtFindText_Change() {
    searchStart_ = 0;
    foundAt_ = 0;
}

void FindReplace::cmdReplaceOne_Click() {
    replaceOneMode_ = true;
    replace();
}

void FindReplace::cmdReplaceAll_Click() {
    replaceOneMode_ = false;
    replace();
}

void FindReplace::cmdClose_Click() {
    if (run_.canBeCancelled()) return run_.cancel();
    unload();
}

/// An error on the way leaves the controls as the run has made them.
void FindReplace::replace() {
    if (refuseEmptyFindText(txtFindText.text())) return txtFindText.SetFocus();
    run_.begin(replaceOneMode_ ? LongRun::Cancel::never : LongRun::Cancel::offered);
    Run run = beginRun();
    if (replaceOneMode_) {
        replaceAsking(run);
    } else {
        replaceAllAtOnce(run);
    }
    endRun(run);
}

FindReplace::Run FindReplace::beginRun() {
    EditControl& edit = activeText();
    // The box may end its lines in another way than the document, and the document its own in several.
    const SearchOptions options = searchOptions(chkWord, chkCase);
    const bool within = chkWithin.value();
    searchStart_ = within ? edit.selStart() : 0;
    const int searchEnd = within ? edit.selStart() + edit.selLength() : edit.textLength();
    edit.setSelLength(0);
    return {edit, txtFindText.text(), withLineEnd(txtReplace.textView(), edit.lineEnd()), options, searchEnd};
}

void FindReplace::endRun(Run& run) {
    platform().screen.setMousePointer(MousePointer::standard);
    platform().dialogs.message({.text = std::to_string(run.count) + " replacements made.",
                                .title = "Find and Replace",
                                .icon = MessageIcon::information});
    run.edit.setSelLength(0);
    run_.end();
}

/// The form can be closed between two questions; that ends the run.
void FindReplace::replaceAsking(Run& run) {
    while (isLoaded() && findMatch(run)) {
        platform().screen.setMousePointer(MousePointer::standard);
        run.edit.uncoverSelection();
        const Answer answer = platform().dialogs.message(replaceThis);
        if (answer == Answer::cancel) return;
        if (answer == Answer::yes) {
            replaceMatch(run);
        } else {
            searchStart_ = foundAt_ + run.edit.selLength();
        }
        pumpEvents();
    }
}

void FindReplace::replaceAllAtOnce(Run& run) {
    const EditControl::Batch batch(run.edit);
    while (findMatch(run)) {
        if (run_.isCancelled()) run_.askToCancel();
        if (run_.isCancelled()) return;
        replaceMatch(run);
        pumpEvents();
    }
}

/// Selects the next match.
bool FindReplace::findMatch(Run& run) {
    foundAt_ = run.edit.Find(run.text, searchStart_, run.searchEnd, run.options);
    if (foundAt_ < 0) searchStart_ = 0;
    return foundAt_ >= 0;
}

void FindReplace::replaceMatch(Run& run) {
    const int matchLength = run.edit.selLength();
    run.edit.setSelText(run.replacement);
    searchStart_ = foundAt_ + sizeOf(run.replacement);
    run.searchEnd += sizeOf(run.replacement) - matchLength;
    ++run.count;
}

/// No other window must reach the document meanwhile.
void FindReplace::setOthersEnabled(bool enabled) const {
    for (Form* other : loadedForms())
        if (other != this && other->kind() != Form::Kind::child) other->setEnabled(enabled);
}

void mnuEdit_FindReplace_Click() {
    openToolForm(toolForm<FindReplace>(), ShowMode::floating);
}

}  // namespace kelvor
