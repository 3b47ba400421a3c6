#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "authoring/common.h"
#include "core/edit_commands.h"
#include "core/enablement.h"
#include "core/file_close.h"
#include "core/file_open.h"
#include "core/file_save.h"
#include "core/new_file.h"
#include "core/recent_files.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class FileCommands : public KelvorTest {
protected:
    FileCommands() { start(); }

    std::vector<std::string> recentMenu() {
        std::vector<std::string> rows;
        for (int index = 0; index < 5; ++index) {
            const MenuItem& row = menu("mnuFile_RecentFiles_" + std::to_string(index));
            if (row.visible()) rows.push_back(std::filesystem::path(row.caption()).filename());
        }
        return rows;
    }

    void openByDialog(const std::vector<std::string>& names) {
        std::vector<std::string> paths;
        for (const std::string& name : names) paths.push_back(files.write(name, name));
        platform.expectOpen(paths);
        mnuFile_Open_Click();
    }

    Message openError(const std::string& path) {
        return {.text = "An error occurred while opening " + path +
                        "\r\nMake sure that the file is not already locked by another application.",
                .title = "File open error",
                .icon = MessageIcon::critical};
    }

    Message saveError(const std::string& path) {
        return {.text = "An error occured while saving the file [" + path + "].",
                .title = "File Save Error",
                .icon = MessageIcon::critical};
    }
};

TEST_F(FileCommands, OpenTakesSeveralFilesAndTheirDirectory) {
    SaveSetting(application, "User", "DFilter", "3");
    const std::vector<std::string> paths = {files.write("a.htm", "1"), files.write("b.htm", "2")};
    platform.expectOpen(paths, [](const FileRequest& request) {
        EXPECT_EQ(request.title, "Open HTML file (multiple selections allowed)");
        EXPECT_EQ(request.filterIndex, 4);
        EXPECT_TRUE(request.multiple);
        EXPECT_NE(request.filter.find("|Active Server Pages (*.asp)|*.asp;|"), std::string::npos);
    });
    menu("mnuFile_Open").click();
    EXPECT_EQ(mainForm().TabStrip1.count(), 2U);
    EXPECT_EQ(lastDir, files.path("a.htm").substr(0, files.path("a.htm").rfind('/')));
    EXPECT_EQ(recentMenu(), (std::vector<std::string>{"b.htm", "a.htm"}));
    EXPECT_TRUE(menu("mnuWindow").visible());
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(FileCommands, OpenCancelledDoesNothing) {
    lastDir = "/somewhere";
    platform.expectOpen({});
    menu("mnuFile_Open").click();
    EXPECT_EQ(lastDir, "/somewhere");
    EXPECT_FALSE(menu("mnuWindow").visible());
}

TEST_F(FileCommands, OneFileThatCannotBeReadIsToldAndTheOthersOpen) {
    const std::string pipe = files.path("pipe.htm");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    platform.expectOpen({files.write("a.htm", "1"), pipe, files.path("gone.htm"), files.write("b.htm", "2")});
    platform.expectMessage(openError(pipe));
    platform.expectMessage({.text = "The file " + files.path("gone.htm") + " does not exist.",
                            .title = "File Open Error",
                            .icon = MessageIcon::exclamation});
    platform.expectMessage(openError(files.path("gone.htm")));
    menu("mnuFile_Open").click();
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 2U);
    EXPECT_EQ(mainForm().TabStrip1.count(), 2U);
    EXPECT_EQ(recentMenu(), (std::vector<std::string>{"b.htm", "a.htm"}));
    EXPECT_TRUE(mainForm().enabled());
}

TEST_F(FileCommands, AFailedOpenBesideOneDocumentEmptiesTheFrame) {
    open("a.htm", "1");
    const std::string pipe = files.path("pipe.htm");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(fileOpen(pipe, false));
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 1U);
    EXPECT_FALSE(menu("mnuEdit").visible());
}

