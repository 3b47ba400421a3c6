// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/table_wizard.h"

#include <algorithm>
#include <string>

#include "assistants/image_assistant.h"
#include "assistants/link_manager.h"
#include "authoring/date_time.h"
#include "authoring/special_character_insertion.h"
#include "authoring/tags.h"
#include "authoring/text_format.h"
#include "base/error.h"
#include "base/int16.h"
#include "batch/script_assistant.h"
#include "controls/mouse_press.h"
#include "editing/insertion.h"
#include "frame/color_dialog.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/fields.h"
#include "text/typed_number.h"

namespace kelvor {

namespace {

/// Indices of Frame2.
constexpr int structurePage = 0;
constexpr int propertiesPage = 1;
constexpr int cellsPage = 2;

/// Indices of Command1.
enum : std::size_t { nextButton, backButton, cancelButton, finishButton };

/// Rows, and columns too.
constexpr int largestSize = 250;
constexpr int largestPercentage = 100;
constexpr int largestPixels = 2000;
constexpr int largestNumber = 32767;

const Message destroyQuestion = {.text =
                                     "Assigning new row or column values will destroy the existing table cell data.\r\n"
                                     "Do you wish to continue?",
                                 .title = "Destroy Cells Confirmation",
                                 .icon = MessageIcon::question,
                                 .buttons = MessageButtons::yesNo};

int integerIn(const TextBox& field) {
    return toInt16(typedNumber(field.text()));
}

void limitNumber(TextBox& field, int largest) {
    if (typedNumber(field.text()) > largest) field.setText(std::to_string(largest));
}

/// As far as the buttons go by it; what else is no number is an error only when it is used.
bool holdsSize(const TextBox& field) {
    return !textBoxEmpty(field) && !field.text().starts_with('0');
}

}  // namespace

template <typename Tool>
void TableWizard::showTool() {
    openToolForm(toolForm<Tool>(), ShowMode::modal);
}

TableWizard::TableWizard() : ToolDialog("frmTableWiz", "Table Wizard") {
    for (TextBox* field : {&txtRows, &txtCols, &txtTableWidth, &txtBorderSize, &txtCellSpacing, &txtCellPadding})
        field->setKeys(keys::number);
    for (TextBox* field : {&txtBorderSize, &txtCellSpacing, &txtCellPadding}) field->setToolTip("Ranges 1 - 500");
    for (TextBox* field : {&txtBgColor, &txtCellBgColor}) field->setToolTip("Double click to access the color palette");
    txtTableWidth.setToolTip("Ranges 0 - 100%");
    optTW.select(static_cast<int>(TableWidth::ignored));
    selectThemselves(txtRows, txtCols, txtTableWidth, txtBgColor, txtCellSpacing, txtCellPadding, txtBorderSize,
                     txtCellBgColor, txtCellText);
    for (std::size_t index = 0; index < Command1.size(); ++index)
        Command1[index].clicked.connect([this, index] { Command1_Click(index); });
    txtCellText.mouseDown.connect([this](const MousePress& press) {
        if (press.button == MousePress::right) platform().windows.popupMenu(mnuTableWiz);
    });
    mnuTableWiz.makePopup();
}

void TableWizard::Form_Load() {
    keys_.setHookedRTB(&txtCellText);
    setActiveFormName(name());
    setDeliveryTarget(name(), &txtCellText);
    fillAlignments();
    moveFrame(Direction::forward);
}

void TableWizard::Form_Unload() {
    setActiveFormName(std::string(documentForm));
    setDeliveryTarget(name(), nullptr);
    keys_.setHookedRTB(nullptr);
}

void TableWizard::fillAlignments() {
    for (const auto name : alignNames) cboAlign.addItem(std::string(name));
    for (const auto name : valignNames) cboValign.addItem(std::string(name));
}

void TableWizard::Command1_Click(std::size_t index) {
    // While events run only the keyboard and the mouse are kept from the form.
    if (!enabled()) return;
    if (index == nextButton) moveFrame(Direction::forward);
    if (index == backButton) moveFrame(Direction::back);
    if (index == cancelButton) unload();
    if (index != finishButton) return;
    if (!cells_) initTable();
    finish();
}

void TableWizard::moveFrame(Direction direction) {
    if (frameIndex_ == structurePage) cells_ ? takeChangedSize() : initTable();
    deactivateFrames();
    frameIndex_ += static_cast<int>(direction);
    checkButtons();
    showFrame(frameIndex_);
}

void TableWizard::deactivateFrames() {
    for (std::size_t index = 0; index < Frame2.size(); ++index) Frame2[index].setVisible(false);
}

void TableWizard::checkButtons() {
    Command1[backButton].setEnabled(frameIndex_ > structurePage);
    const bool hasSize = holdsSize(txtRows) && holdsSize(txtCols);
    if (frameIndex_ == structurePage) Command1[finishButton].setEnabled(hasSize);
    Command1[nextButton].setEnabled(frameIndex_ == propertiesPage || (frameIndex_ == structurePage && hasSize));
}

void TableWizard::showFrame(int index) {
    Frame2[static_cast<std::size_t>(index)].setVisible(true);
    if (index == structurePage) txtRows.SetFocus();
    if (index == propertiesPage) optTW[static_cast<std::size_t>(optTW.selected())].SetFocus();
    if (index != cellsPage) return;
    grid1.setRows(cells_->rows());
    grid1.setCols(cells_->columns());
    grid1.setCol(0);
    grid1.setRow(0);
    grid1_Click();
}

TableWizard::Size TableWizard::sizeInFields() const {
    return {.rows = integerIn(txtRows), .cols = integerIn(txtCols)};
}

void TableWizard::initTable() {
    const Size size = sizeInFields();
    table_.bgColor.clear();
    table_.width = 0;
    table_.widthType = TableWidth::ignored;
    buildCells(size);
}

void TableWizard::takeChangedSize() {
    const std::string rows = std::to_string(cells_->rows());
    const std::string cols = std::to_string(cells_->columns());
    if (txtRows.text() == rows && txtCols.text() == cols) return;
    if (beepAndShow(destroyQuestion) == Answer::yes) return buildCells(sizeInFields());
    txtCols.setText(cols);
    txtRows.setText(rows);
}

void TableWizard::buildCells(Size size) {
    const Hourglass hourglass;
    const DisabledForm disabled(*this);
    grid1.clear();
    cells_ = TableCells(size.rows, size.cols, pumpEvents);
}

void TableWizard::finish() {
    std::string markup;
    {
        const Hourglass hourglass;
        const DisabledForm disabled(*this);
        markup = tableMarkup(table_, *cells_, pumpEvents);
    }
    activeText().setSelText(markup);
    unload();
}

void TableWizard::takeSize(TextBox& field) {
    if (!textBoxEmpty(field)) limitNumber(field, largestSize);
    checkButtons();
}

void TableWizard::takeNumber(TextBox& field, int& number) {
    if (textBoxEmpty(field)) return;
    limitNumber(field, largestNumber);
    number = integerIn(field);
}

void TableWizard::optTW_Click(int index) {
    table_.widthType = static_cast<TableWidth>(index);
    const bool isPercentage = table_.widthType == TableWidth::percentage;
    setAllEnabled({&txtTableWidth, &UpDown1}, table_.widthType != TableWidth::ignored);
    UpDown1.setMaximum(isPercentage ? largestPercentage : largestPixels);
    if (isPercentage) limitNumber(txtTableWidth, largestPercentage);
}

void TableWizard::txtTableWidth_Change() {
    if (textBoxEmpty(txtTableWidth)) return;
    limitNumber(txtTableWidth, table_.widthType == TableWidth::percentage ? largestPercentage : largestPixels);
    table_.width = integerIn(txtTableWidth);
}

void TableWizard::txtBgColor_DblClick() {
    if (chooseColorFor(txtBgColor, "Select an image file")) table_.bgColor = txtBgColor.text();
}

TableCell& TableWizard::cell() {
    if (!cells_) throw Error(error_number::subscriptOutOfRange, "Subscript out of range");
    return cells_->at(grid1.row(), grid1.col());
}

void TableWizard::loadCell() {
    const TableCell shown = cell();
    lblActiveCell.setCaption("C" + std::to_string(grid1.col() + 1) + " : R" + std::to_string(grid1.row() + 1));
    cboAlign.setListIndex(shown.align - 1);
    cboValign.setListIndex(shown.valign - 1);
    // What was done in the cell before is not undone in this one.
    txtCellText.startText(shown.text());
    txtCellBgColor.setText(shown.bgColor());
    showColorSample(shown.bgColor(), txtCellBgColor);
}

void TableWizard::grid1_Click() {
    loadCell();
    txtCellText.SetFocus();
}

void TableWizard::txtCellText_Change() {
    grid1.setText(txtCellText.text());
    cell().setText(grid1.text());
}

void TableWizard::txtCellBgColor_DblClick() {
    // A black one differs from no colour at all.
    if (const auto color = chooseColorFor(txtCellBgColor)) grid1.setBackColor(std::max(*color, 1));
}

void TableWizard::mnuTableWiz_datetime_Click() {
    toolForm<DateTimeDialog>().setHookedRTB(&txtCellText);
    showTool<DateTimeDialog>();
}

void TableWizard::mnuTableWiz_image_Click() {
    mnuInsert_Image_Click();
}

void mnuInsert_TableWiz_Click() {
    openToolForm(toolForm<TableWizard>(), ShowMode::modal);
}

}  // namespace kelvor
