// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/find_replace.h"

#include "frame/main_frame.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class FindReplaceForm : public FrameTest {
protected:
    ~FindReplaceForm() override { form().unload(); }

    FindReplace& form() { return toolForm<FindReplace>(); }
    /// Shows the form over a text, with its selection in brackets, which is the range.
    void show(std::string text, const std::string& sought, const std::string& replacement) {
        const auto start = text.find('[');
        const auto end = text.find(']');
        if (start != std::string::npos) text = text.erase(end, 1).erase(start, 1);
        window.Text1.setText(text);
        mnuEdit_FindReplace_Click();
        if (start != std::string::npos) {
            window.Text1.setSelStart(static_cast<int>(start));
            window.Text1.setSelLength(static_cast<int>(end - start) - 1);
            form().chkWithin.click();
        }
        form().txtFindText.setText(sought);
        form().txtReplace.setText(replacement);
    }
    void expectCount(int count) {
        platform.expectMessage(information(std::to_string(count) + " replacements made.", "Find and Replace"));
    }
    /// The outcome; all is free again.
    void expectOutcome(const std::string& after) {
        EXPECT_EQ(window.Text1.text(), after);
        EXPECT_EQ(window.Text1.selLength(), 0);
        EXPECT_TRUE(mainForm().enabled());
        EXPECT_EQ(disabledIn(form()), "");
        EXPECT_EQ(form().cmdClose.caption(), "&Close");
        EXPECT_EQ(platform.pointer, MousePointer::standard);
    }

    EditWindow& window{openText("a.htm", "")};
};

TEST_F(FindReplaceForm, AllAtOnceReplacesInItsRangeAsOneStep) {
    for (const auto& [marked, sought, replacement, wordAndCase, after, count] : {
             std::tuple{"a bAb", "a", "aa", false, "aa baab", 2},
             {"[aXaXa]Xa", "x", "long", false, "alongalongaXa", 2},
             {"[aXaX]X", "x", "", false, "aaX", 2},
             {"a []bab", "a", "x", false, "a bab", 0},
             {"cat concat CAT", "cat", "dog", true, "dog concat CAT", 1},
             // Matches of other lengths than the text's move the end of the range by what they are.
             {"[\u212Ak\u212Ak]k", "k", "", false, "k", 4},
             {"[kk\u212A\u212A]\u212A", "\u212A", "<\u212A>", false, "<\u212A><\u212A><\u212A><\u212A>\u212A", 4},
         }) {
        show(marked, sought, replacement);
        const std::string before = window.Text1.text();
        form().chkWord.setValue(wordAndCase);
        form().chkCase.setValue(wordAndCase);
        expectCount(count);
        form().cmdReplaceAll.click();
        expectOutcome(after);
        if (count > 0) window.Text1.undo();
        EXPECT_EQ(window.Text1.text(), before);
        form().cmdClose.click();
        EXPECT_EQ(platform.focused, "Text1");
    }
}

TEST_F(FindReplaceForm, AnyLineEndMatchesAnyAndTheReplacementsAreTheDocuments) {
    window.Text1.LoadFile(files.write("page.htm", "a\nb\na\r\nb\ra\rb\n"));
    window.Text1.setSelLength(3);
    mnuEdit_FindReplace_Click();
    form().txtReplace.setText("x\r\n");
    expectCount(3);
    form().cmdReplaceAll.click();
    expectOutcome("x\n\nx\n\rx\n\n");
}

TEST_F(FindReplaceForm, AskingGoesByTheAnswers) {
    show("a\u212Abkckk", "k", "xx");
    for (const Answer answer : {Answer::no, Answer::yes, Answer::no, Answer::cancel})
        platform.expectBox("Find and Replace", answer);
    expectCount(1);
    form().cmdReplaceOne.click();
    expectOutcome("a\u212Abxxckk");
    EXPECT_EQ(platform.pointersAtBoxes, "aaaaa") << "the user is asked";
    EXPECT_EQ(window.Text1.selStart(), 9);
}

TEST_F(FindReplaceForm, ClosedBetweenTwoQuestionsItEndsTheRun) {
    show("xax", "x", "-");
    const WaitingEvents events([&] {
        EXPECT_TRUE(disabledIn(form()).ends_with("cmdReplaceOne cmdReplaceAll cmdClose cmdHelp "));
        EXPECT_TRUE(form().unload());
    });
    platform.expectBox("Find and Replace", Answer::yes);
    expectCount(1);
    form().cmdReplaceOne.click();
    expectOutcome("-ax");
}

TEST_F(FindReplaceForm, CancelIsHeardAtTheNextMatchAndAsksBack) {
    for (const bool goesOn : {true, false}) {
        show("xaxbx", "x", "-");
        Form other("other", "");
        other.load();
        const WaitingEvents events([&] {
            { const DisabledFrame another; }
            EXPECT_FALSE(mainForm().enabled() || other.enabled());
            EXPECT_EQ(form().cmdClose.caption() + ": " + disabledIn(form()),
                      "&Cancel: txtFindText txtReplace chkWithin chkWord chkCase cmdReplaceOne cmdReplaceAll cmdHelp ");
            EXPECT_EQ(platform.pointer, MousePointer::hourglass);
            goesOn ? form().cmdClose.click() : static_cast<void>(form().unload());
        });
        platform.expectBox("Confirm cancel", goesOn ? Answer::no : Answer::yes);
        expectCount(goesOn ? 3 : 1);
        form().cmdReplaceAll.click();
        expectOutcome(goesOn ? "-a-b-" : "-axbx");
        EXPECT_TRUE(other.enabled());
    }
}

TEST_F(FindReplaceForm, TheSelectionIsTheTextToFindUntilItIsTheRange) {
    window.Text1.setText("cat");
    window.Text1.selectAll();
    mnuEdit_FindReplace_Click();
    EXPECT_EQ(form().txtFindText.text(), "cat");
    form().chkWithin.click();
    platform.expectMessage(exclamation("You must enter some text to find!", "Find text error"));
    form().cmdReplaceOne.click();
    form().chkWithin.click();
    EXPECT_EQ(form().txtFindText.text(), "cat");
}

}  // namespace
}  // namespace kelvor
