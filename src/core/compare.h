// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/edit_control.h"
#include "controls/label.h"
#include "controls/report_view.h"
#include "core/shown_text.h"
#include "frame/tool_dialog.h"
#include "text/line_difference.h"

namespace kelvor {

/// Two texts side by side, line for line, and the chosen pair of lines whole below them.
class Compare : public ToolDialog {
public:
    Compare();

    Label lblCounts{*this, "lblCounts"};
    ReportView lstLines{
        *this, "lstLines", {"Line", "", "Difference", "Line", ""}, {.chosen = &Compare::lstLines_Chosen}};
    Label lblLeft{*this, "lblLeft"};
    EditControl& rtbLeft{addEditControl("rtbLeft")};
    Label lblRight{*this, "lblRight"};
    EditControl& rtbRight{addEditControl("rtbRight")};
    Button cmdNext{*this, "cmdNext", "&Next Difference", &Compare::cmdNext_Click};
    Button cmdPrevious{*this, "cmdPrevious", "&Previous Difference", &Compare::cmdPrevious_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &Compare::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &Compare::showHelp};

    /// To be told before the window is made.
    void take(const ShownText& left, const ShownText& right);

private:
    void Form_Load() override;
    void lstLines_Chosen();
    void cmdNext_Click();
    void cmdPrevious_Click();

    void showRow(const DifferenceRow& row);

    std::string left_;
    std::string right_;
    std::vector<DifferenceRow> rows_;  ///< pointing into the texts
    std::vector<int> stretches_;       ///< the first row of each run of rows that differ in the same manner
};

/// What differs, in words: "3 lines added, 1 removed; the ends of 12 lines differ".
std::string differenceSummary(const std::vector<DifferenceRow>& rows);

/// Shows two texts side by side until the window is closed, above whatever window has the input. Throws what
/// compareLines throws, and then nothing is shown.
void compareTexts(const ShownText& left, const ShownText& right);

}  // namespace kelvor
