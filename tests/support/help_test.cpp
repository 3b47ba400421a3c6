#include <filesystem>

#include "support/desktop_tools.h"
#include "support/help_commands.h"
#include "support/help_pages.h"
#include "support/html_help.h"
#include "support/report_error.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

struct Help : FrameFixture {
    std::string file = directory.program() + "/HTML Help/Kelvor HTML Help.chm";
};

/// PATH holds one private directory while it lives.
class PrivatePath {
public:
    explicit PrivatePath(const std::string& directory) : before_(std::getenv("PATH")) {
        setenv("PATH", directory.c_str(), 1);
    }
    ~PrivatePath() { setenv("PATH", before_.c_str(), 1); }
    PrivatePath(const PrivatePath&) = delete;
    PrivatePath& operator=(const PrivatePath&) = delete;

private:
    std::string before_;
};

TEST_F(Help, ShowsThePageOfEachPlace) {
    mnuHelp_htmlhelp_Click();
    mnuHelp_sckeys_Click();
    mnuHelp_tavlok_Click();
    mnuHelp_mirrel_Click();
    showHelpPage("frmFormTextBox", "Submit");
    EXPECT_EQ(platform.helpPages, (std::vector<std::string>{file, file + "::/33.html", file + "::/20.html",
                                                            file + "::/26.html", file + "::/56.html"}));
}

TEST_F(Help, HasOnePageForEachPlace) {
    EXPECT_EQ(helpPage("frmImage", imageFieldEnabled), "23.html");
    EXPECT_EQ(helpPage("frmImage"), "51.html");
    EXPECT_EQ(helpPage("preferences", "4"), "60.html");
    EXPECT_EQ(helpPage("preferences", "14"), "");
    for (const HelpPage& row : helpPages) EXPECT_EQ(helpPage(row.where, row.variant), row.page) << row.where;
}

TEST_F(Help, SaysThatAFileWhichFailedCannotBeLoaded) {
    HtmlHelp help;
    help.setHelpFileName("help.chm");
    help.setFailed(true);
    const Message message{.text = "The HTML Help file cannot be loaded, an error was encountered.",
                          .title = "HTML Help file error",
                          .icon = MessageIcon::critical};
    platform.expectMessage(message);
    help.help_home();
    EXPECT_EQ(platform.beeps, 1);
    platform.expectMessage(message);
    help.help_topic("1.html");
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_TRUE(platform.helpPages.empty());
}

TEST_F(Help, OpensTheSitesPages) {
    mnuHelp_Web_Home_Click();
    mnuHelp_Web_Bug_Click();
    mnuHelp_Web_KVHome_Click();
    EXPECT_EQ(platform.opened,
              (std::vector<std::string>{"https://www.kelvor.example/kelvorinfo.html",
                                        "https://www.kelvor.example/feedback.html", "https://www.kelvor.example/"}));
}

TEST_F(Help, ShowsTheLogInTheFirstEditorOfTheDesktopOrSaysThatThereIsNone) {
    fs::create_directory(directory.path("bin"));
    const PrivatePath only(directory.path("none") + "::" + directory.path("bin"));
    platform.expectMessage(
        {.text = "No errors has been logged", .title = "No error log found", .icon = MessageIcon::information});
    mnuHelp_ViewErrLog_Click();
    EXPECT_EQ(platform.beeps, 1);

    directory.write("program/errorlog.txt", "a line\r\n");
    platform.startFails["gnome-text-editor"] = error_number::fileNotFound;
    platform.expectMessage(
        {.text = "The executable file required can not be found.\r\n\r\nFile: gnome-text-editor " + errorLogPath(),
         .title = "File not found",
         .icon = MessageIcon::critical});
    mnuHelp_ViewErrLog_Click();

    for (const auto* name : {"bin/xedit", "bin/kate", "bin/gedit"}) directory.write(name, "");
    for (const auto* name : {"bin/xedit", "bin/kate"}) fs::permissions(directory.path(name), fs::perms(0755));
    mnuHelp_ViewErrLog_Click();
    EXPECT_EQ(platform.started, std::vector<std::string>{"kate|" + errorLogPath()});
}

}  // namespace
}  // namespace kelvor
