#include <gtest/gtest.h>

#include <set>

#include "core/enablement.h"
#include "core/file_close.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class Windows : public KelvorTest {
protected:
    Windows() { start(); }

    /// The document in front by its tab, after making sure that window and tab agree.
    std::string inFront() {
        const CDocument& document = documentManager()->currentDocument();
        EXPECT_EQ(&document.SourceForm(), &mainForm().activeForm());
        return document.ShortFileName();
    }
};

TEST_F(Windows, TabsAndWindowsStayInStep) {
    const std::string first = open("a.htm", "1").StrUniqueID();
    CDocument& second = open("b.htm", "2");
    open("c.htm", "3");
    EXPECT_EQ(inFront(), "c.htm");
    mainForm().TabStrip1.click(first);
    EXPECT_EQ(inFront(), "a.htm");
    mainForm().mdi.activate(second.SourceForm());
    EXPECT_EQ(inFront(), "b.htm");
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(Windows, NextAndPreviousGoRoundInTheOrderOfOpening) {
    open("a.htm", "1");
    open("b.htm", "2");
    open("c.htm", "3");
    std::string order;
    for (int step = 0; step < 3; ++step) {
        menu("mnuWindow_NextWindow").click();
        order += inFront().substr(0, 1);
    }
    menu("mnuWindow_PreviousWindow").click();
    order += inFront().substr(0, 1);
    EXPECT_EQ(order, "abcb");
}

TEST_F(Windows, ClosingTheMiddleOneBringsTheLastUsedForwardAndFreesNoKey) {
    const std::string first = open("a.htm", "1").StrUniqueID();
    const std::string second = open("b.htm", "2").StrUniqueID();
    const std::string third = open("c.htm", "3").StrUniqueID();
    mainForm().TabStrip1.click(first);
    mainForm().TabStrip1.click(second);
    mnuFile_Close_Click();
    EXPECT_EQ(inFront(), "a.htm");
    EXPECT_TRUE(documentManager()->MyDocuments().contains(third));
    EXPECT_EQ(open("d.htm", "4").StrUniqueID(), "TABID4");
}

TEST_F(Windows, AClickOnATabSwitchesTheCommandsToItsView) {
    CDocument& previewed = open("a.htm", "1");
    previewed.ChangeMode(view_mode::preview);
    const std::string source = open("b.htm", "2").StrUniqueID();
    mainForm().TabStrip1.click(previewed.StrUniqueID());
    EXPECT_FALSE(menu("mnuEdit").visible());
    EXPECT_FALSE(menu("mnuFile_Close").enabled());
    EXPECT_TRUE(menu("mnuWindow").visible());
    EXPECT_EQ(inFront(), "a.htm");
    mainForm().TabStrip1.click(source);
    EXPECT_TRUE(menu("mnuEdit").visible());
    EXPECT_EQ(previewed.ViewMode(), view_mode::preview);
}

TEST_F(Windows, KeysInFrontOfAPreviewDoNotReachTheTextBehindIt) {
    const std::string source = open("b.htm", "2").StrUniqueID();
    CDocument& previewed = open("a.htm", "1");
    previewed.ChangeMode(view_mode::preview);
    EXPECT_EQ(platform.focused, "WebBrowser1");
    mainForm().TabStrip1.click(source);
    EXPECT_EQ(platform.focused, "Text1");
    mainForm().TabStrip1.click(previewed.StrUniqueID());
    EXPECT_EQ(platform.focused, "WebBrowser1");
    menu("mnuWindow_NextWindow").click();
    menu("mnuWindow_NextWindow").click();
    EXPECT_EQ(platform.focused, "WebBrowser1");
}

TEST_F(Windows, TheEmptyFrameOffersItsPopup) {
    platform.expectPopup([](MenuItem& popup) { EXPECT_EQ(popup.name(), "mnuNoChild"); });
    mainForm().mouseDown.raise({.button = 2});
    mainForm().mouseDown.raise({.button = 1});
}

TEST_F(Windows, MenuNamesAndAccessKeysAreUnique) {
    std::map<MenuItem*, std::string> keys;
    std::set<std::string> names;
    for (const auto& item : mainForm().menus()) {
        EXPECT_TRUE(item->name().empty() || names.insert(item->name()).second) << item->name();
        const auto mark = item->caption().find('&');
        if (mark == std::string::npos) continue;
        const char key = static_cast<char>(std::tolower(item->caption()[mark + 1]));
        // The two companions keep the marks that their names have in the other menus.
        if (item->name() == "mnuTools_Mirrel") continue;
        std::string& taken = keys[item->parent()];
        EXPECT_EQ(taken.find(key), std::string::npos) << item->name();
        taken += key;
    }
}

}  // namespace
}  // namespace kelvor
