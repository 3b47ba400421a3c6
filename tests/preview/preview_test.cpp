#include "preview/preview.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/enablement.h"
#include "core/file_open.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

const Message needsSave = {.text = "File must be saved before a preview can be executed.\r\nSave file now?",
                           .title = "Preview requires save.",
                           .icon = MessageIcon::question,
                           .buttons = MessageButtons::yesNo};

class Preview : public KelvorTest {
protected:
    Preview() { start(); }

    void listBrowser(const std::string& label, const std::string& program) {
        SaveSetting(application, "Browsers", label, program);
        setUpBrowsers();
    }
    MenuItem& browserRow(int index) { return menu("mnuRClick_Preview_altb_" + std::to_string(index)); }
};

TEST_F(Preview, ASavedDocumentIsShownWithoutAQuestion) {
    CDocument& document = open("a.htm", "x");
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.ViewMode(), view_mode::preview);
    EXPECT_EQ(document.PreviewWB().address(), files.path("a.htm"));
}

TEST_F(Preview, NoKeepsTheSourceAndYesSavesFirst) {
    CDocument& document = open("a.htm", "x");
    type("y");
    platform.expectMessage(needsSave, Answer::no);
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.ViewMode(), view_mode::source);
    EXPECT_TRUE(menu("mnuEdit").visible());
    EXPECT_TRUE(mainForm().Toolbar4.button("Source").pressed);

    platform.expectMessage(needsSave, Answer::yes);
    menu("mnuView_Preview").click();
    EXPECT_EQ(files.read("a.htm"), "yx");
    EXPECT_EQ(document.ViewMode(), view_mode::preview);
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
    EXPECT_FALSE(menu("mnuEdit").visible());
    EXPECT_EQ(platform.beeps, 2);
}

TEST_F(Preview, AFailedSaveIsToldAndStaysInSource) {
    CDocument& document = open("a.htm", "x");
    type("y");
    chmod(files.path("a.htm").c_str(), 0444);
    platform.expectMessage(needsSave, Answer::yes);
    platform.expectMessage({.text = "An error occured while saving the file [" + files.path("a.htm") + "].",
                            .title = "File Save Error",
                            .icon = MessageIcon::critical});
    menu("mnuView_Preview").click();
    EXPECT_EQ(document.ViewMode(), view_mode::source);
}

TEST_F(Preview, ACancelledNameGoesOnWithTheUntitledSourceInFront) {
    ASSERT_TRUE(fileOpen(files.write("t.tpl", "text"), true));
    enableMenuItems();
    platform.expectMessage(needsSave, Answer::yes);
    platform.expectSave("");
    menu("mnuView_Preview").click();
    const CDocument& document = documentManager()->currentDocument();
    EXPECT_EQ(document.ViewMode(), view_mode::preview);
    EXPECT_EQ(document.PreviewWB().address(), "");
    EXPECT_FALSE(menu("mnuEdit").visible());
}

TEST_F(Preview, TheDesktopsBrowserGetsTheFileWhateverTheMappings) {
    vdirManager()->VirtualDirectories().Add(files.path(""), "http://localhost/", "web");
    vdirManager()->setEnforceVDirs(true);
    open("a b#%41.htm", "x");
    menu("mnuRClick_Preview_Default").click();
    EXPECT_EQ(platform.opened, std::vector<std::string>{files.path("a b#%41.htm")});
}

TEST_F(Preview, AListedBrowserGetsThePathAsOneArgument) {
    const std::string blank = files.write("my browser", "#!/bin/sh\n");
    chmod(blank.c_str(), 0755);
    struct Case {
        std::string stored;
        std::string started;
    };
    open("-rf $(x) '\".htm", "x");
    const std::string page = files.path("-rf $(x) '\".htm");
    for (const Case& row : {Case{blank, std::string(blank).append("|").append(page)},
                            {"firefox --new-window", "firefox|--new-window|" + page},
                            {"\"/opt/a b/browser\" -x", "/opt/a b/browser|-x|" + page}}) {
        listBrowser("Mine", row.stored);
        browserRow(0).click();
        EXPECT_EQ(platform.started.back(), row.started);
    }
}

TEST_F(Preview, OnlyABrowserThatIsGoneIsTold) {
    open("a.htm", "x");
    listBrowser("Gone", "gone");
    platform.startFails["gone"] = error_number::fileNotFound;
    const Message told = {.text =
                              "The executable you have provided for this option can not be found.  Please check your "
                              "preferences.",
                          .title = "Program executable not found",
                          .icon = MessageIcon::critical};
    platform.expectMessage(told);
    browserRow(0).click();
    platform.startFails["gone"] = error_number::pathAccess;
    browserRow(0).click();
    SaveSetting(application, "Browsers", "Gone", "");
    platform.expectMessage(told);
    browserRow(0).click();
}

TEST_F(Preview, TheMenuListsUpToFifteenBrowsers) {
    EXPECT_FALSE(browserRow(0).visible());
    for (int index = 1; index <= 15; ++index) listBrowser("B" + std::to_string(index), "b");
    EXPECT_EQ(browserRow(0).caption(), "B1");
    EXPECT_EQ(browserRow(14).caption(), "B15");
    EXPECT_TRUE(browserRow(14).visible());
    SaveSetting(application, "Browsers", "B16", "b");
    EXPECT_THROW(setUpBrowsers(), Error);
    DeleteSetting(application, "Browsers", "B16");
    DeleteSetting(application, "Browsers", "B15");
    setUpBrowsers();
    EXPECT_FALSE(browserRow(14).visible());
    EXPECT_EQ(browserRow(14).caption(), "");
}

}  // namespace
}  // namespace kelvor