TEST_F(FileCommands, RecentListKeepsTheLastFive) {
    openByDialog({"1", "2", "3", "4", "5", "6"});
    EXPECT_EQ(recentMenu(), (std::vector<std::string>{"6", "5", "4", "3", "2"}));
    openByDialog({"4"});
    EXPECT_EQ(mainForm().recentFiles.Count(), 4U) << "the oldest goes even for a listed file";
    EXPECT_EQ(mainForm().recentFiles.Item(0), files.path("3"));
    EXPECT_EQ(GetSetting(application, "Recent_Files", "file 1"), files.path("3"));
    EXPECT_EQ(GetSetting(application, "Recent_Files", "file 5"), files.path("6")) << "nothing is deleted";
}

TEST_F(FileCommands, SpellingsOfOnePathInAnotherCaseAreOneEntry) {
    addOpenFile("/web/Index.htm");
    addOpenFile("/WEB/index.HTM");
    EXPECT_EQ(mainForm().recentFiles.Count(), 1U);
}

TEST_F(FileCommands, AStoredListWithADoubleEntryLeavesTheListHidden) {
    SaveSetting(application, "Recent_Files", "file 1", "/a");
    SaveSetting(application, "Recent_Files", "anything", "/A");
    getRegistered_OpenFiles();
    EXPECT_FALSE(menu("mnuFile_Line2").visible());
    EXPECT_TRUE(recentMenu().empty());
}

TEST_F(FileCommands, ALongerStoredListIsCutToTheMenu) {
    for (int index = 1; index <= 7; ++index)
        SaveSetting(application, "Recent_Files", "file " + std::to_string(index), "/" + std::to_string(index));
    getRegistered_OpenFiles();
    EXPECT_EQ(recentMenu(), (std::vector<std::string>{"5", "4", "3", "2", "1"}));
    openByDialog({"a.htm", "b.htm"});
    EXPECT_EQ(recentMenu(), (std::vector<std::string>{"b.htm", "a.htm", "5", "4", "3"}));
}

TEST_F(FileCommands, SaveAsOffersTheNameOfATitledDocument) {
    open("a.htm", "x");
    platform.expectSave("", [](const FileRequest& request) { EXPECT_EQ(request.fileName, "a.htm"); });
    menu("mnuFile_SaveAs").click();
}

TEST_F(FileCommands, ARecentFileThatIsGoneIsToldAndStaysListed) {
    openByDialog({"a.htm"});
    mnuFile_Close_Click();
    std::filesystem::remove(files.path("a.htm"));
    platform.expectMessage({.text = "The file " + files.path("a.htm") + " does not exist.",
                            .title = "File Open Error",
                            .icon = MessageIcon::exclamation});
    menu("mnuFile_RecentFiles_0").click();
    EXPECT_EQ(recentMenu(), std::vector<std::string>{"a.htm"});
    files.write("a.htm", "back");
    menu("mnuFile_RecentFiles_0").click();
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "back");
    EXPECT_TRUE(menu("mnuEdit").visible());
}

TEST_F(FileCommands, NewWithoutATemplateTellsWhereTheyBelong) {
    platform.expectMessage({.text = "The template directory does not exist or is empty.\r\n\r\nTo correct this problem "
                                    "ensure that a subdirectory called Templates exists underneath the Kelvor program "
                                    "directory.  Copy an html file into the new directory and rename it Default "
                                    "Template.tpl.\r\n\r\nRe-installing Kelvor will also correct this problem",
                            .title = "Template directory missing or empty",
                            .icon = MessageIcon::critical});
    menu("mnuFile_New").click();
    EXPECT_EQ(platform.beeps, 1);
}

TEST_F(FileCommands, SaveAsGivesTheDocumentItsFile) {
    fileOpen(files.write("t.tpl", "text"), true);
    enableMenuItems();
    platform.expectSave(files.path("named.htm"));
    menu("mnuFile_Save").click();
    const CDocument& document = documentManager()->currentDocument();
    EXPECT_FALSE(document.IsUntitled());
    EXPECT_EQ(document.LongFileName(), files.path("named.htm"));
    EXPECT_EQ(mainForm().TabStrip1.selectedItem().caption, "named.htm");
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("named.htm"));
    EXPECT_EQ(recentMenu(), std::vector<std::string>{"named.htm"});
    EXPECT_EQ(files.read("named.htm"), "text");
}

