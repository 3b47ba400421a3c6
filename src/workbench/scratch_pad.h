#pragma once

#include <string_view>

#include "controls/button.h"
#include "controls/edit_control.h"
#include "controls/form.h"
#include "controls/menu_item.h"
#include "editing/htmlkeys.h"

namespace kelvor {

/// A pad beside the documents, whose text belongs to no file. It stays open; only a save keeps its text.
class ScratchPad : public Form {
public:
    ScratchPad();

    EditControl& spRTF1{addEditControl("spRTF1")};
    Button cmdEdit{*this, "cmdEdit", "&Edit"};
    Button cmdHelp{*this, "cmdHelp", "&Help"};
    MenuItem mnusp{*this, "mnusp", nullptr};
    MenuItem mnusp_cut{*this, "mnusp_cut", &mnusp};
    MenuItem mnusp_copy{*this, "mnusp_copy", &mnusp};
    MenuItem mnusp_paste{*this, "mnusp_paste", &mnusp};
    MenuItem mnusp_line3{*this, "mnusp_line3", &mnusp};
    MenuItem mnusp_selAll{*this, "mnusp_selAll", &mnusp};
    MenuItem mnusp_line1{*this, "mnusp_line1", &mnusp};
    MenuItem mnusp_clear{*this, "mnusp_clear", &mnusp};
    MenuItem mnusp_line2{*this, "mnusp_line2", &mnusp};
    MenuItem mnusp_save{*this, "mnusp_save", &mnusp};

    /// Whether the text was written to since it was last saved.
    bool textChanged() const { return textChanged_; }

    /// Adds a text below what is there, behind an empty line.
    void append(std::string_view text);

private:
    void setUpMenu();
    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    void Form_Unload();
    void showMenu(const Control* below);
    /// There is something to save only when the pad holds text.
    void checkSave();
    void mnusp_selAll_Click();
    void mnusp_save_Click();

    htmlkeys keys_;
    Connection frameCloses_;
    bool textChanged_ = false;
};

/// The one pad.
ScratchPad& scratchPad();

/// Shows the pad above the frame.
void showScratchPad();
/// Shows the pad and adds the selection of the active document.
void mnuRClick_SendSP_Click();

}  // namespace kelvor
