// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/document.h"

#include <sys/stat.h>

#include "controls/text_buffer.h"
#include "core/file_close.h"
#include "core/file_open.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Document : public StartedTest {
protected:
    std::string panels() {
        return panelText(panel::saved) + "|" + panelText(panel::position) + "|" + panelText(panel::characters);
    }
};

TEST_F(Document, PanelsTellCaretAndLengthInCharacters) {
    EditControl& text = open("lines.htm", "one\r\ntwo\r\n0123456789\r\n\xC3\xA9\xE2\x82\xAC.").SourceRTB();
    EXPECT_EQ(panels(), "File Saved: Yes|1/1|Characters: 25 ");
    text.setSelStart(20);
    EXPECT_EQ(panelText(panel::position), "11/3");
    text.selectAll();
    EXPECT_EQ(panelText(panel::position), "11/3") << "a selection leaves the panel alone";
    text.setSelStart(text.textLength());
    EXPECT_EQ(panelText(panel::position), "4/4");
}

TEST_F(Document, TypingMarksItChangedAndASaveClean) {
    CDocument& document = open("a.htm", "<P>\r\n");
    dynamic_cast<TextBuffer&>(document.SourceRTB()).press(key_code::escape);
    EXPECT_EQ(document.SourceRTB().selColor(), -1) << "no colour was chosen";
    EXPECT_TRUE(document.IsSaved());
    type("x");
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    menu("mnuFile_Save").click();
    EXPECT_TRUE(document.IsSaved());
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes:");
    EXPECT_EQ(files.read("a.htm"), "x<P>\r\n");
    document.SourceRTB().setSelStart(0);
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
}

TEST_F(Document, TheCloseQuestionKeepsOrLosesAsAnsweredAndAFailedSaveKeeps) {
    for (const auto& [answer, isReadOnly, onDisk, left] : {
             std::tuple{Answer::no, false, "old", 0U},
             {Answer::yes, false, "newold", 0},
             {Answer::cancel, false, "old", 1},
             {Answer::yes, true, "old", 2},
         }) {
        const std::string path = open("a.htm", "old").LongFileName();
        type("new");
        chmod(path.c_str(), isReadOnly ? 0444 : 0644);
        platform.expectMessage(saveQuestion(path), answer);
        if (isReadOnly) platform.expectMessage(saveError(path, "The file is read-only."));
        mnuFile_Close_Click();
        EXPECT_EQ(files.read("a.htm"), onDisk) << left;
        EXPECT_EQ(documentManager().MyDocuments().Count(), left);
    }
    EXPECT_FALSE(documentManager().currentDocument().IsSaved());
}

TEST_F(Document, AnUntitledOneAsksForItsNameWhenItIsClosedChanged) {
    for (int count = 0; count < 2; ++count) {
        EXPECT_TRUE(fileOpen(files.write("any.tpl", "<HTML>"), true));
        mainForm().increaseUntitledCount();
    }
    type("x");
    platform.expectMessage(saveQuestion("Untitled 2"), Answer::yes);
    platform.expectSave("");
    mnuFile_Close_Click();
    ASSERT_EQ(documentManager().MyDocuments().Count(), 2U) << "Cancel in the dialog keeps it";
    EXPECT_FALSE(documentManager().currentDocument().IsSaved());
    platform.expectMessage(saveQuestion("Untitled 2"), Answer::yes);
    platform.expectSave(files.path("new.htm"));
    mnuFile_Close_Click();
    EXPECT_EQ(files.read("new.htm"), "x<HTML>");
    mnuFile_Close_Click();
    EXPECT_EQ(documentManager().MyDocuments().Count(), 0U);
    EXPECT_EQ(panels(), "File Saved: No Files Open |Line:|Characters:");
}

TEST_F(Document, ACharacterThatTheFileLacksIsAskedFor) {
    const CDocument& document = open("latin.htm", "\xE9\x81\r\n");
    type("\xE4\xB8\xAD");
    for (const auto& [answer, onDisk] :
         {std::pair{Answer::no, "\xE9\x81\r\n"}, {Answer::yes, "\xE4\xB8\xAD\xC3\xA9\xC2\x81\r\n"}}) {
        platform.expectMessage(question("The text in [" + document.LongFileName() +
                                            "] has characters that its file's encoding lacks.\r\n"
                                            "Do you want to save it as UTF-8?",
                                        "File Save Error"),
                               answer);
        menu("mnuFile_Save").click();
        EXPECT_EQ(document.IsSaved(), answer == Answer::yes) << "No saves nothing and says no more";
        EXPECT_EQ(files.read("latin.htm"), onDisk);
    }
}

TEST_F(Document, WindowsStayInStepWithTheTabs) {
    // The document in front by its tab, after making sure that window and tab agree.
    const auto inFront = [] {
        const CDocument& document = documentManager().currentDocument();
        EXPECT_EQ(&document.SourceForm(), &mainForm().activeForm());
        return document.ShortFileName();
    };
    const std::string first = open("a.htm", "one").StrUniqueID();
    CDocument& second = open("b.htm", "2");
    open("c.htm", "");
    type("x");
    int forward = 0;
    mainForm().mdi.follow([&](MdiArea::Change change, Form*) { forward += change == MdiArea::Change::activated; });
    for (int click = 0; click < 2; ++click) mainForm().TabStrip1.click(first);
    EXPECT_EQ(forward, 2) << "from its icon too";
    mainForm().mdi.follow({});
    EXPECT_EQ(inFront(), "a.htm");
    EXPECT_EQ(panels(), "File Saved: Yes|1/1|Characters: 3 ");
    mainForm().mdi.activate(second.SourceForm());
    EXPECT_EQ(platform.focused, "Text1");
    for (const char* next : {"c.htm", "a.htm", "b.htm"}) {
        menu("mnuWindow_NextWindow").click();
        EXPECT_EQ(inFront(), next) << "they go round in the order of opening";
    }
    mnuFile_Close_Click();
    EXPECT_EQ(inFront(), "a.htm") << "the one used last";
    menu("mnuWindow_PreviousWindow").click();
    EXPECT_EQ(inFront(), "c.htm");
    EXPECT_EQ(panels(), "File Saved: No|2/1|Characters: 1 ");
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(open("c.htm", "3").StrUniqueID(), "TABID4") << "one path may be open twice, and no key is used again";
}

}  // namespace
}  // namespace kelvor
