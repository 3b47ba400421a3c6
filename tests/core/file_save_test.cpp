#include <sys/stat.h>

#include <filesystem>

#include "core/file_close.h"
#include "core/file_open.h"
#include "core/recent_files.h"
#include "files/system_calls.h"
#include "frame/enablement.h"
#include "frame/file_dialogs.h"
#include "support/settings.h"
#include "tests/kit/file_messages.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class FileCommands : public KelvorTest {
protected:
    FileCommands() { start(); }

    /// The names in the menu's rows of recent files, a blank behind each.
    std::string recentMenu() {
        std::string names;
        for (int index = 0; index < 5; ++index) {
            const MenuItem& row = menu("mnuFile_RecentFiles_" + std::to_string(index));
            if (row.visible()) names += std::filesystem::path(row.caption()).filename().string() + " ";
        }
        return names;
    }
    void openByDialog(const std::string& name) {
        platform.expectOpen({files.write(name, name)});
        menu("mnuFile_Open").click();
    }
};

TEST_F(FileCommands, OpenTakesSeveralFilesAndTheirDirectoryAndNothingWhenCancelled) {
    lastDir = "/somewhere";
    platform.expectOpen({});
    menu("mnuFile_Open").click();
    EXPECT_EQ(lastDir, "/somewhere");

    SaveSetting(application, "User", "DFilter", "3");
    platform.expectOpen({files.write("a.htm", "1"), files.write("b.htm", "2")}, [](const FileRequest& request) {
        EXPECT_EQ(request.title, "Open HTML file (multiple selections allowed)");
        EXPECT_EQ(request.filterIndex, 4);
        EXPECT_TRUE(request.multiple);
        EXPECT_NE(request.filter.find("|Active Server Pages (*.asp)|*.asp;|"), std::string::npos);
    });
    menu("mnuFile_Open").click();
    EXPECT_EQ(mainForm().TabStrip1.count(), 2U);
    EXPECT_EQ(lastDir + "/a.htm", files.path("a.htm"));
    EXPECT_TRUE(menu("mnuView_Preview").enabled()) << "the commands are switched on also when a tab was clicked before";
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(FileCommands, OneFileThatCannotBeReadIsToldAndTheOthersOpen) {
    const std::string pipe = files.path("pipe.htm");
    const std::string gone = files.path("gone.htm");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    openByDialog("a.htm");
    EXPECT_FALSE(fileOpen(pipe, false));
    EXPECT_FALSE(menu("mnuEdit").visible()) << "a failed open beside one document empties the frame";
    platform.expectOpen({pipe, gone, files.write("b.htm", "2")});
    platform.expectMessage(openError(pipe, "This is a pipe, not a file."));
    platform.expectMessage(noSuchFile(gone));
    platform.expectMessage(openError(gone));
    menu("mnuFile_Open").click();
    EXPECT_EQ(documentManager().MyDocuments().Count(), 2U);
    EXPECT_EQ(recentMenu(), "b.htm a.htm ");
    EXPECT_TRUE(mainForm().enabled());
}

TEST_F(FileCommands, TheRecentListKeepsTheLastFiveAndOpensThemOrTellsThatTheyAreGone) {
    for (const char* name : {"1", "2", "3", "4", "5", "6", "7"})
        SaveSetting(application, "Recent_Files", std::string("file ") + name, files.path(name));
    getRegistered_OpenFiles();
    EXPECT_EQ(recentMenu(), "5 4 3 2 1 ") << "a longer stored list is cut to the menu";
    files.write("4", "text");
    menu("mnuFile_RecentFiles_1").click();
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("4"));
    EXPECT_TRUE(menu("mnuEdit").visible());
    platform.expectMessage(noSuchFile(files.path("5")));
    menu("mnuFile_RecentFiles_0").click();
    EXPECT_EQ(recentMenu(), "5 4 3 2 1 ");
    openByDialog("a.htm");
    openByDialog("b.htm");
    EXPECT_EQ(recentMenu(), "b.htm a.htm 5 4 3 ");
    openByDialog("a.htm");
    EXPECT_EQ(mainForm().recentFiles.Count(), 4U) << "the oldest goes even for a listed file";
    EXPECT_EQ(GetSetting(application, "Recent_Files", "file 1"), files.path("4"));
    EXPECT_EQ(GetSetting(application, "Recent_Files", "file 5"), files.path("b.htm")) << "nothing is deleted";
    SaveSetting(application, "Recent_Files", "file 2", "/NEW");
    SaveSetting(application, "Recent_Files", "file 3", "/new");
    getRegistered_OpenFiles();
    EXPECT_FALSE(menu("mnuFile_Line2").visible()) << "a double entry leaves the list hidden";
}

TEST_F(FileCommands, WhatIsThereAndCannotBeOpenedIsToldWithItsCause) {
    const auto click = [this](const std::string& path) {
        mainForm().recentFiles.clear();
        addOpenFile(path);
        recentFileMenu();
        menu("mnuFile_RecentFiles_0").click();
    };
    const std::string page = files.write("page.htm", "<P>");
    const std::string pipe = files.path("pipe.htm");
    const std::string loop = files.path("loop.htm");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink(loop, loop);
    for (const auto& [path, cause] : {std::pair{files.path("settings"), "This is a folder, not a file."},
                                      {pipe, "This is a pipe, not a file."},
                                      {loop, "The links lead in a circle."}}) {
        platform.expectMessage(openError(path, cause));
        click(path);
    }
    SystemCalls calls = kernelCalls();
    calls.fstat = [](int descriptor, struct stat* status) {
        const int result = ::fstat(descriptor, status);
        status->st_size = off_t{1} << 60;
        return result;
    };
    const ScopedSystemCalls scope(calls);
    platform.expectMessage(openError(page, "There is not enough memory."));
    click(page);
    EXPECT_EQ(mainForm().TabStrip1.count(), 0U);
}

