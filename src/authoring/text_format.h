// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_control.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/option_group.h"
#include "controls/text_box.h"
#include "editing/htmlkeys.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Marks up a text by what the user ticks and chooses, with no tag typed by hand.
class TextFormat : public ToolDialog {
public:
    TextFormat();

    Frame frameAttributes{*this, "frameAttributes", "Attributes"};
    CheckBox chkBold{*this, "chkBold", "&Bold"};
    CheckBox chkItalic{*this, "chkItalic", "I&talic"};
    CheckBox chkUnderline{*this, "chkUnderline", "&Underline"};
    CheckBox chkBlink{*this, "chkBlink", "Blinking"};
    CheckBox chkSuperscript{*this, "chkSuperscript", "Su&perscript"};
    CheckBox chkSubscript{*this, "chkSubscript", "&Subscript"};
    CheckBox chkBig{*this, "chkBig", "Bi&g"};
    CheckBox chkSmall{*this, "chkSmall", "S&mall"};
    CheckBox chkStruck{*this, "chkStruck", "Struck through"};
    Frame frameAlignment{*this, "frameAlignment", "Alignment"};
    OptionGroup optAlign{*this, "optAlign", {"&None", "C&enter", "&Right"}};
    Frame frameFont{*this, "frameFont", "Font Tag Construction"};
    ComboBox cboFont{*this, "cboFont", ComboBox::Style::dropDownList, {.clicked = &TextFormat::cboFont_Click}};
    TextBox txtFonts{*this, "txtFonts"};
    ComboBox cboFontSize{*this, "cboFontSize"};
    Button Command1{*this, "Command1", "Font Color", &TextFormat::Command1_Click};
    Label lblFontCol{*this, "lblFontCol", "(n/a)"};
    EditControl& rtbUserText{addEditControl("rtbUserText")};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &TextFormat::cmdInsert_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &TextFormat::showHelp};
    Button cmdClose{*this, "cmdClose", "&Close", &TextFormat::unload};

private:
    void Form_Load() override;
    void fillComboBoxes();
    void cboFont_Click();
    void Command1_Click();
    void cmdInsert_Click();
    /// Delivers the text with its tags.
    void buildFormattedString();

    htmlkeys keys_;
};

/// Shows the dialog over the selection.
void mnuFormatText_Quick_Click();

enum class TextAlignment { none, center, right };

/// What the dialog's controls say.
struct TextFormatting {
    std::string text;
    bool fontChosen = false;  ///< the list of fonts shows another row than its first one
    std::string color;        ///< "#RRGGBB", "" for none
    std::string size;         ///< "" for none
    std::string faces;        ///< font names with ", " between them
    TextAlignment alignment = TextAlignment::none;
    std::array<bool, 9> attributes{};  ///< in the order of the check boxes, the innermost tag first
};

/// The text in the tags asked for, each value as it stands; without any, the text alone. A font that was only chosen
/// gives a tag without attributes.
std::string formattedText(const TextFormatting& formatting);

}  // namespace kelvor
