// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/text_format.h"

#include "editing/insertion.h"
#include "frame/color_dialog.h"
#include "frame/tool_forms.h"
#include "html/colors.h"
#include "html/no_value.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/fields.h"

namespace kelvor {

namespace {

/// The tags of the check boxes, in their order.
constexpr std::string_view attributeTags[] = {"B", "I", "U", "BLINK", "SUP", "SUB", "BIG", "SMALL", "STRIKE"};

void tellNoText(const std::string& title) {
    beepAndShow({.text = "You must enter some text first.", .title = title, .icon = MessageIcon::exclamation});
}

std::string wrapped(std::string_view tag, const std::string& text) {
    return "<" + std::string(tag) + ">" + text + "</" + std::string(tag) + ">";
}

std::string inFontTag(const TextFormatting& formatting) {
    std::string tag = "<FONT";
    if (!formatting.color.empty()) tag += " COLOR=\"" + formatting.color + "\"";
    if (!formatting.size.empty()) tag += " SIZE=\"" + formatting.size + "\"";
    if (!formatting.faces.empty()) tag += " FACE=\"" + formatting.faces + "\"";
    return tag + ">" + formatting.text + "</FONT>";
}

}  // namespace

TextFormat::TextFormat() : ToolDialog("textFormat", "Quick Text Format") {
    // "(n/a)" comes before all names and shows at first.
    cboFont.setSorted(true);
    selectThemselves(txtFonts, rtbUserText);
}

void TextFormat::Form_Load() {
    keys_.setHookedRTB(&rtbUserText);
    if (activeFormName == documentForm || deliversToTableWizard()) rtbUserText.setText(deliveryTarget().selText());
    fillComboBoxes();
}

void TextFormat::fillComboBoxes() {
    fillSizeCombo(cboFontSize, true);
    optAlign.select(0);
    fillFontCombo(cboFont, true);
}

void TextFormat::cboFont_Click() {
    const std::string& font = cboFont.text();
    if (font == notAvailable) return txtFonts.setText("");
    txtFonts.setText(txtFonts.text().empty() ? font : txtFonts.text() + ", " + font);
}

void TextFormat::Command1_Click() {
    if (rtbUserText.textLength() == 0) return tellNoText("Color change error");
    const auto color = chooseColor();
    if (!color) return;
    selectAllOf(rtbUserText);
    rtbUserText.setSelColor(*color);
    // What is selected shows the colours of the selection.
    rtbUserText.setSelLength(0);
    lblFontCol.setCaption("#" + colorToHtml(*color));
    lblFontCol.setBackColor(*color);
    lblFontCol.setForeColor(legibleOn(*color));
}

void TextFormat::cmdInsert_Click() {
    if (rtbUserText.textLength() == 0) return tellNoText("No text error");
    buildFormattedString();
    unload();
}

void TextFormat::buildFormattedString() {
    const std::string& color = lblFontCol.caption();
    const bool sizeChosen = cboFontSize.listIndex() != noSizeRow;
    replaceSelectionText(deliveryTarget(),
                         formattedText({.text = rtbUserText.text(),
                                        .fontChosen = cboFont.listIndex() != 0,
                                        .color = color == notAvailable ? "" : color,
                                        .size = sizeChosen ? cboFontSize.text() : "",
                                        .faces = txtFonts.text(),
                                        .alignment = static_cast<TextAlignment>(optAlign.selected()),
                                        .attributes = {chkBold.value(), chkItalic.value(), chkUnderline.value(),
                                                       chkBlink.value(), chkSuperscript.value(), chkSubscript.value(),
                                                       chkBig.value(), chkSmall.value(), chkStruck.value()}}));
}

void mnuFormatText_Quick_Click() {
    openToolForm(toolForm<TextFormat>(), ShowMode::modal);
}

std::string formattedText(const TextFormatting& formatting) {
    const bool fontTag =
        formatting.fontChosen || !formatting.color.empty() || !formatting.size.empty() || !formatting.faces.empty();
    std::string text = fontTag ? inFontTag(formatting) : formatting.text;
    if (formatting.alignment == TextAlignment::center) text = wrapped("CENTER", text);
    if (formatting.alignment == TextAlignment::right) text = "<DIV ALIGN=\"RIGHT\">" + text + "</DIV>";
    for (std::size_t box = 0; box < formatting.attributes.size(); ++box)
        if (formatting.attributes[box]) text = wrapped(attributeTags[box], text);
    return text;
}

}  // namespace kelvor
