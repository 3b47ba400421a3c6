// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_open.h"

#include <sys/stat.h>

#include <filesystem>

#include "core/recent_files.h"
#include "frame/file_dialogs.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using FileOpen = StartedTest;

TEST_F(FileOpen, OpenTakesSeveralFilesAndTheirDirectoryAndNothingWhenCancelled) {
    lastDir = "/somewhere";
    platform.expectOpen(openTitle, {});
    menu("mnuFile_Open").click();
    EXPECT_EQ(lastDir, "/somewhere");

    SaveSetting(application, "User", "DFilter", "3");
    platform.expectOpen(openTitle, {files.write("a.htm", "1"), files.write("b.htm", "2")}, 4);
    menu("mnuFile_Open").click();
    EXPECT_TRUE(mainForm().TabStrip1.count() == 2 && lastDir + "/a.htm" == files.path("a.htm"));
    EXPECT_TRUE(menu("mnuView_Preview").enabled()) << "the commands are switched on also when a tab was clicked before";
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(FileOpen, OneFileThatCannotBeReadIsToldAndTheOthersOpen) {
    const std::string pipe = files.path("pipe.htm");
    const std::string gone = files.path("gone.htm");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    openByDialog("a.htm");
    EXPECT_FALSE(fileOpen(pipe, false));
    EXPECT_FALSE(menu("mnuEdit").visible()) << "a failed open beside one document empties the frame";
    platform.expectOpen(openTitle, {pipe, gone, files.write("b.htm", "2")});
    platform.expectMessage(openError(pipe, "This is a pipe, not a file."));
    platform.expectMessage(noSuchFile(gone));
    platform.expectMessage(openError(gone));
    menu("mnuFile_Open").click();
    EXPECT_EQ(documentManager().MyDocuments().Count(), 2U);
    EXPECT_EQ(recentMenu(), "b.htm a.htm ");
    EXPECT_TRUE(mainForm().enabled());
}

TEST_F(FileOpen, NewWithoutATemplateTellsWhereTheyBelong) {
    platform.expectBox("Template directory missing or empty");
    menu("mnuFile_New").click();
}

TEST_F(FileOpen, TheRecentListKeepsTheLastFiveAndOpensThemOrTellsThatTheyAreGone) {
    for (const std::string name : {"1", "2", "3", "4", "5", "6", "7"})
        SaveSetting(application, "Recent_Files", "file " + name, files.path(name));
    getRegistered_OpenFiles();
    EXPECT_EQ(recentMenu(), "5 4 3 2 1 ") << "a longer stored list is cut to the menu";
    files.write("4", "text");
    menu("mnuFile_RecentFiles_1").click();
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("4"));
    platform.expectMessage(noSuchFile(files.path("5")));
    menu("mnuFile_RecentFiles_0").click();
    std::filesystem::create_directory(files.path("3"));
    platform.expectMessage(openError(files.path("3"), "This is a folder, not a file."));
    menu("mnuFile_RecentFiles_2").click();
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

}  // namespace
}  // namespace kelvor
