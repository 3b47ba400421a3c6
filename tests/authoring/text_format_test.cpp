// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/text_format.h"

#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using TextFormatDialog = SelectionTest;

TEST_F(TextFormatDialog, TheFormatDialogTakesTheSelectionAndEachControlsChoice) {
    const auto act = inDialog<TextFormat>(mnuFormatText_Quick_Click, [this](TextFormat& form) {
        for (const auto& [button, title] :
             {std::pair{&form.cmdInsert, "No text error"}, {&form.Command1, "Color change error"}}) {
            platform.expectMessage(exclamation("You must enter some text first.", title));
            button->click();
        }
        dynamic_cast<TextBuffer&>(form.rtbUserText).press('I', modifier::ctrl);
        dynamic_cast<TextBuffer&>(form.rtbUserText).press('L', modifier::ctrl + modifier::shift);  // a document's alone
        form.rtbUserText.SetFocus();
        EXPECT_EQ(form.rtbUserText.selText(), "<I></I>");
        for (const int row : {1, 0, 1, 2}) form.cboFont.choose(row);
        form.txtFonts.gotFocus.raise();
        EXPECT_EQ(form.txtFonts.selLength(), 14);
        form.cboFontSize.choose(14);
        for (const auto& color : {std::optional(0xFF), {}}) {
            platform.expectColor(color);
            form.Command1.click();
        }
        EXPECT_EQ(form.lblFontCol.backColor(), 0xFF);
        EXPECT_EQ(form.rtbUserText.selColor(), 0xFF);
        form.optAlign[1].click();
        for (CheckBox* box : {&form.chkItalic, &form.chkUnderline, &form.chkSubscript, &form.chkSmall, &form.chkStruck})
            box->click();
        form.cmdInsert.click();
    });
    EXPECT_EQ(after(act, "one[] two"),
              "one<STRIKE><SMALL><SUB><U><I><CENTER><FONT COLOR=\"#FF0000\" SIZE=\"+7\" FACE=\"Courier, Times\">"
              "<I></I></FONT></CENTER></I></U></SUB></SMALL></STRIKE>[] two Text1");
    const auto insert = inDialog<TextFormat>(mnuFormatText_Quick_Click, [](TextFormat& form) {
        form.optAlign[2].click();
        form.cboFont.choose(1);
        form.txtFonts.type("");
        for (CheckBox* box : {&form.chkBold, &form.chkBlink, &form.chkSuperscript, &form.chkBig}) box->click();
        form.cmdInsert.click();
    });
    EXPECT_EQ(after(insert, "[one] two"),
              "<BIG><SUP><BLINK><B><DIV ALIGN=\"RIGHT\"><FONT>one</FONT></DIV></B></BLINK></SUP></BIG>[] two Text1");
}

}  // namespace
}  // namespace kelvor
