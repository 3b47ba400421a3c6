// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_save.h"

#include <sys/stat.h>

#include <filesystem>

#include "core/file_open.h"
#include "frame/file_dialogs.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using FileSave = StartedTest;

TEST_F(FileSave, AFailedSaveSaysWhyAndWhetherTheFileMayBeDamaged) {
    open("a.htm", "old");
    type("new");
    const std::string damaged = "\r\nThe file on the disk may be damaged.";
    const std::string path = files.path("a.htm");
    const auto saveWith = [&](auto SystemCalls::*call, int code, const std::string& cause) {
        const auto fault = failing(call, code);
        platform.expectMessage(saveError(path, cause));
        menu("mnuFile_Save").click();
    };
    saveWith(&SystemCalls::fallocate, ENOSPC, "The disk is full.");
    saveWith(&SystemCalls::fsync, EIO, "The disk reports an error." + damaged);
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    EXPECT_NE(files.read("program/errorlog.txt").find(" 61 The disk is full"), std::string::npos);
}

TEST_F(FileSave, SaveAsKeepsEverythingWhenItFailsAndElseGivesTheDocumentItsFile) {
    fileOpen(files.write("t.tpl", "text"), true);
    const CDocument& document = documentManager().currentDocument();
    const std::string gone = files.path("gone/a.htm");
    lastDir = "/tmp";
    platform.expectSave(gone);
    platform.expectMessage(saveError(gone, "The folder does not exist."));
    menu("mnuFile_Save").click();
    EXPECT_EQ(document.LongFileName(), "Untitled 1");
    EXPECT_TRUE(document.IsUntitled());
    EXPECT_FALSE(std::filesystem::exists(files.path("gone")));

    platform.expectSave(files.path("named.htm"));
    menu("mnuFile_Save").click();
    EXPECT_FALSE(document.IsUntitled());
    EXPECT_EQ(mainForm().TabStrip1.selectedItem().caption, "named.htm");
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("named.htm"));
    EXPECT_EQ(recentMenu(), "named.htm ");
    EXPECT_EQ(files.read("named.htm"), "text");
    platform.expectSave("", "named.htm");
    menu("mnuFile_SaveAs").click();
}

TEST_F(FileSave, SaveAllGivesATitledOneTheNameChosenBeforeItAndGoesOnLikeCloseAll) {
    for (const char* name : {"a.htm", "b.htm"}) {
        open(name, "");
        chmod(files.path(name).c_str(), 0444);
    }
    open("first.htm", "1");
    type("x");
    fileOpen(files.write("t.tpl", "2"), true);
    const CDocument& last = open("last.htm", "3");
    platform.expectSave(files.path("chosen.htm"));
    platform.expectMessage(critical(
        "An error occurred while saving one or more files.  Verify the files before closing.", "file save error",
        files.path("a.htm") + ": The file is read-only.\r\n" + files.path("b.htm") + ": The file is read-only."));
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

}  // namespace
}  // namespace kelvor
