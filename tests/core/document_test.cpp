#include "core/document.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "authoring/common.h"
#include "core/enablement.h"
#include "core/file_close.h"
#include "core/file_open.h"
#include "core/file_save.h"
#include "platform/text_buffer.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class Document : public KelvorTest {
protected:
    Document() { start(); }

    CDocument& openUntitled(const std::string& bytes) {
        EXPECT_TRUE(fileOpen(files.write("any.tpl", bytes), true));
        mainForm().increaseUntitledCount();
        enableMenuItems();
        return documentManager()->currentDocument();
    }
};

TEST_F(Document, PanelsTellCaretAndLengthInCharacters) {
    open("empty.htm", "");
    EXPECT_EQ(panelText(panel::position), "1/1");
    EXPECT_EQ(panelText(panel::characters), "Characters: 0 ");
    EditControl& text = open("lines.htm", "one\r\ntwo\r\n0123456789\r\n\xC3\xA9\xE2\x82\xAC.").SourceRTB();
    text.setSelStart(20);
    EXPECT_EQ(panelText(panel::position), "11/3");
    text.setSelStart(text.textLength());
    EXPECT_EQ(panelText(panel::position), "4/4");
    EXPECT_EQ(panelText(panel::characters), "Characters: 25 ");
}

TEST_F(Document, ASelectionLeavesTheCaretPanelAlone) {
    EditControl& text = open("a.htm", "0123456789").SourceRTB();
    text.setSelStart(4);
    text.setSelLength(3);
    EXPECT_EQ(panelText(panel::position), "5/1");
    text.setSelStart(9);
    EXPECT_EQ(panelText(panel::position), "10/1");
}

TEST_F(Document, PanelsTellOfTheDocumentInFront) {
    const std::string first = open("a.htm", "one").StrUniqueID();
    open("b.htm", "twelve bytes");
    type("x");
    mainForm().TabStrip1.click(first);
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
    EXPECT_EQ(panelText(panel::position), "1/1");
    EXPECT_EQ(panelText(panel::characters), "Characters: 3 ");
    menu("mnuWindow_NextWindow").click();
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    EXPECT_EQ(panelText(panel::position), "2/1");
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
}

TEST_F(Document, TheCauseOfAFailedSaveIsInTheLog) {
    const std::string path = open("a.htm", "x").LongFileName();
    type("y");
    chmod(path.c_str(), 0444);
    platform.expectMessage({.text = "An error occured while saving the file [" + path + "].",
                            .title = "File Save Error",
                            .icon = MessageIcon::critical});
    mnuFile_Save_Click();
    EXPECT_NE(files.read("program/errorlog.txt").find(" 70 "), std::string::npos);
}

TEST_F(Document, TypingMarksItChangedAndSavingClean) {
    CDocument& document = open("a.htm", "<P>\r\n");
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
    type("x");
    EXPECT_FALSE(document.IsSaved());
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    mnuFile_Save_Click();
    EXPECT_TRUE(document.IsSaved());
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes:");
    EXPECT_EQ(files.read("a.htm"), "x<P>\r\n");
    document.SourceRTB().setSelStart(0);
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
}

TEST_F(Document, AKeyWithNoColourChosenIsNoChange) {
    CDocument& document = open("a.htm", "text");
    dynamic_cast<TextBuffer&>(document.SourceRTB()).press(key_code::escape);
    EXPECT_EQ(document.SourceRTB().selColor(), -1);
    EXPECT_TRUE(document.IsSaved());
}

TEST_F(Document, ClipboardChordsActOnceAndAreSwallowed) {
    CDocument& document = open("a.htm", "one two");
    auto& text = dynamic_cast<TextBuffer&>(document.SourceRTB());
    text.setSelStart(0);
    text.setSelLength(3);
    KeyPress key{.keyCode = 'X', .shift = 2};
    text.keyDown.raise(key);
    EXPECT_EQ(key.keyCode, 0);
    EXPECT_EQ(text.text(), " two");
    EXPECT_EQ(platform.clipboardText, "one");
    key = {.keyCode = 'V', .shift = 2};
    text.keyDown.raise(key);
    EXPECT_EQ(text.text(), "one two");
    key = {.keyCode = 'V', .shift = 3};
    text.keyDown.raise(key);
    EXPECT_EQ(key.keyCode, 'V') << "with Shift the chord belongs to somebody else";
    EXPECT_EQ(text.text(), "one two");
}

TEST_F(Document, TwoDocumentsOfOnePathHaveTheirOwnTabs) {
    const std::string first = open("a.htm", "1").StrUniqueID();
    const std::string second = open("a.htm", "2").StrUniqueID();
    EXPECT_NE(first, second);
    const auto& tabs = mainForm().TabStrip1.tabs();
    ASSERT_EQ(tabs.size(), 2U);
    EXPECT_EQ(tabs[0].caption, "a.htm");
    EXPECT_EQ(tabs[1].caption, "a.htm");
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("a.htm"));
}

TEST_F(Document, AReadUntitledCountIsGone) {
    CDocument& document = openUntitled("x");
    EXPECT_EQ(document.LongFileName(), "Untitled 1");
    EXPECT_EQ(document.ShortFileName(), "Untitled 1");
    EXPECT_EQ(document.UntitledCount(), 0);
    EXPECT_EQ(openUntitled("y").LongFileName(), "Untitled 2");
}

TEST_F(Document, AnUntouchedUntitledOneClosesWithoutAQuestion) {
    openUntitled("<HTML>");
    mnuFile_Close_Click();
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 0U);
    EXPECT_EQ(panelText(panel::saved), "File Saved: No Files Open ");
    EXPECT_EQ(panelText(panel::position), "Line:");
    EXPECT_EQ(panelText(panel::characters), "Characters:");
    EXPECT_FALSE(menu("mnuEdit").visible());
    EXPECT_FALSE(mainForm().Picture2.visible());
}

