// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "controls/combo_box.h"
#include "controls/label.h"
#include "controls/option_group.h"
#include "controls/picture_box.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "controls/up_down.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Lets the user choose a picture and writes it as an image, or as a form's button.
class ImageAssistant : public ToolDialog {
public:
    ImageAssistant();

    /// "1" for a form's button; set before loading and emptied when the form unloads.
    std::string Tag;
    /// The picture's natural size in pixels.
    std::int16_t picHeight = 0;
    std::int16_t picWidth = 0;

    TextBox txtImageName{*this, "txtImageName"};
    Button cmbBrowse{*this, "cmbBrowse", "&Browse", &ImageAssistant::cmbBrowse_Click};
    TextBox txtAlt{*this, "txtAlt"};
    TextBox txtName{*this, "txtName"};
    TextBox txtWidth{*this, "txtWidth"};
    UpDown UpDown4{*this, "UpDown4", txtWidth, 1, 2500};
    OptionGroup Option1{*this, "Option1", {"Pixles", "Percent"}, &ImageAssistant::Option1_Click};
    TextBox txtHeight{*this, "txtHeight"};
    UpDown UpDown5{*this, "UpDown5", txtHeight, 1, 2500};
    OptionGroup Option2{*this, "Option2", {"Pixles", "Percent"}, &ImageAssistant::Option2_Click};
    TextBox txtVspace{*this, "txtVspace", "0"};
    UpDown UpDown3{*this, "UpDown3", txtVspace, 0, 100};
    TextBox txtHspace{*this, "txtHspace", "0"};
    UpDown UpDown2{*this, "UpDown2", txtHspace, 0, 100};
    TextBox txtBorder{*this, "txtBorder", "0"};
    UpDown UpDown1{*this, "UpDown1", txtBorder, 0, 10};
    ComboBox cboAlign{*this, "cboAlign"};
    Label lblValue{*this, "lblValue", "Va&lue:"};
    TextBox txtValue{*this, "txtValue"};
    PictureBox picFrame{*this, "picFrame", {&ImageAssistant::Picture1_Resize}};
    PictureBox Picture1{*this, "Picture1", {&ImageAssistant::Picture1_Resize}};
    ScrollBar HScroll1{*this, "HScroll1", {&ImageAssistant::HScroll1_Change, &ImageAssistant::HScroll1_Change}};
    ScrollBar VScroll1{*this, "VScroll1", {&ImageAssistant::VScroll1_Change, &ImageAssistant::VScroll1_Change}};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &ImageAssistant::cmdInsert_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &ImageAssistant::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &ImageAssistant::cmdHelp_Click};

private:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void cmbBrowse_Click();
    void Option1_Click(int unit);
    void Option2_Click(int unit);
    void Picture1_Resize();
    void HScroll1_Change();
    void VScroll1_Change();
    void cmdInsert_Click();
    void cmdHelp_Click();

    void populateListBox();
    void showValueField();
    /// Names and shows the picture of a file and enters its size.
    void takePicture(const std::string& path);
    void setPicAttributes();
    /// Whether a file was chosen; the user has been told otherwise.
    bool verifyFilename() const;
    std::string buildImageString() const;
};

/// The dialog for an image.
void mnuInsert_Image_Click();
/// The dialog for a form's button with a picture.
void showImageInput();

}  // namespace kelvor
