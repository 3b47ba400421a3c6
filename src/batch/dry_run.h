// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/step.h"
#include "batch/bytes_rewrite.h"
#include "batch/line_rewrite.h"
#include "controls/label.h"
#include "controls/report_view.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// What a list of replacements would do to one file.
struct DryRunFile {
    std::string path;
    std::vector<std::size_t> counts = {};  ///< how often each replacement would be made; none where nobody counted
    bool changes = false;                  ///< whether the file would get other bytes than it has
    bool isRepeated = false;               ///< it stands further up too
    std::string failure = {};              ///< why the file would be left as it is, in sentences; "" when it would not
};

/// Looks at one of them, which is not written.
/// @param rewrite  one that counts
DryRunFile lookAtFile(BytesRewrite& rewrite, const std::string& path, const Step& step);

/// The rows that tell of a dry run: one for all files together and one for each item in them, then for each file one
/// for the whole of it and one for each item that is found in it.
/// Columns: file, text, replacement, what would become of the file, how often the text would be replaced.
std::vector<ReportView::Row> dryRunRows(const std::vector<FindItem>& items, const std::vector<DryRunFile>& files);

/// Shows what a multifile find and replace would do.
class DryRun : public ToolDialog {
public:
    DryRun();

    Label Label1{*this, "Label1", "Nothing has been written. This is what Start would do:"};
    ReportView ListView1{*this,
                         "ListView1",
                         {"Filename", "Original Text", "Replacement Text", "Outcome", "Total items replaced"},
                         {.columnClicked = &DryRun::ListView1_ColumnClick}};
    Button cmdClose{*this, "cmdClose", "&Close", &DryRun::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &DryRun::showHelp};

    /// To be told before it is shown.
    /// @param rows  as dryRunRows gives them
    /// @param left  how many files were not looked at
    void take(std::vector<ReportView::Row> rows, std::size_t left);

private:
    void Form_Load() override { ListView1.SetFocus(); }
    void ListView1_ColumnClick(int column);
};

/// Shows a dry run's outcome until the window is closed.
/// @param left  how many files were not looked at
void showDryRun(const std::vector<FindItem>& items, const std::vector<DryRunFile>& files, std::size_t left);

}  // namespace kelvor
