// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_open.h"

#include "support/settings.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using FormOpenDialog = SelectionTest;

TEST_F(FormOpenDialog, TheCaretStandsBetweenTheTagsAndFiveActionsAreKept) {
    const auto send = [this](const std::string& action, const std::string& offered) {
        return after(inDialog<FormOpen>(showFormOpen, [&, this](FormOpen& form) {
            std::string actions;
            for (const std::string& row : form.cboAction.list()) actions += row + " ";
            EXPECT_EQ(actions + form.cboAction.text(), offered);
            platform.expectMessage(exclamation("The form must have an action.", "Empty action field"));
            form.cmdInsert.click();
            EXPECT_EQ(platform.focused, "cboAction");
            form.cboAction.type(action);
            form.cboMethod.choose(action == "2" ? 1 : 0);
            form.txtName.type(action == "2" ? "n" : "");
            form.cmdInsert.click();
        }));
    };
    EXPECT_EQ(send("1", ""), "a<FORM METHOD=\"POST\" ACTION=\"1\">\r\n[]\r\n</FORM>c Text1");
    EXPECT_EQ(send("2", "1 "), "a<FORM NAME=\"n\" METHOD=\"GET\" ACTION=\"2\">\r\n[]\r\n</FORM>c Text1");
    send("2", "2 1 ");
    send("3", "2 2 1 ");
    send("4", "3 2 2 1 ");
    send("5", "4 3 2 2 1 ");
    EXPECT_EQ(GetSetting(application, "formActions", "action4"), "2");
    EXPECT_EQ(GetAllSettings(application, "formActions")->size(), 5U);
}

}  // namespace
}  // namespace kelvor
