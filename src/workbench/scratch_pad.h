// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "controls/edit_control.h"
#include "controls/menu_item.h"
#include "editing/htmlkeys.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// A pad beside the documents, whose text belongs to no file. It stays open; only a save keeps its text.
class ScratchPad : public ToolDialog {
public:
    ScratchPad();

    EditControl& spRTF1{addEditControl("spRTF1", &ScratchPad::spRTF1_Change)};
    Button cmdEdit{*this, "cmdEdit", "&Edit", &ScratchPad::cmdEdit_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &ScratchPad::showHelp};
    MenuItem mnusp{*this, "mnusp", nullptr, "spMenu"};
    MenuItem mnusp_cut{*this, "mnusp_cut", &mnusp, "Cut", &ScratchPad::mnusp_cut_Click};
    MenuItem mnusp_copy{*this, "mnusp_copy", &mnusp, "Copy", &ScratchPad::mnusp_copy_Click};
    MenuItem mnusp_paste{*this, "mnusp_paste", &mnusp, "Paste", &ScratchPad::mnusp_paste_Click};
    MenuItem mnusp_line3{*this, "mnusp_line3", &mnusp, "-"};
    MenuItem mnusp_selAll{*this, "mnusp_selAll", &mnusp, "Select all", &ScratchPad::mnusp_selAll_Click};
    MenuItem mnusp_line1{*this, "mnusp_line1", &mnusp, "-"};
    MenuItem mnusp_clear{*this, "mnusp_clear", &mnusp, "Clear contents", &ScratchPad::mnusp_clear_Click};
    MenuItem mnusp_line2{*this, "mnusp_line2", &mnusp, "-"};
    MenuItem mnusp_save{*this, "mnusp_save", &mnusp, "Save contents", &ScratchPad::mnusp_save_Click};

    /// Whether the text was written to since it was last saved.
    bool textChanged() const { return textChanged_; }

    /// Adds a text below what is there, behind an empty line.
    void append(std::string_view text);

private:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload() override;
    void spRTF1_Change() { textChanged_ = true; }
    void cmdEdit_Click() { showMenu(&cmdEdit); }
    void mnusp_cut_Click() { spRTF1.cut(); }
    void mnusp_copy_Click() { spRTF1.copy(); }
    void mnusp_paste_Click() { spRTF1.paste(); }
    void mnusp_clear_Click() { spRTF1.setText(""); }
    void showMenu(const Control* below);
    /// There is something to save only when the pad holds text.
    void checkSave();
    void mnusp_selAll_Click();
    void mnusp_save_Click();

    htmlkeys keys_;
    Connection frameCloses_;
    bool textChanged_ = false;
};

/// Shows the pad above the frame.
void showScratchPad();
/// Shows the pad and adds the selection of the active document.
void mnuRClick_SendSP_Click();

}  // namespace kelvor
