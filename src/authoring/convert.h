// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/frame.h"
#include "controls/label.h"
#include "controls/option_group.h"
#include "controls/progress_bar.h"
#include "frame/long_run.h"
#include "frame/tool_dialog.h"

namespace kelvor {

struct SpecialCharEntry;

/// Rewrites the special characters of the active document as their entities, or the entities as the characters.
class Convert : public ToolDialog {
public:
    Convert();

    Frame Frame1{*this, "Frame1", "Conversion type"};
    OptionGroup optType{
        *this, "optType", {"Character to HTML value", "HTML value to character"}, &Convert::optType_Click};
    Label lblStart{*this, "lblStart"};  ///< shown with lblFinish while a conversion runs
    Label lblStartString{*this, "lblStartString"};
    Label lblFinish{*this, "lblFinish"};
    Label lblFinishString{*this, "lblFinishString"};
    Label lblProgress{*this, "lblProgress", "Progress:"};
    ProgressBar progBar1{*this, "progBar1"};
    Button cmdConvert{*this, "cmdConvert", "Con&vert", &Convert::cmdConvert_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &Convert::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &Convert::showHelp};

private:
    void optType_Click(int index);
    void cmdConvert_Click();
    void initConvertGauge();
    void convertSpecialChars();
    void showPair(const SpecialCharEntry& row, bool toEntities);

    LongRun run_{{.close = cmdClose, .controls = {&cmdConvert}}};
};

void mnuTools_ConvertSpec_Click();

}  // namespace kelvor
