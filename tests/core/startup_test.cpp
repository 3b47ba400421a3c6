#include "core/startup.h"

#include <gtest/gtest.h>

#include "authoring/common.h"
#include "core/file_close.h"
#include "core/new_file.h"
#include "platform/single_instance.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

const Message firstTime = {.text =
                               "This is your first time using Kelvor.  Take a minute to setup your preferences once "
                               "the program has loaded.",
                           .title = "First time user",
                           .icon = MessageIcon::information};

class Startup : public KelvorTest {};

TEST_F(Startup, GreetsAsLongAsTheOptionsWereNeverAppliedAndComesUpEmpty) {
    platform.expectMessage(firstTime);
    ASSERT_TRUE(startKelvor());
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_EQ(GetSetting(application, "User", "LCase"), "");
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 0U);
    EXPECT_EQ(mainForm().TabStrip1.count(), 0U);
    EXPECT_FALSE(mainForm().Picture2.visible());
    EXPECT_FALSE(menu("mnuEdit").visible());
    EXPECT_FALSE(menu("mnuWindow").visible());
    EXPECT_FALSE(menu("mnuFile_Save").enabled());
    EXPECT_FALSE(menu("mnuFile_Line2").visible());
    EXPECT_EQ(lastDir, files.program());
    EXPECT_EQ(platform.shownModeless, std::vector<std::string>{"MDIForm1"});
}

TEST_F(Startup, FillsTheInsertListsAndShowsTheirHeadings) {
    SaveSetting(application, "UserStrings", "Footer", "<HR>\r\n&copy; me");
    start();
    EXPECT_EQ(mainForm().Combo1.list(), (std::vector<std::string>{"Head", "H1", "H2", "H3", "H4", "H5", "H6"}));
    EXPECT_EQ(mainForm().Combo2.text(), "(Font Name)");
    EXPECT_EQ(mainForm().Combo3.text(), "(Size)");
    EXPECT_EQ(mainForm().Combo4.list(), (std::vector<std::string>{"(User Strings)", "Footer"}));
    EXPECT_EQ(mainForm().Combo4.listIndex(), 0);
}

TEST_F(Startup, TakesTheStoredDirectoryColoursAndMappings) {
    SaveSetting(application, "User", "InitDir", "/var/www");
    SaveSetting(application, "User", "BGColor", "255");
    SaveSetting(application, "User", "ForeColor", "16777215");
    SaveSetting(application, "User", "EnforceVDirs", "1");
    start();
    EXPECT_EQ(lastDir, "/var/www");
    EXPECT_TRUE(vdirManager()->EnforceVDirs());
    CDocument& document = open("a.htm", "text");
    EXPECT_EQ(document.SourceRTB().backColor(), 255);
    EXPECT_EQ(document.SourceRTB().selColor(), 16777215);
    EXPECT_TRUE(document.IsSaved());
}

TEST_F(Startup, AColourThatIsNoNumberIsToldAndTheStartGoesOn) {
    SaveSetting(application, "User", "LCase", "False");
    SaveSetting(application, "User", "BGColor", "blue");
    SaveSetting(application, "UserStrings", "Rule", "<HR>");
    platform.expectMessage({.text = "An application error has occurred:\r\n\r\nError number: 13\r\n"
                                    "Error description: Type mismatch: \"blue\"",
                            .title = "Application Error",
                            .icon = MessageIcon::critical});
    ASSERT_TRUE(startKelvor());
    EXPECT_EQ(mainForm().Combo4.list().size(), 2U);
    EXPECT_FALSE(menu("mnuEdit").visible());
}

TEST_F(Startup, ASixteenthBrowserIsToldAndTheStartGoesOn) {
    SaveSetting(application, "User", "LCase", "False");
    for (int index = 0; index < 16; ++index) SaveSetting(application, "Browsers", "B" + std::to_string(index), "b");
    platform.expectMessage({.text = "An application error has occurred:\r\n\r\nError number: 35601\r\n"
                                    "Error description: There is no menu mnuRClick_Preview_altb_15",
                            .title = "Application Error",
                            .icon = MessageIcon::critical});
    ASSERT_TRUE(startKelvor());
    EXPECT_FALSE(menu("mnuEdit").visible());
    EXPECT_EQ(mainForm().Combo5.list().size(), 9U);
}

