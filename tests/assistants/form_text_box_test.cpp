// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_text_box.h"

#include "assistants/form_text_area.h"
#include "tests/kit/messages.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using FormTextBoxDialog = SelectionTest;

TEST_F(FormTextBoxDialog, EachButtonShowsItsFieldsItsPageAndWritesItsTag) {
    menu("mnuToolBars_forms").click();
    const struct {
        const char* button;
        const char* caption;
        bool hasName;
        bool hasSizes;
        const char* page;
        const char* written;  ///< with a value alone, which two of them cannot do without
    } rows[] = {{"form_hidden", "Hidden Field", true, false, "52", R"(<INPUT TYPE="HIDDEN" VALUE="v">)"},
                {"form_reset", "Reset Button", false, false, "54", R"(<INPUT TYPE="RESET" VALUE="v">)"},
                {"form_text", "Textbox", true, true, "46", R"(<INPUT TYPE="TEXT" VALUE="v">)"},
                {"form_button", "Button", true, false, "55", R"(<INPUT TYPE="BUTTON" VALUE="v">)"},
                {"form_pw", "Password Field", true, true, "53", R"(<INPUT TYPE="PASSWORD" VALUE="v">)"},
                {"form_submit", "Submit", true, false, "56", R"(<INPUT TYPE="SUBMIT" VALUE="v">)"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.button);
        platform.expectModal([&, this](Form& shown) {
            auto& form = dynamic_cast<FormTextBox&>(shown);
            EXPECT_EQ(form.caption(), row.caption);
            for (const Control* part : std::initializer_list<Control*>{&form.lblName, &form.txtName})
                EXPECT_EQ(part->visible(), row.hasName);
            for (const Control* part : std::initializer_list<Control*>{&form.lblMaxLen, &form.txtMaxLen, &form.UpDown1,
                                                                       &form.lblSize, &form.txtSize, &form.UpDown2})
                EXPECT_EQ(part->visible(), row.hasSizes);
            EXPECT_EQ(disabledIn(form).empty(), row.hasName && row.hasSizes);
            form.cmdHelp.click();
            EXPECT_TRUE(platform.helpPages.back().ends_with(row.page + std::string(".html")));
            if (form.caption() == "Submit" || form.caption() == "Reset Button") {
                platform.expectMessage(exclamation("All fields must be filled in prior to insertion.", "Empty fields"));
                form.cmdInsert.click();
            }
            form.txtValue.type("v");
            form.cmdInsert.click();
            EXPECT_FALSE(form.isLoaded());
        });
        EXPECT_EQ(after([&] { mainForm().Toolbar3.click(row.button); }), "a" + std::string(row.written) + "[]c Text1");
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
