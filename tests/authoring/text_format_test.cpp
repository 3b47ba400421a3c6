#include "authoring/text_format.h"

#include "authoring/common.h"
#include "platform/text_buffer.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

TEST(FormattedText, HasTheTagsInTheOrderOfNesting) {
    const std::pair<TextFormatting, const char*> rows[] = {
        {{.text = "a\r\nb"}, "a\r\nb"},
        {{.text = "x", .size = "-1"}, "<FONT SIZE=\"-1\">x</FONT>"},
        {{.text = "x", .fontChosen = true}, "<FONT>x</FONT>"},
        {{.text = "x",
          .alignment = TextAlignment::right,
          .attributes = {true, true, true, true, true, true, true, true, true}},
         "<STRIKE><SMALL><BIG><SUB><SUP><BLINK><U><I><B><DIV ALIGN=\"RIGHT\">x</DIV></B></I></U></BLINK></SUP></SUB>"
         "</BIG></SMALL></STRIKE>"},
    };
    for (const auto& [formatting, result] : rows) EXPECT_EQ(formattedText(formatting), result);
}

struct TextFormatDialog : FrameFixture {
    TextFormatDialog() { loadFontList(); }

    /// Runs the command; `steps` are the user's in the dialog, which ends with the press of Insert.
    void run(const std::function<void(TextFormat&)>& steps) {
        platform.expectModal([&](Form& form) {
            steps(dynamic_cast<TextFormat&>(form));
            dynamic_cast<TextFormat&>(form).cmdInsert.click();
            EXPECT_FALSE(form.isLoaded());
        });
        mnuFormatText_Quick_Click();
    }

    EditControl& text = openText("a.htm", "one two").Text1;
};

TEST_F(TextFormatDialog, TakesTheSelectionAndEachControlsChoice) {
    text.setSelLength(3);
    run([](TextFormat& form) { form.rtbUserText.SetFocus(); });
    EXPECT_EQ(text.text(), "one two");
    EXPECT_EQ(text.selStart(), 3);
    run([this](TextFormat& form) {
        for (const auto& [button, title] :
             {std::pair{&form.cmdInsert, "No text error"}, {&form.Command1, "Color change error"}}) {
            platform.expectMessage(
                {.text = "You must enter some text first.", .title = title, .icon = MessageIcon::exclamation});
            button->click();
        }
        dynamic_cast<TextBuffer&>(form.rtbUserText).press('I', 2);
        form.rtbUserText.SetFocus();
        EXPECT_EQ(form.rtbUserText.selText(), "<I></I>");
        for (const int row : {0, 2, 0, 1}) form.cboFont.choose(row);
        form.cboFontSize.choose(9);
        for (const auto& color : {std::optional(0xFF), {}}) {
            platform.expectColor(color);
            form.Command1.click();
        }
        EXPECT_EQ(form.lblFontCol.backColor(), 0xFF);
        EXPECT_EQ(form.rtbUserText.selColor(), 0xFF);
        form.optAlign[1].click();
        for (CheckBox* box : {&form.chkItalic, &form.chkSubscript, &form.chkStruck}) box->click();
    });
    EXPECT_EQ(text.text(),
              "one<STRIKE><SUB><I><CENTER><FONT COLOR=\"#FF0000\" SIZE=\"+2\" FACE=\"Courier, Times\"><I></I></FONT>"
              "</CENTER></I></SUB></STRIKE> two");
}

TEST_F(TextFormatDialog, ServesTheTableWizardsCell) {
    Form wizard("frmTableWiz", "Table Wizard");
    TextBuffer cell(wizard, "txtCellText");
    cell.setText("cell");
    cell.selectAll();
    setDeliveryTarget("frmTableWiz", &cell);
    setActiveFormName("frmTableWiz");
    run([](TextFormat& form) {
        form.cboFont.choose(2);
        form.chkBold.click();
    });
    EXPECT_EQ(cell.text(), "<B><FONT>cell</FONT></B>");
    EXPECT_EQ(text.text(), "one two");
}

}  // namespace
}  // namespace kelvor
