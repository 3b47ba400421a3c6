// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/check_box.h"
#include "controls/edit_control.h"
#include "controls/label.h"
#include "editing/htmlkeys.h"
#include "frame/long_run.h"
#include "frame/tool_dialog.h"
#include "text/text_search.h"

namespace kelvor {

/// Replaces a text in the active document or in its selection, with a question at each match or all at once.
class FindReplace : public ToolDialog {
public:
    FindReplace();

    Label lblFindText{*this, "lblFindText", "Enter the text you wish to find:"};
    EditControl& txtFindText{addEditControl("txtFindText", &FindReplace::txtFindText_Change)};
    Label lblReplace{*this, "lblReplace", "Enter the replacement text."};
    EditControl& txtReplace{addEditControl("txtReplace")};
    CheckBox chkWithin{*this, "chkWithin", "Replace within &selected range.", &FindReplace::chkWithin_Click};
    CheckBox chkWord{*this, "chkWord", "&Whole Word"};
    CheckBox chkCase{*this, "chkCase", "&Match Case"};
    Button cmdReplaceOne{*this, "cmdReplaceOne", "Replace &One", &FindReplace::cmdReplaceOne_Click};
    Button cmdReplaceAll{*this, "cmdReplaceAll", "Replace &All", &FindReplace::cmdReplaceAll_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &FindReplace::cmdClose_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FindReplace::showHelp};

private:
    /// What one run works on.
    struct Run {
        EditControl& edit;
        std::string text;
        std::string replacement;
        SearchOptions options;
        int searchEnd = 0;
        int count = 0;
    };

    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;
    void chkWithin_Click();
    void txtFindText_Change();
    void cmdReplaceOne_Click();
    void cmdReplaceAll_Click();
    void cmdClose_Click();
    void replace();
    Run beginRun();
    void endRun(Run& run);
    void replaceAsking(Run& run);
    void replaceAllAtOnce(Run& run);
    bool findMatch(Run& run);
    void replaceMatch(Run& run);
    void setOthersEnabled(bool enabled) const;

    htmlkeys findKeys_;
    htmlkeys replaceKeys_;
    bool replaceOneMode_ = false;
    int searchStart_ = 0;
    int foundAt_ = 0;
    LongRun run_{{.close = cmdClose,
                  .controls = {&txtFindText, &txtReplace, &chkWord, &chkCase, &chkWithin, &cmdReplaceOne,
                               &cmdReplaceAll, &cmdHelp},
                  .question = "Cancel find and replace?",
                  .title = "Confirm cancel",
                  .also = [this](bool reachable) { setOthersEnabled(reachable); }}};
};

void mnuEdit_FindReplace_Click();

}  // namespace kelvor
