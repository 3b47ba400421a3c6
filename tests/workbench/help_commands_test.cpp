// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "support/help_pages.h"
#include "support/html_help.h"
#include "support/report_error.h"
#include "tests/kit/kelvor_fixture.h"
#include "workbench/help_commands.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

using Help = FrameTest;

TEST_F(Help, ShowsThePageOfEachPlaceAndTheSites) {
    const std::string file = files.program() + "/HTML Help/Kelvor HTML Help.chm";
    for (const auto show : {mnuHelp_sckeys_Click, mnuHelp_tavlok_Click, mnuHelp_mirrel_Click}) show();
    showHelpPage("preferences", "14");
    EXPECT_EQ(platform.helpPages, (std::vector{file + "::/33.html", file + "::/20.html", file + "::/26.html", file}));
    for (const HelpPage& row : helpPages)
        EXPECT_EQ(helpPage(row.where, row.variant), row.page) << row.where << " twice";
    mnuHelp_Web_Home_Click();
    EXPECT_EQ(platform.opened, std::vector<std::string>{"https://www.kelvor.example/kelvorinfo.html"});
}

TEST_F(Help, ShowsTheLogInTheFirstEditorOfTheDesktopOrSaysThatThereIsNone) {
    fs::create_directory(files.path("bin"));
    const ScopedVariable path("PATH", files.path("none") + "::" + files.path("bin"));
    platform.expectMessage(information("No errors has been logged", "No error log found"));
    mnuHelp_ViewErrLog_Click();
    files.write("program/errorlog.txt", "a line\r\n");
    mnuHelp_ViewErrLog_Click();
    for (const auto* name : {"bin/xedit", "bin/kate"}) fs::permissions(files.write(name, ""), fs::perms(0755));
    files.write("bin/gedit", "");
    mnuHelp_ViewErrLog_Click();
    EXPECT_EQ(platform.started,
              (std::vector<std::string>{"gnome-text-editor|" + errorLogPath(), "kate|" + errorLogPath()}));
}

}  // namespace
}  // namespace kelvor
