// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/control_array.h"
#include "controls/edit_control.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/menu_item.h"
#include "controls/option_group.h"
#include "controls/text_box.h"
#include "controls/up_down.h"
#include "editing/htmlkeys.h"
#include "frame/tool_dialog.h"
#include "frame/tool_forms.h"
#include "html/table_markup.h"

namespace kelvor {

class LinkManager;
class ScriptAssistant;
class SpecialCharacterInsertion;
class Tags;
class TextFormat;

/// Builds a table on three pages, its size, its own properties and its cells, and inserts it into the document. While
/// it is open other tools deliver their text into the cell.
class TableWizard : public ToolDialog {
public:
    TableWizard();

    /// The pages; one is visible at a time.
    ControlArray<Frame> Frame2{*this, "Frame2", {"Table Structure", "Table Properties", "Cell Properties"}};
    TextBox txtRows{*this, "txtRows", "", {.changed = &TableWizard::txtRows_Change}};
    TextBox txtCols{*this, "txtCols", "", {.changed = &TableWizard::txtCols_Change}};

    OptionGroup optTW{*this, "optTW", {"&Percentage", "Pi&xels", "&Ignore"}, &TableWizard::optTW_Click};
    TextBox txtTableWidth{*this, "txtTableWidth", "0", {.changed = &TableWizard::txtTableWidth_Change}};
    UpDown UpDown1{*this, "UpDown1", txtTableWidth, 0, 100};
    TextBox txtBgColor{*this, "txtBgColor", "", {.doubleClicked = &TableWizard::txtBgColor_DblClick}};
    CheckBox chkTblCenter{*this, "chkTblCenter", "Center &Table", &TableWizard::chkTblCenter_Click};
    TextBox txtCellSpacing{*this, "txtCellSpacing", "0", {.changed = &TableWizard::txtCellSpacing_Change}};
    UpDown UpDown2{*this, "UpDown2", txtCellSpacing, 0, 500};
    TextBox txtCellPadding{*this, "txtCellPadding", "0", {.changed = &TableWizard::txtCellPadding_Change}};
    UpDown UpDown3{*this, "UpDown3", txtCellPadding, 0, 500};
    TextBox txtBorderSize{*this, "txtBorderSize", "0", {.changed = &TableWizard::txtBorderSize_Change}};
    UpDown UpDown4{*this, "UpDown4", txtBorderSize, 0, 500};

    Grid grid1{*this, "grid1", {.clicked = &TableWizard::grid1_Click, .moved = &TableWizard::loadCell}};
    Label lblActiveCell{*this, "lblActiveCell"};
    ComboBox cboAlign{*this, "cboAlign", ComboBox::Style::dropDownList, {.clicked = &TableWizard::cboAlign_Click}};
    ComboBox cboValign{*this, "cboValign", ComboBox::Style::dropDownList, {.clicked = &TableWizard::cboValign_Click}};
    TextBox txtCellBgColor{
        *this,
        "txtCellBgColor",
        "",
        {.changed = &TableWizard::txtCellBgColor_Change, .doubleClicked = &TableWizard::txtCellBgColor_DblClick}};
    EditControl& txtCellText{addEditControl("txtCellText", &TableWizard::txtCellText_Change)};

    ControlArray<Button> Command1{*this, "Command1", {"&Next >>", "<< &Back", "&Cancel", "&Finish"}};
    Button cmdHelp{*this, "cmdHelp", "&Help", &TableWizard::showHelp};

    MenuItem mnuTableWiz{*this, "mnuTableWiz", nullptr};
    MenuItem mnuTableWiz_datetime{*this, "mnuTableWiz_datetime", &mnuTableWiz, "Date and Time",
                                  &TableWizard::mnuTableWiz_datetime_Click};
    MenuItem mnuTableWiz_image{*this, "mnuTableWiz_image", &mnuTableWiz, "Image Assistant",
                               &TableWizard::mnuTableWiz_image_Click};
    MenuItem mnuTableWiz_link{*this, "mnuTableWiz_link", &mnuTableWiz, "Link Manager",
                              &TableWizard::showTool<LinkManager>};
    MenuItem mnuTableWiz_quick{*this, "mnuTableWiz_quick", &mnuTableWiz, "Quick Text Format",
                               &TableWizard::showTool<TextFormat>};
    MenuItem mnuTableWiz_script{*this, "mnuTableWiz_script", &mnuTableWiz, "Script Manager",
                                &TableWizard::showTool<ScriptAssistant>};
    MenuItem mnuTableWiz_special{*this, "mnuTableWiz_special", &mnuTableWiz, "Special Characters",
                                 &TableWizard::showTool<SpecialCharacterInsertion>};
    MenuItem mnuTableWiz_tags{*this, "mnuTableWiz_tags", &mnuTableWiz, "Tags", &TableWizard::showTool<Tags>};

private:
    enum class Direction { back = -1, forward = 1 };
    struct Size {
        int rows;
        int cols;
    };

    void Form_Load() override;
    void Form_Unload() override;

    void Command1_Click(std::size_t index);
    void txtRows_Change() { takeSize(txtRows); }
    void txtCols_Change() { takeSize(txtCols); }
    void optTW_Click(int index);
    void txtTableWidth_Change();
    void txtBgColor_DblClick();
    void chkTblCenter_Click() { table_.isCentered = chkTblCenter.value(); }
    void txtCellSpacing_Change() { takeNumber(txtCellSpacing, table_.cellSpacing); }
    void txtCellPadding_Change() { takeNumber(txtCellPadding, table_.cellPadding); }
    void txtBorderSize_Change() { takeNumber(txtBorderSize, table_.borderSize); }
    void grid1_Click();
    void cboAlign_Click() { cell().align = cboAlign.listIndex() + 1; }
    void cboValign_Click() { cell().valign = cboValign.listIndex() + 1; }
    void txtCellBgColor_Change() { cell().setBgColor(txtCellBgColor.text()); }
    void txtCellBgColor_DblClick();
    void txtCellText_Change();
    void mnuTableWiz_datetime_Click();
    void mnuTableWiz_image_Click();
    template <typename Tool>
    void showTool();

    void fillAlignments();
    void showFrame(int index);
    void moveFrame(Direction direction);
    void deactivateFrames();
    void checkButtons();
    void takeSize(TextBox& field);
    void takeNumber(TextBox& field, int& number);
    Size sizeInFields() const;
    /// Has the cells built anew when the size in the fields is another one and the user agrees.
    void takeChangedSize();
    /// The first cells, of the size in the fields, and a table that has no colour and no width.
    void initTable();
    /// Lets events run; the form is disabled meanwhile.
    void buildCells(Size size);
    /// Inserts the table into the document and ends the form.
    void finish();
    /// The current cell; without one an error 9.
    TableCell& cell();
    /// Shows the grid's current cell in the fields.
    void loadCell();

    int frameIndex_ = -1;
    std::optional<TableCells> cells_;  ///< none before they are built
    TableAttributes table_;
    htmlkeys keys_;
};

/// Shows the wizard over the selection of the active document.
void mnuInsert_TableWiz_Click();

}  // namespace kelvor
