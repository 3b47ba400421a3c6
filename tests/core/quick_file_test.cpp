#include "core/quick_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "authoring/common.h"
#include "platform/volumes.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class QuickFile : public KelvorTest {
protected:
    QuickFile() {
        std::filesystem::create_directories(files.path("site/pictures"));
        for (const char* name : {"b.htm", "A.HTM", "c.txt", "noending"}) files.write(std::string("site/") + name, name);
        SaveSetting(application, "User", "InitDir", files.path("site"));
    }

    FileList& list() { return mainForm().File1; }
};

TEST_F(QuickFile, ShowsTheLastDirectoryAtStart) {
    start();
    EXPECT_EQ(mainForm().Dir1.path(), files.path("site"));
    EXPECT_EQ(mainForm().Drive1.drive(), volumeOf(files.path("site"), mountedVolumes()));
    EXPECT_EQ(mainForm().Dir1.rows().back().name, "pictures");
    EXPECT_EQ(mainForm().Dir1.rows()[static_cast<std::size_t>(mainForm().Dir1.currentRow())].name, "site");
    EXPECT_EQ(list().list(), (std::vector<std::string>{"A.HTM", "b.htm", "c.txt", "noending"}));
    EXPECT_TRUE(mainForm().CoolBar1.visible());
    EXPECT_TRUE(menu("mnuView_QuickFile").checked());
    EXPECT_TRUE(mainForm().Toolbar2.button("quick_file").pressed);
}

TEST_F(QuickFile, TheFilterIsKeptForTheNextStart) {
    SaveSetting(application, "User", "QuickFileLastFilter", "1");
    start();
    EXPECT_EQ(mainForm().Combo5.text(), "*.htm");
    EXPECT_EQ(list().list(), (std::vector<std::string>{"A.HTM", "b.htm"}));
    mainForm().Combo5.choose(3);
    EXPECT_EQ(list().list(), std::vector<std::string>{"c.txt"});
    EXPECT_EQ(GetSetting(application, "User", "QuickFileLastFilter"), "3");
    mainForm().Combo5.type("?.h*");
    EXPECT_EQ(list().list(), (std::vector<std::string>{"A.HTM", "b.htm"}));
    EXPECT_EQ(GetSetting(application, "User", "QuickFileLastFilter"), "-1");
}

TEST_F(QuickFile, ATypedFilterOfTheLastRunComesBackAsTheFirstRow) {
    SaveSetting(application, "User", "QuickFileLastFilter", "-1");
    start();
    EXPECT_EQ(mainForm().Combo5.listIndex(), 0);
}

TEST_F(QuickFile, OpensTheSelectedFiles) {
    start();
    list().setSelected(0, true);
    list().setSelected(2, true);
    list().keyUp.raise(13);
    EXPECT_EQ(mainForm().TabStrip1.count(), 2U);
    EXPECT_EQ(mainForm().recentFiles.Count(), 2U);
    EXPECT_TRUE(menu("mnuEdit").visible());
    list().doubleClick(1);
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("site/b.htm"));
    EXPECT_EQ(lastDir, files.path("site"));
}

TEST_F(QuickFile, AFileThatIsGoneIsToldAndTheOthersOpen) {
    start();
    for (std::size_t index = 0; index < 3; ++index) list().setSelected(index, true);
    std::filesystem::remove(files.path("site/b.htm"));
    platform.expectPopup([this](MenuItem& popup) {
        EXPECT_EQ(popup.name(), "mnuQuickOpen");
        menu("mnuQuickOpen_Open").click();
    });
    platform.expectMessage({.text = "The file " + files.path("site/b.htm") + " does not exist.",
                            .title = "File Open Error",
                            .icon = MessageIcon::exclamation});
    platform.expectMessage({.text = "An error occurred while opening " + files.path("site/b.htm") +
                                    "\r\nMake sure that the file is not already locked by another application.",
                            .title = "File open error",
                            .icon = MessageIcon::critical});
    list().mouseDown.raise({.button = MousePress::right});
    EXPECT_EQ(mainForm().TabStrip1.count(), 2U);
}

