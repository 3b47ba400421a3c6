// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_text_box.h"

#include "assistants/form_text_area.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using FormTextBoxDialog = SelectionTest;

TEST_F(FormTextBoxDialog, EachButtonShowsItsFieldsItsPageAndWritesItsTag) {
    menu("mnuToolBars_forms").click();
    // What is written has a value alone, which two of them cannot do without.
    for (const auto& [button, disabled, page, written] :
         {std::tuple{"form_hidden", "lblMaxLen txtMaxLen UpDown1 lblSize txtSize UpDown2 ", "52", "HIDDEN"},
          {"form_reset", "lblName txtName lblMaxLen txtMaxLen UpDown1 lblSize txtSize UpDown2 ", "54", "RESET"},
          {"form_text", "", "46", "TEXT"},
          {"form_button", "lblMaxLen txtMaxLen UpDown1 lblSize txtSize UpDown2 ", "55", "BUTTON"},
          {"form_pw", "", "53", "PASSWORD"},
          {"form_submit", "lblMaxLen txtMaxLen UpDown1 lblSize txtSize UpDown2 ", "56", "SUBMIT"}}) {
        SCOPED_TRACE(button);
        platform.expectModal([&, disabled = disabled, page = page](Form& shown) {
            auto& form = dynamic_cast<FormTextBox&>(shown);
            EXPECT_EQ(disabledIn(form), disabled);
            for (const Control* control : form.controls()) EXPECT_EQ(control->visible(), control->enabled());
            form.cmdHelp.click();
            EXPECT_TRUE(platform.helpPages.back().ends_with(page + std::string(".html")));
            if (form.caption() == "Submit" || form.caption() == "Reset Button") {
                platform.expectMessage(exclamation("All fields must be filled in prior to insertion.", "Empty fields"));
                form.cmdInsert.click();
            }
            form.txtValue.type("v");
            form.cmdInsert.click();
        });
        EXPECT_EQ(after([&, &button = button] { mainForm().Toolbar3.click(button); }),
                  "a<INPUT TYPE=\"" + std::string(written) + "\" VALUE=\"v\">[]c Text1");
    }
}

TEST_F(FormTextBoxDialog, AFieldOfSeveralLinesHasTheKeysForTags) {
    const auto insert = inDialog<FormTextArea>(showFormTextArea, [](FormTextArea& form) {
        form.txtName.type("n");
        form.txtRows.type("4x.");
        form.txtCols.type("");
        form.txtValue.setText("one");
        form.txtValue.gotFocus.raise();
        dynamic_cast<TextBuffer&>(form.txtValue).press('I', modifier::ctrl);
        form.cmdInsert.click();
    });
    EXPECT_EQ(after(insert), "a<TEXTAREA NAME=\"n\" ROWS=\"4.\" COLS=\"\"><I>one</I></TEXTAREA>[]c Text1");
}

}  // namespace
}  // namespace kelvor
