// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "batch/batch_directory.h"
#include "batch/put_back.h"
#include "controls/label.h"
#include "controls/progress_bar.h"
#include "controls/report_view.h"
#include "files/flusher.h"
#include "frame/long_run.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Shows what the last run over files has done, and gives the files their old bytes.
class TakeBack : public ToolDialog {
public:
    TakeBack();

    Label lblRun{*this, "lblRun"};
    Label lblChanges{*this, "lblChanges", "What it has changed:"};
    ReportView lstChanges{*this, "lstChanges", {"Original Text", "Replacement Text"}};
    Label lblFiles{*this, "lblFiles", "Its files:"};
    ReportView lstFiles{*this, "lstFiles", {"Filename", "State"}};
    Label lblCounts{*this, "lblCounts"};
    Label lblProgress{*this, "lblProgress", "Progress:"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    Button cmdTakeBack{*this, "cmdTakeBack", "&Take Back", &TakeBack::cmdTakeBack_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &TakeBack::cmdClose_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &TakeBack::showHelp};

    /// What is to be shown; to be told before the form is loaded.
    void setRun(BatchDirectory batches, const RecordedRun& run);

private:
    void Form_Activate() override;
    void Form_QueryUnload(bool& cancel) override { run_.keepOpen(cancel); }
    void cmdTakeBack_Click();
    void cmdClose_Click() { run_.closePressed(); }

    void lookAtFiles();
    void putFilesBack();
    bool goesOn();
    void show(std::size_t row, const FileLook& look);
    void showCounts();
    std::size_t count(FileState state) const { return counts_[static_cast<std::size_t>(state)]; }

    std::optional<BatchDirectory> batches_;
    std::uint64_t number_ = 0;
    std::vector<ChangedFile> files_;
    std::vector<std::optional<FileState>> states_;
    std::array<std::size_t, 3> counts_{};  ///< of the files, by their state
    bool hasLooked_ = false;
    LongRun run_{{.close = cmdClose,
                  .controls = {&cmdTakeBack},
                  .question = "Are you sure that you want to cancel?",
                  .title = "Take Back the Last Batch"}};
};

/// Shows the last run, or says that there is none.
void mnuTools_TakeBack_Click();

}  // namespace kelvor
