// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/take_back.h"

#include <utility>

#include "base/error.h"
#include "base/event.h"
#include "batch/case_change.h"
#include "files/file_replace.h"
#include "files/temporary_directory.h"
#include "frame/tool_forms.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

constexpr const char* formTitle = "Take Back the Last Batch";
constexpr const char* temporaryName = "back.$$$";
constexpr int stateColumn = 1;

std::string stateText(const FileLook& look) {
    switch (look.state) {
        case FileState::canBePutBack:
            return "Can be put back.";
        case FileState::isOld:
            return "Is as it was before.";
        case FileState::differs:
            break;
    }
    return look.why;
}

std::string describe(const BatchRun& run, std::size_t files) {
    Clock& clock = platform().clock;
    return run.tool + ", " + clock.mediumDate(run.when.date) + " " + clock.time(run.when) +
           ", files changed: " + std::to_string(files) + " of " + std::to_string(run.planned);
}

/// What killed processes have left; it is of no use once all files are old.
void removeLeftBehind() {
    for (const char* name : {temporaryName, caseChangeTemporary})
        for (const std::string& path : abandonedTemporaries(name)) removeAbandonedTemporary(path);
}

void tell(const std::string& text, const std::string& cause = {}) {
    platform().dialogs.message({.text = text, .cause = cause, .title = formTitle, .icon = MessageIcon::information});
}

}  // namespace

TakeBack::TakeBack() : ToolDialog("frmTakeBack", formTitle, AtEnd::focusDocument) {
    cmdClose.setDefault(true);
    lstFiles.setTakesRoom(0);
}

void TakeBack::setRun(BatchDirectory batches, const RecordedRun& run) {
    const auto& [number, record] = run;
    batches_.emplace(std::move(batches));
    number_ = number;
    files_ = changedFiles(record);
    states_.resize(files_.size());
    lblRun.setCaption(describe(record.run, files_.size()));
    std::vector<ReportView::Row> rows;
    for (const auto& [text, replacement] : record.run.changes) rows.push_back({{text, replacement}});
    lstChanges.addRows(std::exchange(rows, {}));
    for (const ChangedFile& file : files_) rows.push_back({{file.path, ""}});
    lstFiles.addRows(std::move(rows));
    cmdTakeBack.setEnabled(!files_.empty());
}

void TakeBack::Form_Activate() {
    if (!std::exchange(hasLooked_, true)) lookAtFiles();
}

bool TakeBack::goesOn() {
    pumpEvents();
    return !run_.isCancelled() && isLoaded();
}

void TakeBack::lookAtFiles() {
    const ScopedRun run(run_);
    ProgressBar1.setRange(0, static_cast<int>(files_.size()));
    for (std::size_t row = 0; row < files_.size() && goesOn(); ++row) {
        show(row, lookAt(files_[row], pumpEvents));
        ProgressBar1.setValue(static_cast<int>(row + 1));
    }
    if (!isLoaded()) return;
    ProgressBar1.setValue(0);
    showCounts();
}

void TakeBack::cmdTakeBack_Click() {
    {
        const ScopedRun run(run_);
        putFilesBack();
    }
    if (!isLoaded()) return;
    ProgressBar1.setValue(0);
    showCounts();
    cmdClose.SetFocus();
}

/// From the last one on: a file that was changed by two of its names goes back step by step.
void TakeBack::putFilesBack() {
    Flusher flusher;
    ProgressBar1.setRange(0, static_cast<int>(files_.size()));
    for (std::size_t done = 0; done < files_.size() && goesOn(); ++done) {
        const std::size_t row = files_.size() - 1 - done;
        show(row, putBack(files_[row], getTempDir() + temporaryName, flusher, pumpEvents));
        ProgressBar1.setValue(static_cast<int>(done + 1));
    }
    if (count(FileState::isOld) != files_.size()) return;
    batches_->supersede(number_);
    guarded(removeLeftBehind);
}

void TakeBack::show(std::size_t row, const FileLook& look) {
    if (states_[row]) --counts_[static_cast<std::size_t>(*states_[row])];
    ++counts_[static_cast<std::size_t>(look.state)];
    states_[row] = look.state;
    lstFiles.setCell(static_cast<int>(row), stateColumn, stateText(look));
}

void TakeBack::showCounts() {
    const bool allAreOld = count(FileState::isOld) == files_.size();
    lblCounts.setCaption(allAreOld
                             ? "All files are as they were before."
                             : "Can be put back: " + std::to_string(count(FileState::canBePutBack)) +
                                   "; as before: " + std::to_string(count(FileState::isOld)) +
                                   "; changed since or out of reach: " + std::to_string(count(FileState::differs)));
    cmdTakeBack.setEnabled(!allAreOld);
}

void mnuTools_TakeBack_Click() {
    std::optional<BatchDirectory> batches;
    std::optional<RecordedRun> run;
    try {
        batches.emplace();
        run = batches->latest();
    } catch (const Error& error) {
        return tell("The old files of the last batch cannot be reached.", error.cause());
    }
    if (!run) return tell("There is no batch that could be taken back.");
    TakeBack& form = toolForm<TakeBack>();
    form.setRun(std::move(*batches), *run);
    openToolForm(form, ShowMode::modal);
}

}  // namespace kelvor
