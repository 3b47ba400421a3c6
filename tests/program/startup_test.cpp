// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/startup.h"

#include "core/file_close.h"
#include "frame/file_dialogs.h"
#include "program/single_instance.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using Startup = KelvorTest;

TEST_F(Startup, GreetsTellsWhatCannotBeReadAndGoesOn) {
    SaveSetting(application, "UserStrings", "Rule", "<HR>");
    files.write("program/VDirs.txt", "/srv|http://localhost\n\n/other|http://never\n");
    platform.expectMessage(critical("Unable to read VDirs.txt.  Please consult the online help.", "File read failed",
                                    "Line 2 has no \"|\"."));
    platform.expectBox("First time user");
    SaveSetting(application, "User", "BGColor", "blue");
    for (int index = 0; index < 16; ++index) SaveSetting(application, "Browsers", "B" + std::to_string(index), "b");
    expectError(13, "Type mismatch: \"blue\"");
    expectError(
        9, "The preview menu has room for 15 browsers, and 16 are listed in the preferences. The first 15 are shown.");
    ASSERT_TRUE(startKelvor());
    EXPECT_EQ(vdirManager().VirtualDirectories().Count(), 1U);
    EXPECT_EQ(GetSetting(application, "User", "LCase"), "") << "greeted until the options are applied";
    EXPECT_EQ(lastDir, files.program());
    EXPECT_EQ(mainForm().Combo4.list(), (std::vector<std::string>{"(User Strings)", "Rule"}));
    EXPECT_FALSE(menu("mnuEdit").visible() || menu("mnuFile_Line2").visible());
    EXPECT_EQ(platform.shownModeless, std::vector<std::string>{"MDIForm1"});
}

TEST_F(Startup, TakesTheStoredDirectoryColoursMappingsAndNewDocument) {
    SaveSetting(application, "User", "InitDir", "/var/www");
    for (const auto& [key, value] :
         {std::pair{"BGColor", "255"}, {"ForeColor", "16777215"}, {"EnforceVDirs", "1"}, {"newFile", "True"}})
        SaveSetting(application, "User", key, value);
    platform.expectMessage(noSuchFile(files.program() + "/Templates/Default Template.tpl"));
    start();
    EXPECT_EQ(lastDir, "/var/www");
    EXPECT_TRUE(vdirManager().EnforceVDirs());
    EXPECT_EQ(mainForm().TabStrip1.count(), 0U);
    files.write("program/Templates/Default Template.tpl", "<HTML>\r\n");
    checkNewFile();
    EXPECT_EQ(mainForm().TabStrip1.selectedItem().caption, "Untitled 1");
    EXPECT_TRUE(menu("mnuFile_Save").reachable());
    const EditControl& text = mainForm().activeForm().Text1;
    EXPECT_EQ(text.text(), "<HTML>\r\n");
    EXPECT_EQ(text.backColor(), 255);
    EXPECT_EQ(text.selColor(), 16777215);
    EXPECT_TRUE(documentManager().currentDocument().IsSaved());
}

TEST_F(Startup, RefusesASecondCopyAndLeavesTheSettingsAlone) {
    const SingleInstance first;
    platform.expectMessage(exclamation("Kelvor is already running.", "Kelvor"));
    EXPECT_FALSE(startKelvor());
    EXPECT_TRUE(platform.shownModeless.empty());
    EXPECT_EQ(GetSetting(application, "User", "EnforceVDirs", "untouched"), "untouched");
}

TEST_F(Startup, ItsEndAsksForAllBeforeTheFirstGoesAndKeepsAllAfterACancel) {
    start();
    for (const char* name : {"a.htm", "b.htm"}) {
        open(name, "old");
        type("new");
    }
    platform.expectMessage(saveQuestion(files.path("a.htm")), Answer::yes);
    platform.expectMessage(saveQuestion(files.path("b.htm")), Answer::cancel);
    mnuFile_Exit_Click();
    EXPECT_EQ(documentManager().MyDocuments().Count(), 2U);
    EXPECT_EQ(files.read("a.htm"), "newold");
    platform.expectMessage(saveQuestion(files.path("b.htm")), Answer::yes);
    mnuFile_Exit_Click();
    EXPECT_TRUE(loadedForms().empty());
    EXPECT_THROW(documentManager(), Error);
    EXPECT_EQ(files.read("b.htm"), "newold");
    EXPECT_TRUE(SingleInstance().isFirst());
}

}  // namespace
}  // namespace kelvor
