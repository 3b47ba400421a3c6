// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/find.h"

#include "core/file_close.h"
#include "frame/main_frame.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class FindForm : public FrameTest {
protected:
    ~FindForm() override { find().unload(); }

    Find& find() { return toolForm<Find>(); }
    void press(const std::string& text) {
        find().cboFindText.type(text);
        find().cmdFind.click();
    }
    void pressInVain(const std::string& text) {
        platform.expectMessage(information("Search string not found.", "Find Results"));
        press(text);
        EXPECT_EQ(find().cmdFind.caption(), "&Find");
    }
    /// Position and text of the selection.
    static std::string selection() {
        const EditControl& text = mainForm().activeForm().Text1;
        return std::to_string(text.selStart()) + ":" + text.selText();
    }
};

TEST_F(FindForm, GoesFromMatchToMatchAndDoesNotWrap) {
    using Matches = std::vector<std::string>;
    // The last one is the match behind the failed search; "" when there is none.
    const std::tuple<const char*, const char*, Matches, std::string> rows[] = {
        {"cat Cat", "cat", {"0:cat", "4:Cat"}, "4:Cat"},
        {"xcat", "cat", {"1:cat"}, ""},
        // Characters count, and not bytes: the match's may be other ones than the text's.
        {"xxüüü", "üüü", {"2:üüü"}, "2:üüü"},
        {"\u212Ak", "k", {"0:\u212A", "3:k"}, "0:\u212A"},
    };
    for (const auto& [text, sought, matches, next] : rows) {
        openText(text, text);
        mnuEdit_Find_Click();
        for (const std::string& match : matches) {
            press(sought);
            EXPECT_EQ(selection(), match);
            EXPECT_EQ(find().cmdFind.caption(), "Find &Next");
        }
        pressInVain(sought);
        next.empty() ? pressInVain(sought) : press(sought);
        EXPECT_TRUE(next.empty() || selection() == next) << selection();
        find().unload();
        EXPECT_EQ(platform.focused, "Text1");
    }
}

TEST_F(FindForm, TakesTheEndOfTheSearchAtItsOpeningAndWithAnotherCaption) {
    EditWindow& first = openText("a.htm", "cat");
    mnuEdit_Find_Click();
    first.Text1.setText("xxx cat");
    pressInVain("cat");
    openText("b.htm", "cat cat cat");
    press("cat");
    EXPECT_EQ(selection(), "0:cat");
    openText("b.htm", "cat cat");
    press("cat");
    EXPECT_EQ(selection(), "4:cat") << "two windows of one caption are one document";
}

TEST_F(FindForm, ATypedTextBeginsAnewAndAChosenRowGoesOn) {
    EditWindow& window = openText("a.htm", "cat dog Cat cats");
    SaveSetting(application, "Find_Hist", "FindItem1", "dog");
    window.Text1.setSelLength(3);
    mnuEdit_Find_Click();
    EXPECT_EQ(find().cboFindText.text(), "cat");
    find().cmdFind.click();
    find().cboFindText.choose(1);
    EXPECT_EQ(find().cmdFind.caption(), "Find &Next");
    find().cmdFind.click();
    EXPECT_EQ(selection(), "4:dog");
    find().chkWord.click();
    press("cats");
    EXPECT_EQ(selection(), "12:cats");
    find().chkCase.click();
    press("Cat");
    EXPECT_EQ(selection(), "8:Cat");
    press("cats");
    EXPECT_EQ(find().cboFindText.list(), (std::vector<std::string>{"cats", "Cat", "cats", "cat", "dog"}));
    platform.expectMessage(exclamation("You must enter some text to find!", "Find text error"));
    press("");
    EXPECT_EQ(platform.focused, "cboFindText");
}

TEST_F(FindForm, TheHistoryFillsUpAndThenTakesNewTextsOnTop) {
    openText("a.htm", "one two three four five six ONE");
    mnuEdit_Find_Click();
    for (const char* text : {"one", "two", "three", "four", "two", "five", "six", "ONE"}) press(text);
    std::string stored;
    const auto rows = GetAllSettings(application, "Find_Hist");
    for (const Setting& row : *rows) stored += row.key + "=" + row.value + ";";
    EXPECT_EQ(stored, "FindItem1=ONE;FindItem2=six;FindItem3=one;FindItem4=two;FindItem5=three;");
}

using FindInDocuments = StartedTest;

TEST_F(FindInDocuments, ASearchDoesNotGoOnInADocumentThatIsOpenedAgain) {
    open("b.htm", "");
    mnuEdit_Find_Click();
    toolForm<Find>().cboFindText.type("cat");
    for (int time = 0; time < 2; ++time) {
        const EditControl& text = open("a.htm", "cat cat").SourceRTB();
        toolForm<Find>().cmdFind.click();
        EXPECT_EQ(text.selStart(), 0) << time;
        mnuFile_Close_Click();
    }
}

}  // namespace
}  // namespace kelvor