TEST_F(QuickFile, OpeningTheShownDirectoryAgainReadsItAnew) {
    start();
    files.write("site/new.htm", "");
    mainForm().Dir1.open(mainForm().Dir1.currentRow());
    EXPECT_EQ(list().list().size(), 5U);
}

TEST_F(QuickFile, ANetworkDirectoryAtStartLeavesTheListsOnTheCurrentDrive) {
    SaveSetting(application, "User", "InitDir", "//srv/share");
    start();
    EXPECT_EQ(mainForm().Drive1.drive(), "/");
    EXPECT_EQ(mainForm().Dir1.path(), std::filesystem::current_path().string());
}

TEST_F(QuickFile, AnEmptyListHasNoPopup) {
    start();
    mainForm().Dir1.setPath(files.path("site/pictures"));
    EXPECT_TRUE(list().list().empty());
    list().mouseDown.raise({.button = MousePress::right});
}

TEST_F(QuickFile, ANetworkOrMissingDirectoryLeavesTheListsWhereTheyAre) {
    start();
    for (const char* directory : {"\\\\server\\share", "//server/share", ""}) {
        lastDir = directory;
        SetQuickView();
        EXPECT_EQ(mainForm().Dir1.path(), files.path("site")) << directory;
    }
    lastDir = files.path("gone");
    SetQuickView();
    EXPECT_EQ(mainForm().Dir1.path(), files.path("site"));
}

TEST_F(QuickFile, ADriveThatIsGoneIsAnErrorAndTheListsStay) {
    start();
    int told = 0;
    setErrorSink([&](const Error& error) { told = error.number(); });
    guarded([] { mainForm().Drive1.setDrive("/media/gone"); });
    EXPECT_EQ(told, error_number::deviceUnavailable);
    EXPECT_EQ(mainForm().Dir1.path(), files.path("site"));
}

TEST_F(QuickFile, IsHiddenByItsSettingAndShownByItsCommands) {
    SaveSetting(application, "User", "QuickFile", "true");
    start();
    EXPECT_FALSE(mainForm().CoolBar1.visible()) << "only the exact word counts";
    mainForm().Toolbar2.click("quick_file");
    EXPECT_TRUE(mainForm().CoolBar1.visible());
    menu("mnuView_QuickFile").click();
    EXPECT_FALSE(mainForm().CoolBar1.visible());
    EXPECT_FALSE(mainForm().Toolbar2.button("quick_file").pressed);
    EXPECT_EQ(GetSetting(application, "User", "QuickFile"), "true");
}

TEST(Volumes, AreTheMountPointsThatPeopleUse) {
    const char* mountInfo =
        "22 1 8:1 / / rw,relatime - ext4 /dev/sda1 rw\n"
        "23 22 0:21 / /proc rw,nosuid - proc proc rw\n"
        "24 22 0:22 / /sys rw - sysfs sysfs rw\n"
        "25 22 8:2 / /usr rw shared:3 - ext4 /dev/sda2 rw\n"
        "26 22 0:30 / /tmp rw - tmpfs tmpfs rw\n"
        "27 22 7:0 / /var ro - squashfs /dev/loop0 ro\n"
        "28 22 0:40 / /home rw - nfs4 server:/home rw\n"
        "29 22 8:3 / /not\\040there rw - vfat /dev/sdb1 rw\n"
        "junk\n";
    EXPECT_EQ(volumesIn(mountInfo), (std::vector<std::string>{"/", "/home", "/usr"}));
    const std::vector<std::string> volumes = {"/", "/home", "/home/media"};
    EXPECT_EQ(volumeOf("/home/me/x", volumes), "/home");
    EXPECT_EQ(volumeOf("/home/media", volumes), "/home/media");
    EXPECT_EQ(volumeOf("/homer", volumes), "/");
    EXPECT_EQ(volumeOf("C:\\web", volumes), "");
}

}  // namespace
}  // namespace kelvor