TEST_F(Document, TheCloseQuestionKeepsOrLosesAsAnswered) {
    struct Case {
        Answer answer;
        bool closes;
        const char* onDisk;
    };
    for (const Case& row :
         {Case{Answer::cancel, false, "old"}, {Answer::no, true, "old"}, {Answer::yes, true, "newold"}}) {
        const std::string path = open("a.htm", "old").LongFileName();
        type("new");
        platform.expectMessage(saveQuestion(path), row.answer);
        mnuFile_Close_Click();
        EXPECT_EQ(documentManager()->MyDocuments().Count() == 0, row.closes);
        EXPECT_EQ(files.read("a.htm"), row.onDisk);
        if (row.closes) continue;
        platform.expectMessage(saveQuestion(path), Answer::no);
        mnuFile_Close_Click();
    }
}

TEST_F(Document, AnUntitledOneAsksForItsNameWhenClosed) {
    lastDir = "/tmp";
    openUntitled("<HTML>");
    type("x");
    platform.expectMessage(saveQuestion("Untitled 1"), Answer::yes);
    platform.expectSave("", [](const FileRequest& request) {
        EXPECT_EQ(request.title, "Save HTML file as");
        EXPECT_EQ(request.directory, "/tmp");
        EXPECT_EQ(request.filterIndex, 1);
        EXPECT_TRUE(request.overwritePrompt);
    });
    mnuFile_Close_Click();
    ASSERT_EQ(documentManager()->MyDocuments().Count(), 1U) << "Cancel in the dialog keeps it";
    EXPECT_FALSE(documentManager()->MyDocuments().Item(0)->IsSaved());

    platform.expectMessage(saveQuestion("Untitled 1"), Answer::yes);
    platform.expectSave(files.path("new.htm"));
    mnuFile_Close_Click();
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 0U);
    EXPECT_EQ(files.read("new.htm"), "x<HTML>");
}

TEST_F(Document, AFailedSaveAtTheCloseQuestionKeepsTheWindow) {
    const std::string path = open("a.htm", "old").LongFileName();
    type("new");
    chmod(path.c_str(), 0444);
    platform.expectMessage(saveQuestion(path), Answer::yes);
    platform.expectMessage({.text = "An error occured while saving the file [" + path + "].",
                            .title = "File Save Error",
                            .icon = MessageIcon::critical});
    mnuFile_Close_Click();
    ASSERT_EQ(documentManager()->MyDocuments().Count(), 1U);
    EXPECT_FALSE(documentManager()->currentDocument().IsSaved());
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "newold");
    EXPECT_EQ(files.read("a.htm"), "old");
}

TEST_F(Document, ACharacterThatTheFileLacksIsAskedFor) {
    const Message question = {.text = "The text in [" + files.path("latin.htm") +
                                      "] has characters that its file's encoding lacks.\r\n"
                                      "Do you want to save it as UTF-8?",
                              .title = "File Save Error",
                              .icon = MessageIcon::question,
                              .buttons = MessageButtons::yesNo};
    CDocument& document = open("latin.htm", "caf\xE9\x81\r\n");
    type("\xE4\xB8\xAD");
    platform.expectMessage(question, Answer::no);
    mnuFile_Save_Click();
    EXPECT_FALSE(document.IsSaved());
    EXPECT_EQ(files.read("latin.htm"), "caf\xE9\x81\r\n") << "No saves nothing and says no more";

    platform.expectMessage(question, Answer::yes);
    mnuFile_Save_Click();
    EXPECT_TRUE(document.IsSaved());
    EXPECT_EQ(files.read("latin.htm"),
              "\xE4\xB8\xAD"
              "caf\xC3\xA9\xC2\x81\r\n");
}

TEST_F(Document, PreviewIsShownOfASavedFileOnly) {
    vdirManager()->VirtualDirectories().Add(files.path(""), "http://localhost/", "web");
    CDocument& document = open("a.htm", "x");
    EXPECT_EQ(document.URLForDocument(), "http://localhost/a.htm");
    document.ChangeMode(view_mode::preview);
    EXPECT_EQ(document.PreviewWB().address(), files.path("a.htm"));
    vdirManager()->setEnforceVDirs(true);
    document.ChangeMode(view_mode::preview);
    EXPECT_EQ(document.PreviewWB().address(), "http://localhost/a.htm");
    EXPECT_EQ(document.SourceForm().StatusBar1.simpleText(), "http://localhost/a.htm");
    EXPECT_EQ(document.PreviewWB().flags(), 10);

    CDocument& changed = open("b.htm", "x");
    type("y");
    changed.ChangeMode(view_mode::preview);
    EXPECT_EQ(changed.ViewMode(), view_mode::preview);
    EXPECT_EQ(changed.PreviewWB().address(), "");
}

TEST_F(Document, ARightPressOpensThePopupWithRowsForTheSelection) {
    auto& text = dynamic_cast<TextBuffer&>(open("a.htm", "one two").SourceRTB());
    for (const int length : {0, 3}) {
        text.setSelStart(0);
        text.setSelLength(length);
        platform.expectPopup([&](MenuItem& popup) {
            EXPECT_EQ(popup.name(), "mnuRClick");
            EXPECT_EQ(menu("mnuRClick_Cut").reachable(), length > 0);
            EXPECT_TRUE(menu("mnuRClick_Paste").reachable());
        });
        text.pressMouse({.button = 2});
    }
}

}  // namespace
}  // namespace kelvor
