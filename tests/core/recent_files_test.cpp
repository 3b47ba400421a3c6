#include "core/recent_files.h"

#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"
#include "tests/kit/messages.h"

namespace kelvor {
namespace {

struct RecentFiles : KelvorTest {
    RecentFiles() { start(); }
};

TEST_F(RecentFiles, TheRecentListKeepsTheLastFiveAndOpensThemOrTellsThatTheyAreGone) {
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

}  // namespace
}  // namespace kelvor
