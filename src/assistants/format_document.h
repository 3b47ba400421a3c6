// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/control_array.h"
#include "controls/frame.h"
#include "controls/tab_control.h"
#include "controls/text_box.h"
#include "frame/tool_dialog.h"
#include "html/head_tags.h"
#include "html/no_value.h"

namespace kelvor {

/// The head of the document in front and its BODY tag as fields, which are read when it opens and written back when it
/// is finished.
class FormatDocument : public ToolDialog {
public:
    FormatDocument();

    TabControl SSTab1{*this, "SSTab1", {"&General", "&Meta Data"}};
    TextBox txtTitle{*this, "txtTitle"};
    TextBox txtBgGraphic{
        *this, "txtBgGraphic", std::string(noneNamed), {.doubleClicked = &FormatDocument::txtBgGraphic_DblClick}};
    TextBox txtOnLoad{*this, "txtOnLoad", std::string(noneNamed)};
    ComboBox cboBaseFont{*this, "cboBaseFont", ComboBox::Style::editable};
    Frame frmColors{*this, "frmColors", "Document Colors"};
    /// In the order of the colours among the attributes of the tag.
    ControlArray<TextBox> txtColor{*this, "txtColor", std::vector<std::string>(5, std::string(notAvailable))};
    TextBox txtMetaK{*this, "txtMetaK"};
    TextBox txtMetaA{*this, "txtMetaA"};
    TextBox txtMetaG{*this, "txtMetaG", "Kelvor 32 bit HTML editor"};
    TextBox txtMetaD{*this, "txtMetaD"};
    TextBox txtDelay{*this, "txtDelay"};
    TextBox txtTarget{*this, "txtTarget"};
    CheckBox chkCache{*this, "chkCache", "This document should never be cached."};
    Button cmdFinished{*this, "cmdFinished", "&Finished", &FormatDocument::cmdFinished_Click};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", &FormatDocument::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FormatDocument::showHelp};

private:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override { cancel = !enabled(); }
    void Form_Unload() override;
    void txtBgGraphic_DblClick();
    void cmdFinished_Click();

    void extractMetaA();
    void extractMetaG();
    void extractMetaR();
    void extractBody();
    void extractTitle();
    void extractBaseFont();
    /// The value of a tag of the document; one that is not closed is told, and the dialog does not come up.
    std::string valueOf(const TagTokens& tag) const;
    void showBody(const BodyAttributes& values);

    Redirect redirect() const { return {.delay = txtDelay.text(), .target = txtTarget.text()}; }
    bool checkMetaRedirect();
    BodyAttributes bodyAttributes() const;
    /// Puts the fields into the document, as one step back. What was written before an error stays.
    void writeDocument();
    void insertBaseFont();
    void handleMETAC();
};

/// Shows the dialog over the document in front.
void mnuTools_Format_Click();

}  // namespace kelvor
