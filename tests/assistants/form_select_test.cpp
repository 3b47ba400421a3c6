// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_select.h"

#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using FormSelectDialog = SelectionTest;

void add(FormSelect& form, const std::string& description, const std::string& value) {
    form.txtDescripName.type(description);
    form.txtValue.type(value);
    form.cmdAddOption.click();
}

TEST_F(FormSelectDialog, EachButtonWritesItsGroup) {
    menu("mnuToolBars_forms").click();
    for (const auto& [button, label, page, written] :
         {std::tuple{"form_check", "Checkbox &value:", "48", "<INPUT TYPE=\"CHECKBOX\" VALUE=\"1\">One</INPUT>\r\n"},
          {"form_select", "Option &Value:", "50", "<SELECT>\r\n\t<OPTION VALUE=\"1\">One</OPTION>\r\n</SELECT>"},
          {"form_radio", "Radio button &value:", "49", "<INPUT TYPE=\"RADIO\" VALUE=\"1\">One</INPUT>\r\n"}}) {
        platform.expectModal([&, label = label, page = page](Form& shown) {
            auto& form = dynamic_cast<FormSelect&>(shown);
            EXPECT_EQ(form.lblValue.caption(), label);
            form.cmdHelp.click();
            EXPECT_TRUE(platform.helpPages.back().ends_with(page + std::string(".html")));
            add(form, "One", "1");
            form.Command1.click();
        });
        EXPECT_EQ(after([&, &button = button] { mainForm().Toolbar3.click(button); }),
                  "a" + std::string(written) + "[]c Text1");
    }
}

TEST_F(FormSelectDialog, OneDefaultCanBeSetUntilItIsCleared) {
    const auto act = inDialog<FormSelect>(
        [] { showFormSelect("Select group"); },
        [this](FormSelect& form) {
            const auto look = [&form] { return std::string(form.chkDefault.value() ? "x" : "-") + disabledIn(form); };
            EXPECT_EQ(look(), "-cmdClearOption cmdClearAll ");
            platform.expectBox("Missing form control data");
            form.Command1.click();
            platform.expectMessage(exclamation("All fields must be filled in prior to insertion.", "Empty fields"));
            add(form, "One", "");
            form.chkDefault.click();
            add(form, "One", "1");
            EXPECT_EQ(form.txtDescripName.text() + form.txtValue.text() + platform.focused, "txtDescripName");
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
    EXPECT_EQ(after(act), "a[b]c Text1");
}

}  // namespace
}  // namespace kelvor