TEST_F(FileCommands, SaveAsIntoADirectoryThatIsGoneKeepsEverything) {
    CDocument& document = open("a.htm", "x");
    type("y");
    const std::string target = files.path("gone/a.htm");
    platform.expectSave(target);
    platform.expectMessage(saveError(target));
    menu("mnuFile_SaveAs").click();
    EXPECT_EQ(document.LongFileName(), files.path("a.htm"));
    EXPECT_FALSE(document.IsSaved());
    EXPECT_FALSE(std::filesystem::exists(files.path("gone")));
}

TEST_F(FileCommands, AReadOnlyFileIsRefusedAndToldEvenForRoot) {
    CDocument& document = open("a.htm", "x");
    type("y");
    chmod(files.path("a.htm").c_str(), 0444);
    platform.expectMessage(saveError(files.path("a.htm")));
    menu("mnuFile_Save").click();
    EXPECT_FALSE(document.IsSaved());
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    EXPECT_EQ(files.read("a.htm"), "x");
}

TEST_F(FileCommands, SaveAllGivesATitledOneTheNameChosenBeforeIt) {
    open("first.htm", "1");
    type("a");
    fileOpen(files.write("t.tpl", "2"), true);
    CDocument& last = open("last.htm", "3");
    platform.expectSave(files.path("chosen.htm"),
                        [](const FileRequest& request) { EXPECT_TRUE(request.overwritePrompt); });
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(files.read("first.htm"), "a1");
    EXPECT_EQ(files.read("chosen.htm"), "3");
    EXPECT_EQ(last.LongFileName(), files.path("chosen.htm"));
    EXPECT_EQ(recentMenu(), std::vector<std::string>{"chosen.htm"});
}

TEST_F(FileCommands, SaveAllTellsFailuresOnceAtItsEnd) {
    open("a.htm", "1");
    open("b.htm", "2");
    open("c.htm", "3");
    type("x");
    chmod(files.path("a.htm").c_str(), 0444);
    chmod(files.path("b.htm").c_str(), 0444);
    platform.expectMessage(
        {.text = "An error occurred while saving one or more files.  Verify the files before closing.",
         .title = "file save error",
         .icon = MessageIcon::critical});
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(files.read("c.htm"), "x3");
}

TEST_F(FileCommands, CloseAllGoesOnBehindOneThatIsKept) {
    open("a.htm", "1");
    const std::string kept = open("b.htm", "2").LongFileName();
    type("x");
    open("c.htm", "3");
    platform.expectMessage(saveQuestion(kept), Answer::cancel);
    menu("mnuFile_CloseAll").click();
    ASSERT_EQ(documentManager()->MyDocuments().Count(), 1U);
    EXPECT_EQ(mainForm().activeForm().caption(), kept);
    EXPECT_EQ(mainForm().TabStrip1.selectedItem().caption, "b.htm");
}

TEST_F(FileCommands, EditCommandsActOnTheDocumentInFront) {
    CDocument& document = open("a.htm", "one two");
    EditControl& text = document.SourceRTB();
    menu("mnuEdit_SelectAll").click();
    EXPECT_EQ(text.selLength(), 7);
    menu("mnuEdit_Copy").click();
    menu("mnuEdit_Delete").click();
    EXPECT_EQ(text.text(), "");
    menu("mnuEdit_Undo").click();
    EXPECT_EQ(text.text(), "one two");
    text.setSelStart(7);
    menu("mnuEdit_Paste").click();
    EXPECT_EQ(text.text(), "one twoone two");
}

TEST_F(FileCommands, DeleteWithoutASelectionIsNoChange) {
    CDocument& document = open("a.htm", "one");
    menu("mnuEdit_Delete").click();
    EXPECT_TRUE(document.IsSaved());
    EXPECT_EQ(document.SourceRTB().text(), "one");
}

TEST_F(FileCommands, ShortcutsOfHiddenOrDisabledRowsDoNothing) {
    menu("mnuEdit_Paste").click();
    menu("mnuFile_Save").click();
    menu("mnuFile_Print").click();
    CDocument& document = open("a.htm", "one");
    ControlFunctionForMode(view_mode::preview);
    platform.clipboardText = "x";
    Edit_Action(0);
    EXPECT_EQ(document.SourceRTB().text(), "one");
    ControlFunctionForMode(view_mode::source);
    Edit_Action(0);
    Edit_Action(5);
    EXPECT_EQ(document.SourceRTB().text(), "xone");
}

}  // namespace
}  // namespace kelvor