TEST_F(Startup, OpensAnUntitledDocumentFromTheDefaultTemplate) {
    files.write("program/Templates/Default Template.tpl", "<HTML>\r\n</HTML>\r\n");
    SaveSetting(application, "User", "newFile", "True");
    start();
    EXPECT_EQ(mainForm().TabStrip1.selectedItem().caption, "Untitled 1");
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "<HTML>\r\n</HTML>\r\n");
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
    EXPECT_TRUE(menu("mnuFile_Save").reachable());
    EXPECT_EQ(mainForm().untitledCount, 2);
}

TEST_F(Startup, AMissingDefaultTemplateIsToldOnce) {
    SaveSetting(application, "User", "newFile", "True");
    platform.expectMessage({.text = "The file " + files.program() + "/Templates/Default Template.tpl does not exist.",
                            .title = "File Open Error",
                            .icon = MessageIcon::exclamation});
    start();
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 0U);
    EXPECT_TRUE(mainForm().enabled());
    EXPECT_EQ(mainForm().untitledCount, 1);
}

TEST_F(Startup, RefusesASecondCopyAndLeavesTheSettingsAlone) {
    const SingleInstance first;
    ASSERT_TRUE(first.isFirst());
    platform.expectMessage({.text = "Kelvor is already running.", .title = "Kelvor", .icon = MessageIcon::exclamation});
    EXPECT_FALSE(startKelvor());
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_TRUE(platform.shownModeless.empty());
    EXPECT_EQ(GetSetting(application, "User", "EnforceVDirs", "untouched"), "untouched");
}

TEST_F(Startup, ABlankLineInTheMappingsIsToldAndTheOnesAboveItHold) {
    files.write("program/VDirs.txt", "/srv|http://localhost\n\n/other|http://never\n");
    platform.expectMessage({.text = "Unable to read VDirs.txt.  Please consult the online help.",
                            .title = "File read failed",
                            .icon = MessageIcon::critical});
    start();
    EXPECT_EQ(vdirManager()->VirtualDirectories().Count(), 1U);
}

class Exit : public KelvorTest {};

TEST_F(Exit, ACancelAtTheSecondOfThreeKeepsAllOpenAndTheFirstSaved) {
    start();
    const std::string first = open("a.htm", "a").LongFileName();
    type("1");
    const std::string second = open("b.htm", "b").LongFileName();
    type("2");
    open("c.htm", "c");
    type("3");
    platform.expectMessage(saveQuestion(first), Answer::yes);
    platform.expectMessage(saveQuestion(second), Answer::cancel);
    mnuFile_Exit_Click();
    EXPECT_EQ(documentManager()->MyDocuments().Count(), 3U);
    EXPECT_EQ(files.read("a.htm"), "1a");
    EXPECT_EQ(files.read("b.htm"), "b");
    EXPECT_TRUE(documentManager()->MyDocuments().Item(0)->IsSaved());
    EXPECT_TRUE(mainForm().isLoaded());
}

TEST_F(Exit, AsksForAllBeforeTheFirstGoesAndReleasesTheManagers) {
    start();
    const std::string first = open("a.htm", "a").LongFileName();
    type("1");
    const std::string second = open("b.htm", "b").LongFileName();
    type("2");
    platform.expectMessage(saveQuestion(first), Answer::no);
    platform.expectMessage(saveQuestion(second), Answer::yes);
    mnuFile_Exit_Click();
    EXPECT_FALSE(mainForm().isLoaded());
    EXPECT_TRUE(loadedForms().empty());
    EXPECT_EQ(documentManager(), nullptr);
    EXPECT_EQ(vdirManager(), nullptr);
    EXPECT_EQ(files.read("a.htm"), "a");
    EXPECT_EQ(files.read("b.htm"), "2b");
}

TEST_F(Exit, FreesTheLockForTheNextStart) {
    start();
    EXPECT_FALSE(SingleInstance().isFirst());
    mnuFile_Exit_Click();
    EXPECT_TRUE(SingleInstance().isFirst());
}

}  // namespace
}  // namespace kelvor
