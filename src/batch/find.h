// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_control.h"
#include "controls/label.h"
#include "frame/tool_dialog.h"
#include "text/text_search.h"

namespace kelvor {

/// Searches the active document for a text, from match to match; stays open beside the document.
class Find : public ToolDialog {
public:
    Find();

    Label lblFindText{*this, "lblFindText", "Enter the text you wish to find:"};
    ComboBox cboFindText{*this, "cboFindText", ComboBox::Style::editable, {.changed = &Find::cboFindText_Change}};
    CheckBox chkCase{*this, "chkCase", "&Match Case"};
    CheckBox chkWord{*this, "chkWord", "&Whole Word"};
    Button cmdFind{*this, "cmdFind", "&Find", &Find::cmdFind_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &Find::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &Find::showHelp};

private:
    void Form_Load() override;
    void cboFindText_Change();
    void cmdFind_Click();
    void fillFindHist();
    bool IsInFindHist(const std::string& text) const;
    void remember(const std::string& text);
    void followDocument();
    void search(EditControl& edit, const std::string& text);

    /// Of the document window that the search belongs to. In a window of another one a search begins anew.
    std::string docCaption_;
    /// A search does not go on in a document that is opened again.
    Connection documentClosed_;
    int searchStart_ = 0;
    /// The document's length when the search came to it: what is added later lies behind the end.
    int searchEnd_ = 0;
    int foundAt_ = 0;
};

/// Writes a searched text into the history: at its end while there are fewer than five, then on top, and the
/// last one goes.
void addFindToReg(const std::string& text);

/// Whether `text` is none to search for; the user has been told then.
bool refuseEmptyFindText(const std::string& text);

/// The options of a search by these boxes. Any line end of the text looked for matches any one of the document.
SearchOptions searchOptions(const CheckBox& wholeWord, const CheckBox& matchCase);

void mnuEdit_Find_Click();

}  // namespace kelvor
