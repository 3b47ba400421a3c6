// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/image_assistant.h"

#include <exception>
#include <string_view>

#include "authoring/links.h"
#include "base/event.h"
#include "base/int16.h"
#include "editing/insertion.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "html/image_tag.h"
#include "platform/platform.h"
#include "support/help_pages.h"
#include "support/html_help.h"
#include "support/report_error.h"
#include "text/typed_number.h"

namespace kelvor {

namespace {

constexpr const char* inputMode = "1";

enum Unit { pixels, percent };

constexpr int mostPixels = 2500;
constexpr int mostPercent = 100;

constexpr const char* alignments[] = {"- No Alignment -", "ABSBOTTOM", "ABSMIDDLE", "BASELINE", "BOTTOM", "LEFT",
                                      "MIDDLE",           "RIGHT",     "TEXTTOP",   "TOP"};

const Message noImageName = {.text = "You must select an image file first.",
                             .title = "No image file selected.",
                             .icon = MessageIcon::exclamation};

void reportFailedPicture(const Error& error, const std::string& path) {
    if (error.number() != error_number::invalidPicture) return reportError(error);
    beepAndShow({.text = path + " is not a valid image file.",
                 .title = "Invalid file format",
                 .icon = MessageIcon::exclamation});
}

/// Gives a field the range of its unit: the natural size in pixels, or 100 percent at the most.
void takeUnit(UpDown& spinner, int unit, int natural) {
    TextBox& field = spinner.buddy();
    spinner.setMaximum(unit == percent ? mostPercent : mostPixels);
    if (unit == pixels) return field.setText(std::to_string(natural));
    if (!textBoxEmpty(field) && typedNumber(field.text()) > mostPercent) field.setText(std::to_string(mostPercent));
}

/// What of a picture does not fit its frame is to be scrolled.
void fitBar(ScrollBar& bar, int picture, int frame) {
    bar.setMaximum(picture - frame);
    bar.setLargeChange(frame);
}

}  // namespace

ImageAssistant::ImageAssistant() : ToolDialog("frmImage", "Image Assistant") {
    for (OptionGroup* unit : {&Option1, &Option2}) unit->select(pixels);
    // Without a picture there is no size.
    for (TextBox* extent : {&txtWidth, &txtHeight}) extent->setText("");
    for (TextBox* number : {&txtBorder, &txtHspace, &txtVspace}) number->setKeys(keys::number);
    for (Control* part : std::initializer_list<Control*>{&lblValue, &txtValue, &HScroll1, &VScroll1})
        part->setVisible(false);
    txtValue.setEnabled(false);
    lblValue.setUseMnemonic(true);
    selectThemselves(txtAlt);
}

void ImageAssistant::Form_Load() {
    showValueField();
    populateListBox();
}

void ImageAssistant::Form_Activate() {
    showValueField();
}

void ImageAssistant::Form_Unload() {
    Tag.clear();
}

void ImageAssistant::showValueField() {
    if (Tag != inputMode) return;
    for (Control* part : std::initializer_list<Control*>{&lblValue, &txtValue}) part->setVisible(true);
    setAllEnabled({&lblValue, &txtValue}, true);
}

void ImageAssistant::populateListBox() {
    for (const char* alignment : alignments) cboAlign.addItem(alignment);
    cboAlign.setListIndex(0);
}

void ImageAssistant::cmbBrowse_Click() {
    const auto path = pickPicture();
    if (!path) return;
    try {
        takePicture(*path);
    } catch (const std::exception&) {
        reportFailedPicture(currentError(), *path);
        txtImageName.setText("");
    }
}

void ImageAssistant::takePicture(const std::string& path) {
    const Hourglass hourglass;
    txtImageName.setText(linkTarget(path));
    Picture1.setPicture(platform().screen.loadPicture(path));
    for (ScrollBar* bar : {&HScroll1, &VScroll1}) bar->setValue(0);
    setPicAttributes();
    txtHeight.setText(std::to_string(picHeight));
    txtWidth.setText(std::to_string(picWidth));
}

void ImageAssistant::setPicAttributes() {
    picHeight = toInt16(Picture1.height());
    picWidth = toInt16(Picture1.width());
}

void ImageAssistant::Picture1_Resize() {
    HScroll1.setVisible(Picture1.width() > picFrame.width());
    VScroll1.setVisible(Picture1.height() > picFrame.height());
    fitBar(HScroll1, Picture1.width(), picFrame.width());
    fitBar(VScroll1, Picture1.height(), picFrame.height());
}

void ImageAssistant::HScroll1_Change() {
    Picture1.setLeft(-HScroll1.value());
}

void ImageAssistant::VScroll1_Change() {
    Picture1.setTop(-VScroll1.value());
}

void ImageAssistant::Option1_Click(int unit) {
    takeUnit(UpDown4, unit, picWidth);
}

void ImageAssistant::Option2_Click(int unit) {
    takeUnit(UpDown5, unit, picHeight);
}

void ImageAssistant::cmdInsert_Click() {
    if (!verifyFilename()) return;
    replaceSelectionText(deliveryTarget(), buildImageString());
    unload();
}

bool ImageAssistant::verifyFilename() const {
    if (!textBoxEmpty(txtImageName)) return true;
    beepAndShow(noImageName);
    return false;
}

std::string ImageAssistant::buildImageString() const {
    return imageTag({.source = txtImageName.text(),
                     .name = txtName.text(),
                     .description = txtAlt.text(),
                     .width = {txtWidth.text(), Option1.selected() == percent},
                     .height = {txtHeight.text(), Option2.selected() == percent},
                     .horizontalSpace = txtHspace.text(),
                     .verticalSpace = txtVspace.text(),
                     .border = txtBorder.text(),
                     .alignment = cboAlign.listIndex() > 0 ? cboAlign.text() : "",
                     .isInput = Tag == inputMode,
                     .value = txtValue.text()});
}

void ImageAssistant::cmdHelp_Click() {
    showHelpPage(name(), txtValue.enabled() ? imageAsInput : std::string_view());
}

void mnuInsert_Image_Click() {
    auto& form = toolForm<ImageAssistant>();
    form.Tag.clear();
    openToolForm(form, ShowMode::modal);
}

void showImageInput() {
    auto& form = toolForm<ImageAssistant>();
    form.Tag = inputMode;
    openToolForm(form, ShowMode::modal);
}

}  // namespace kelvor
