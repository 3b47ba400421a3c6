// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/quick_file.h"

#include <filesystem>

#include "files/volumes.h"
#include "frame/file_dialogs.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using Names = std::vector<std::string>;

class QuickFile : public KelvorTest {
protected:
    QuickFile() {
        std::filesystem::create_directories(files.path("site/pictures"));
        for (const char* name : {"b.htm", "A.HTM", "c.txt", "noending"}) files.write(std::string("site/") + name, name);
        SaveSetting(application, "User", "InitDir", files.path("site"));
    }

    FileList& list() { return mainForm().File1; }
};

TEST_F(QuickFile, ShowsTheLastDirectoryAtStartAndKeepsTheFilter) {
    SaveSetting(application, "User", "QuickFileLastFilter", "1");
    start();
    EXPECT_EQ(mainForm().Dir1.path(), files.path("site"));
    EXPECT_EQ(mainForm().Drive1.drive(), volumeOf(files.path("site"), mountedVolumes()));
    EXPECT_EQ(mainForm().Dir1.rows().back().name, "pictures");
    EXPECT_EQ(mainForm().Combo5.text(), "*.htm");
    EXPECT_EQ(list().list(), (Names{"A.HTM", "b.htm"}));
    mainForm().Combo5.choose(3);
    EXPECT_EQ(list().list(), Names{"c.txt"});
    EXPECT_EQ(GetSetting(application, "User", "QuickFileLastFilter"), "3");
    mainForm().Combo5.type("*");
    EXPECT_EQ(list().list(), (Names{"A.HTM", "b.htm", "c.txt", "noending"}));
    EXPECT_EQ(GetSetting(application, "User", "QuickFileLastFilter"), "-1");
}

TEST_F(QuickFile, OpensTheSelectedFilesTellsOfOneThatIsGoneAndOffersNothingInAnEmptyList) {
    start();
    for (std::size_t index = 0; index < 3; ++index) list().setSelected(index, true);
    const std::string gone = files.path("site/b.htm");
    std::filesystem::remove(gone);
    platform.expectPopup([this](MenuItem& popup) {
        EXPECT_EQ(popup.name(), "mnuQuickOpen");
        menu("mnuQuickOpen_Open").click();
    });
    platform.expectMessage(noSuchFile(gone));
    platform.expectMessage(openError(gone));
    list().mouseDown.raise({.button = MousePress::right});
    EXPECT_EQ(mainForm().TabStrip1.count(), 2U);
    EXPECT_EQ(mainForm().recentFiles.Count(), 2U);
    EXPECT_TRUE(menu("mnuEdit").visible());
    list().doubleClick(0);
    EXPECT_EQ(mainForm().activeForm().caption(), files.path("site/A.HTM"));
    list().keyUp.raise({.keyCode = key_code::enter});
    EXPECT_EQ(mainForm().TabStrip1.count(), 4U);
    mainForm().Dir1.setPath(files.path("site/pictures"));
    list().mouseDown.raise({.button = MousePress::right});
}

TEST_F(QuickFile, StartsAsItsSettingsSayUnlessTheyCannotBeShown) {
    SaveSetting(application, "User", "InitDir", "//srv/share");
    SaveSetting(application, "User", "QuickFileLastFilter", "-1");
    SaveSetting(application, "User", "QuickFile", "true");
    start();
    EXPECT_EQ(mainForm().Drive1.drive(), "/");
    EXPECT_EQ(mainForm().Dir1.path(), std::filesystem::current_path().string());
    EXPECT_EQ(mainForm().Combo5.listIndex(), 0) << "the typed filter of the last run is gone";
    EXPECT_FALSE(mainForm().CoolBar1.visible()) << "only the exact word counts";
    mainForm().Toolbar2.click("quick_file");
    EXPECT_TRUE(mainForm().CoolBar1.visible() && mainForm().Toolbar2.button("quick_file").pressed);
    menu("mnuView_QuickFile").click();
    EXPECT_FALSE(mainForm().CoolBar1.visible());
    EXPECT_EQ(GetSetting(application, "User", "QuickFile"), "true");
}

TEST_F(QuickFile, WhatCannotBeShownLeavesTheListsWhereTheyAreButReadAnew) {
    start();
    for (const std::string& directory : {std::string("\\\\server\\share"), std::string(), files.path("gone")}) {
        lastDir = directory;
        SetQuickView();
        EXPECT_EQ(mainForm().Dir1.path(), files.path("site")) << directory;
    }
    const auto drive = [] { guarded([] { mainForm().Drive1.setDrive("/media/gone"); }); };
    EXPECT_EQ(reportedBy(drive), "68 Device unavailable: /media/gone;");
    lastDir = "C:\\web";
    EXPECT_EQ(reportedBy([] { guarded(SetQuickView); }), "68 Device unavailable: C:\\web;");
    files.write("site/new.htm", "");
    mainForm().Dir1.open(mainForm().Dir1.currentRow());
    EXPECT_EQ(list().list().size(), 5U);

    const std::string gone = files.path("site/pictures");
    std::filesystem::remove(gone);
    const std::string told = "76 The folder does not exist: " + gone + ";";
    const auto open = [] { guarded([] { mainForm().Dir1.open(mainForm().Dir1.currentRow() + 1); }); };
    EXPECT_EQ(reportedBy(open), told);
    EXPECT_EQ(reportedBy([&] { guarded([&] { list().setPath(gone); }); }), told);
    EXPECT_EQ(mainForm().Dir1.path() + list().path(), files.path("site") + files.path("site"));
    EXPECT_EQ(list().list().size(), 5U);
}

}  // namespace
}  // namespace kelvor
