// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_select.h"

#include "tests/kit/messages.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

class FormSelectDialog : public SelectionTest {
protected:
    /// Adds a choice and looks at the one box for the default and the buttons that clear.
    static void add(FormSelect& form, const std::string& description, const std::string& value) {
        form.txtDescripName.type(description);
        form.txtValue.type(value);
        form.cmdAddOption.click();
        EXPECT_EQ(form.txtDescripName.text() + form.txtValue.text(), "");
    }
};

TEST_F(FormSelectDialog, EachButtonWritesItsGroup) {
    menu("mnuToolBars_forms").click();
    const struct {
        const char* button;
        const char* caption;
        const char* labels;
        const char* page;
        const char* written;
    } rows[] = {{"form_check", "Checkbox group", "Checkbox group &name:Checkbox &description:Checkbox &value:", "48",
                 "<INPUT TYPE=\"CHECKBOX\" VALUE=\"1\">One</INPUT>\r\n"},
                {"form_select", "Select group", "Select &Name:Option &Description:Option &Value:", "50",
                 "<SELECT>\r\n\t<OPTION VALUE=\"1\">One</OPTION>\r\n</SELECT>"},
                {"form_radio", "Radio button group",
                 "Radio button group &name:Radio button &description:Radio button &value:", "49",
                 "<INPUT TYPE=\"RADIO\" VALUE=\"1\">One</INPUT>\r\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.button);
        platform.expectModal([&, this](Form& shown) {
            auto& form = dynamic_cast<FormSelect&>(shown);
            EXPECT_EQ(form.caption(), row.caption);
            EXPECT_EQ(form.lblControlName.caption() + form.lblDescripName.caption() + form.lblValue.caption(),
                      row.labels);
            form.cmdHelp.click();
            EXPECT_TRUE(platform.helpPages.back().ends_with(row.page + std::string(".html")));
            platform.expectMessage(
                exclamation("You must include some data for this form control.", "Missing form control data"));
            form.Command1.click();
            add(form, "One", "1");
            form.Command1.click();
        });
        EXPECT_EQ(after([&] { mainForm().Toolbar3.click(row.button); }), "a" + std::string(row.written) + "[]c Text1");
    }
}

TEST_F(FormSelectDialog, OneDefaultCanBeSetUntilItIsCleared) {
    menu("mnuToolBars_forms").click();
    platform.expectModal([this](Form& shown) {
        auto& form = dynamic_cast<FormSelect&>(shown);
        const auto look = [&form] { return std::string(form.chkDefault.value() ? "x" : "-") + disabledIn(form); };
        EXPECT_EQ(look(), "-cmdClearOption cmdClearAll ");
        platform.expectMessage(exclamation("All fields must be filled in prior to insertion.", "Empty fields"));
        form.txtDescripName.type("One");
        form.cmdAddOption.click();
        form.chkDefault.click();
        add(form, "One", "1");
        EXPECT_EQ(platform.focused, "txtDescripName");
        EXPECT_EQ(look(), "-chkDefault ");
        add(form, "Two", "2");
        EXPECT_EQ(form.lvOptions.cell(0, 2) + form.lvOptions.cell(1, 2), "YesNo");
        form.cmdClearOption.click();
        EXPECT_EQ(look(), "-chkDefault ") << "the last one, which was not the default";
        form.cmdClearOption.click();
        EXPECT_EQ(look(), "-cmdClearOption cmdClearAll ");
        form.chkDefault.click();
        add(form, "Three", "3");
        form.lvOptions.choose(-1, {});
        form.cmdClearOption.click();
        EXPECT_EQ(form.lvOptions.count(), 1);
        form.cmdClearAll.click();
        EXPECT_EQ(look(), "-cmdClearOption cmdClearAll ");
        form.cmdCancel.click();
    });
    EXPECT_EQ(after([] { mainForm().Toolbar3.click("form_select"); }), "a[b]c Text1");
}

}  // namespace
}  // namespace kelvor
