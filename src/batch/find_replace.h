#pragma once

#include <string>

#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/edit_control.h"
#include "controls/form.h"
#include "controls/label.h"
#include "editing/htmlkeys.h"

namespace kelvor {

/// Replaces a text in the active document or in its selection, with a question at each match or all at once.
class FindReplace : public Form {
public:
    FindReplace();

    Label lblFindText{*this, "lblFindText", "Enter the text you wish to find:"};
    EditControl& txtFindText{addEditControl("txtFindText")};
    Label lblReplace{*this, "lblReplace", "Enter the replacement text."};
    EditControl& txtReplace{addEditControl("txtReplace")};
    CheckBox chkWithin{*this, "chkWithin", "Replace within &selected range."};
    CheckBox chkWord{*this, "chkWord", "&Whole Word"};
    CheckBox chkCase{*this, "chkCase", "&Match Case"};
    Button cmdReplaceOne{*this, "cmdReplaceOne", "Replace &One"};
    Button cmdReplaceAll{*this, "cmdReplaceAll", "Replace &All"};
    Button cmdClose{*this, "cmdClose", "&Close"};
    Button cmdHelp{*this, "cmdHelp", "&Help"};

private:
    /// What one run works on.
    struct Run {
        EditControl& edit;
        std::string text;
        std::string replacement;
        int options = 0;
        int searchEnd = 0;
        int count = 0;
    };

    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    void chkWithin_Click();
    void txtFindText_Change();
    void cmdReplaceOne_Click();
    void cmdReplaceAll_Click();
    void cmdClose_Click();
    bool isRunningAllAtOnce() const;
    void replace();
    Run beginRun();
    void endRun(Run& run);
    void replaceAsking(Run& run);
    void replaceAllAtOnce(Run& run);
    bool findMatch(Run& run);
    void replaceMatch(Run& run);
    void askToCancel();
    void disableC();
    void enableC();
    void setControlsEnabled(bool enabled);

    htmlkeys findKeys_;
    htmlkeys replaceKeys_;
    bool replaceOneMode_ = false;
    bool cancelRequested_ = false;
    int searchStart_ = 0;
    int foundAt_ = 0;
};

/// The one dialog.
FindReplace& findReplace();

void mnuEdit_FindReplace_Click();

}  // namespace kelvor
