// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview.h"

#include <sys/stat.h>

#include "core/file_open.h"
#include "frame/enablement.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Preview : public StartedTest {
protected:
    void listBrowser(const std::string& program) {
        SaveSetting(application, "Browsers", "Mine", program);
        setUpBrowsers();
    }
    MenuItem& browserRow() { return menu("mnuRClick_Preview_altb_0"); }
};

TEST_F(Preview, NeedsASavedFileOrShowsNothingWhenTheNameIsCancelled) {
    const CDocument& document = open("a.htm", "x");
    type("y");
    platform.expectBox("Preview requires save.", Answer::no);
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.ViewMode(), view_mode::source);
    EXPECT_TRUE(mainForm().Toolbar4.button("Source").pressed);

    chmod(files.path("a.htm").c_str(), 0444);
    platform.expectBox("Preview requires save.", Answer::yes);
    platform.expectMessage(saveError(files.path("a.htm"), "The file is read-only."));
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.ViewMode(), view_mode::source);
    chmod(files.path("a.htm").c_str(), 0644);
    platform.expectBox("Preview requires save.", Answer::yes);
    menu("mnuView_Preview").click();
    EXPECT_EQ(files.read("a.htm"), "yx");
    EXPECT_EQ(document.ViewMode(), view_mode::preview);

    ASSERT_TRUE(fileOpen(files.write("t.tpl", "text"), true));
    platform.expectBox("Preview requires save.", Answer::yes);
    platform.expectSave("");
    menu("mnuView_Preview").click();
    EXPECT_EQ(documentManager().currentDocument().ViewMode(), view_mode::preview);
    EXPECT_EQ(documentManager().currentDocument().PreviewWB().address(), "");

    platform.expectBox("Preview requires save.", Answer::yes);
    platform.expectSave("");
    platform.expectMessage(exclamation("[Untitled 1] has no file yet, so there is nothing that a browser could show.",
                                       "Preview requires save."));
    menu("mnuRClick_Preview_Default").click();
    EXPECT_EQ(platform.opened, std::vector<std::string>());
}

TEST_F(Preview, OnlyTheViewGoesByTheMappings) {
    vdirManager().VirtualDirectories().Add(files.path(""), "http://localhost/", "web");
    const CDocument& document = open("-rf $(x) '\"#%41.htm", "x");
    const std::string page = document.LongFileName();
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.PreviewWB().address(), page);
    EXPECT_EQ(document.PreviewWB().mapped(), "");
    menu("mnuView_Source").click();
    EXPECT_EQ(document.PreviewWB().address(), "") << "the page must go";
    setEnforceVDirs(true);
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.PreviewWB().address(), "http://localhost/-rf $(x) '\"#%41.htm");
    EXPECT_EQ(document.PreviewWB().mapped(), "http://localhost/-rf%20%24%28x%29%20%27%22%23%2541.htm");
    EXPECT_EQ(document.PreviewWB().flags(), WebBrowser::noHistory | WebBrowser::noWriteToCache);
    EXPECT_EQ(document.SourceForm().StatusBar1.simpleText(), document.PreviewWB().address());
    menu("mnuRClick_Preview_Default").click();
    EXPECT_EQ(platform.opened, std::vector<std::string>{page});
    listBrowser("\"/opt/a b/browser\" -x");
    browserRow().click();
    EXPECT_EQ(platform.started, std::vector<std::string>{"/opt/a b/browser|-x|" + page});
}

TEST_F(Preview, OnlyABrowserThatIsGoneIsTold) {
    open("a.htm", "x");
    listBrowser("browser");
    for (const int number : {error_number::pathAccess, error_number::fileNotFound}) {
        platform.startFails["browser"] = number;
        if (number == error_number::fileNotFound) platform.expectBox("Program executable not found");
        browserRow().click();
    }
    listBrowser("");
    platform.expectBox("Program executable not found");
    browserRow().click();
    DeleteSetting(application, "Browsers", "Mine");
    setUpBrowsers();
    EXPECT_FALSE(browserRow().visible());
}

}  // namespace
}  // namespace kelvor
