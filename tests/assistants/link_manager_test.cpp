// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/link_manager.h"

#include <sqlite3.h>

#include <functional>

#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "support/user_settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Links : public KelvorTest {
protected:
    Links() {
        start();
        user::links.store("b", R"(<A HREF="http://b">B</A>)");
        user::links.store("A", R"(<A HREF="a.htm">A</A>)");
        menu("mnuInsert_Links").click();
    }
    ~Links() override { toolForm<LinkManager>().unload(); }

    LinkManager& form() { return toolForm<LinkManager>(); }
    /// A right press on a row of the list, and the choice of a row of the popup.
    void choose(int row, MenuItem LinkManager::*act) {
        form().ListView1.setSelectedRow(row);
        platform.expectPopup([=, this](MenuItem&) { (form().*act).click(); });
        form().ListView1.mouseDown.raise({MousePress::right});
    }
    void remove(int row, const std::string& label, Answer answer) {
        form().ListView1.setSelectedRow(row);
        platform.expectMessage(deletion("Delete [" + label + "] link?"), answer);
        form().mnuLinkRClick_delete.click();
    }
    void expectRefusal() {
        platform.expectMessage(exclamation("You must enter a label for this link", "Mandatory data"));
        form().cmdAdd.click();
    }
    void expectIllegal(const std::string& character) {
        platform.expectMessage(critical("You have used the " + character +
                                            " character.  This is an illegal character, you must remove it before this "
                                            "operation can be completed.",
                                        "Illegal Character Found!"));
    }
    /// The labels of the list, a blank behind each, and then those of the store.
    std::string labels() {
        std::string texts;
        for (const auto& row : form().ListView1.rows()) texts += row.cells[0] + " ";
        texts += "| ";
        for (const Setting& link : user::links.all().value_or(std::vector<Setting>())) texts += link.key + " ";
        return texts;
    }
};

TEST_F(Links, AreListedInOrderAndGoInOneAfterTheOther) {
    EXPECT_EQ(platform.shownModeless.back(), "linkman owned");
    EXPECT_EQ(labels(), "A b | b A ");
    EXPECT_EQ(form().ListView1.rows()[0].icon, 10);
    form().ListView1.doubleClick(1);
    open("a.htm", "-");
    for (const int row : {1, 0}) form().ListView1.doubleClick(row);
    form().ListView1.pressReturn();
    EXPECT_EQ(activeText().text(), R"(<A HREF="http://b">B</A><A HREF="a.htm">A</A><A HREF="a.htm">A</A>-)");
    form().unload();
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(Links, ANewOneIsRefusedOrStoredUnderItsLabel) {
    form().SSTab1.choose(1);
    EXPECT_EQ(form().lblFullLink.caption() + platform.focused, "(No data entered)txtLabel");
    expectRefusal();
    form().txtLabel.type("B");
    form().txtAddress.type("x\"");
    form().txtHTMLText.type("<T>");
    for (const char* character : {">", "<"}) expectIllegal(character);
    form().cmdAdd.click();
    EXPECT_EQ(platform.focused, "txtHTMLText");
    form().txtHTMLText.type("T");
    expectIllegal("\"");
    form().cmdAdd.click();
    EXPECT_EQ(platform.focused, "txtAddress");
    form().cboType.choose(3);
    form().txtAddress.type("x");
    EXPECT_EQ(form().lblFullLink.caption(), R"(<A HREF="mailto:x">T</A>)");
    form().cmdAdd.click();
    EXPECT_EQ(platform.beeps, 4);
    // The store takes both labels for one, and the list has a second row until it is read again.
    EXPECT_EQ(labels(), "A b B | b A ");
    EXPECT_EQ(form().ListView1.rows()[2].icon, 4);
    EXPECT_EQ(form().txtLabel.text() + form().lblFullLink.caption(), "(No data entered)");
    form().SSTab1.choose(0);
    remove(0, "A", Answer::no);
    user::links.store("b", "");
    remove(1, "b", Answer::yes);
    remove(1, "B", Answer::yes);
    EXPECT_EQ(labels(), "A | A ");
}

TEST_F(Links, AnEditTakesTheOldOneAwayOnceEvenWhenItIsRefused) {
    choose(1, &LinkManager::mnuLinkRClick_edit);
    EXPECT_EQ(form().SSTab1.caption(1) + form().cmdAdd.caption(), "Edit Link&Save changes");
    EXPECT_EQ(form().txtLabel.text() + "|" + form().txtAddress.text() + "|" + form().txtHTMLText.text(), "b|b|B");
    form().txtLabel.type("");
    for (int refused = 0; refused < 2; ++refused) {
        expectRefusal();
        EXPECT_EQ(labels(), "A | A ");
    }
    form().txtLabel.type("0");
    form().cmdAdd.click();
    EXPECT_EQ(labels(), "0 A | A 0 ");
    EXPECT_TRUE(form().SSTab1.tab() == 0 && form().ListView1.selectedRow() == 0);
    EXPECT_EQ(form().SSTab1.caption(1) + form().cmdAdd.caption(), "Add a Link&Add Link");
}

TEST_F(Links, AreTriedOutInTheBrowserButNotRelativeOnesFromTheirFields) {
    for (const int row : {0, 1}) {
        choose(row, &LinkManager::mnuLinkRClick_go);
        choose(row, &LinkManager::mnuLinkRClick_edit);
        form().lblFullLink.click();
        form().SSTab1.choose(0);
    }
    EXPECT_EQ(platform.opened, (std::vector<std::string>{"a.htm", "http://b", "http://b"}));
}

TEST_F(Links, AWriteThatFailsIsToldAndKeepsTheFields) {
    form().SSTab1.choose(1);
    form().txtLabel.type("new");
    platform.expectMessage(critical("An error occurred while writing to the registry.", "SaveSetting Error",
                                    "There is not enough memory."));
    sqlite3_hard_heap_limit64(1);
    form().cmdAdd.click();
    sqlite3_hard_heap_limit64(0);
    EXPECT_EQ(form().txtLabel.text() + labels(), "newA b | b A ");
}

}  // namespace
}  // namespace kelvor