TEST_F(FileCommands, AFailedSaveSaysWhyAndWhetherTheFileMayBeDamaged) {
    open("a.htm", "old");
    type("new");
    const std::string damaged = "\r\nThe file on the disk may be damaged.";
    const std::string path = files.path("a.htm");
    const auto saveWith = [&](auto SystemCalls::*call, int code, const std::string& cause) {
        SystemCalls calls = kernelCalls();
        calls.*call = [code](auto...) { return errno = code, -1; };
        const ScopedSystemCalls scope(calls);
        platform.expectMessage(saveError(path, cause));
        menu("mnuFile_Save").click();
    };
    saveWith(&SystemCalls::fallocate, ENOSPC, "The disk is full.");
    saveWith(&SystemCalls::open, EROFS, "The disk is read-only.");
    saveWith(&SystemCalls::fsync, EIO, "The disk reports an error." + damaged);
}

TEST_F(FileCommands, NewWithoutATemplateTellsWhereTheyBelong) {
    platform.expectMessage({.text = "The template directory does not exist or is empty.\r\n\r\nTo correct this problem "
                                    "ensure that a subdirectory called Templates exists underneath the Kelvor program "
                                    "directory.  Copy an html file into the new directory and rename it Default "
                                    "Template.tpl.\r\n\r\nRe-installing Kelvor will also correct this problem",
                            .title = "Template directory missing or empty",
                            .icon = MessageIcon::critical});
    menu("mnuFile_New").click();
}

TEST_F(FileCommands, SaveAsKeepsEverythingWhenItFailsAndElseGivesTheDocumentItsFile) {
    fileOpen(files.write("t.tpl", "text"), true);
    const CDocument& document = documentManager().currentDocument();
    const std::string gone = files.path("gone/a.htm");
    lastDir = "/tmp";
    platform.expectSave(gone, [](const FileRequest& request) {
        EXPECT_EQ(request.title, "Save HTML file as");
        EXPECT_EQ(request.directory, "/tmp");
        EXPECT_TRUE(request.overwritePrompt);
    });
    platform.expectMessage(saveError(gone, "The folder does not exist."));
    menu("mnuFile_Save").click();
    EXPECT_EQ(document.LongFileName(), "Untitled 1");
    EXPECT_TRUE(document.IsUntitled());
    EXPECT_FALSE(std::filesystem::exists(files.path("gone")));

    platform.expectSave(files.path("named.htm"));
    menu("mnuFile_Save").click();
    EXPECT_FALSE(document.IsUntitled());
    EXPECT_EQ(document.LongFileName(), files.path("named.htm"));
    EXPECT_EQ(mainForm().TabStrip1.selectedItem().caption, "named.htm");
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("named.htm"));
    EXPECT_EQ(recentMenu(), "named.htm ");
    EXPECT_EQ(files.read("named.htm"), "text");
    platform.expectSave("", [](const FileRequest& request) { EXPECT_EQ(request.fileName, "named.htm"); });
    menu("mnuFile_SaveAs").click();
}

TEST_F(FileCommands, SaveAllGivesATitledOneTheNameChosenBeforeItAndGoesOnLikeCloseAll) {
    for (const char* name : {"a.htm", "b.htm"}) {
        open(name, "");
        chmod(files.path(name).c_str(), 0444);
    }
    open("first.htm", "1");
    type("x");
    fileOpen(files.write("t.tpl", "2"), true);
    const CDocument& last = open("last.htm", "3");
    platform.expectSave(files.path("chosen.htm"));
    platform.expectMessage(
        {.text = "An error occurred while saving one or more files.  Verify the files before closing.",
         .cause =
             files.path("a.htm") + ": The file is read-only.\r\n" + files.path("b.htm") + ": The file is read-only.",
         .title = "file save error",
         .icon = MessageIcon::critical});
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(files.read("first.htm"), "x1");
    EXPECT_EQ(files.read("chosen.htm"), "3");
    EXPECT_EQ(last.LongFileName(), files.path("chosen.htm"));
    EXPECT_EQ(recentMenu(), "chosen.htm ");

    type("x");
    platform.expectMessage(saveQuestion(files.path("chosen.htm")), Answer::cancel);
    menu("mnuFile_CloseAll").click();
    EXPECT_EQ(mainForm().TabStrip1.count(), 1U) << "the others are closed behind the one that is kept";
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "x3");
}

TEST_F(FileCommands, EditRowsAndTheirChordsActOnceOnTheDocumentInFront) {
    CDocument& document = open("a.htm", "one two");
    EditControl& text = document.SourceRTB();
    const auto press = [&text](int keyCode, int shift) {
        KeyPress key{.keyCode = keyCode, .shift = shift};
        text.keyDown.raise(key);
        return key.keyCode;
    };
    menu("mnuEdit_Delete").click();
    EXPECT_TRUE(document.IsSaved()) << "without a selection nothing changes";
    menu("mnuEdit_SelectAll").click();
    menu("mnuEdit_Copy").click();
    menu("mnuEdit_Delete").click();
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(press('Z', modifier::ctrl), 0);
    EXPECT_EQ(text.text(), "one two");
    text.setSelStart(7);
    EXPECT_EQ(press('V', modifier::ctrl + modifier::shift), 'V') << "with Shift the chord belongs to somebody else";
    menu("mnuEdit_Paste").click();
    EXPECT_EQ(text.text(), "one twoone two");
    ControlFunctionForMode(view_mode::preview);
    EXPECT_EQ(press('V', modifier::ctrl), 0) << "swallowed where the row is disabled";
    EXPECT_EQ(text.text(), "one twoone two");
}

}  // namespace
}  // namespace kelvor
