// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/case_change.h"

#include <sys/stat.h>

#include <filesystem>

#include "files/paths.h"
#include "frame/main_frame.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

constexpr std::size_t nameBox = 1;
constexpr std::size_t hrefBox = 6;
using Rows = std::vector<std::string>;

class CaseChangeForm : public FrameTest {
protected:
    const ScopedDirectories withState{files.program(), files.path("settings"), files.path("state")};

    CaseChangeForm() { std::filesystem::create_directories(files.path("site/sub")); }

    CaseChange& form() { return toolForm<CaseChange>(); }
    /// Shows the form with HREF and NAME ticked.
    void show() {
        mnuTools_ChangeLinks_Click();
        form().activated.raise();
        for (const std::size_t box : {hrefBox, nameBox}) form().chkVal[box].setValue(true);
    }
    /// Shows it with files in its list.
    void showList(const Rows& names) {
        show();
        form().optWhere.select(1);
        Rows paths;
        for (const std::string& name : names) paths.push_back(files.path(name));
        platform.expectOpen("Select files (multiple selections allowed)", paths);
        form().cmdAddFiles.click();
    }
    /// The results, each as "name attribute icon".
    Rows results() {
        Rows rows;
        for (const auto& row : form().ListView1.rows())
            rows.push_back(fileNamePart(row.cells.at(0)) + " " + row.cells.at(1) + " " + std::to_string(row.icon));
        return rows;
    }
    void expectRunning(bool running) {
        EXPECT_EQ(form().cmdClose.caption(), running ? "&Cancel" : "&Close");
        EXPECT_EQ(disabledIn(form()).find("SSTab1/0 SSTab1/1") == 0, running);
        EXPECT_EQ(std::pair(form().cmdApply.enabled(), form().cmdClose.enabled()), std::pair(!running, true));
        EXPECT_EQ(form().SSTab1.tab(), 2);
        EXPECT_EQ(platform.pointer, running ? MousePointer::hourglass : MousePointer::standard);
    }
};

TEST_F(CaseChangeForm, AListedFileIsReadAndSavedForEachAttribute) {
    files.write("a.htm", "<A HREF=\"X.HTM\" NAME=\"Top\">\n\xE4");
    files.write("b.htm", "\xEF\xBB\xBF<A HREF=\"Y<Z\">\r\n");
    showList({"a.htm", "b.htm"});
    form().cmdApply.click();
    EXPECT_EQ(results(), (Rows{"a.htm NAME=\" 1", "a.htm HREF=\" 1", "b.htm NAME=\" 1", "b.htm HREF=\" 2"}));
    EXPECT_EQ(files.read("a.htm"), "<A HREF=\"x.htm\" NAME=\"top\">\n\xE4");
    EXPECT_EQ(files.read("b.htm"), "\xEF\xBB\xBF<A HREF=\"Y<Z\">\r\n");
    expectRunning(false);
}

TEST_F(CaseChangeForm, ADirectoryGoesByItsFilter) {
    for (const char* name : {"a.html", "b.asp", "sub/c.shtml", "d.txt"})
        files.write("site/" + std::string(name), "SRC=\"A\" HREF=\"B\"");
    show();
    form().chkVal[nameBox].setValue(false);
    form().optWhere.select(2);
    platform.expectFolder("Select the starting directory.", files.path("site"));
    form().lblStartDir.doubleClick();
    form().chkSubDir.click();
    form().cboFilter.choose(3);
    form().cmdApply.click();
    EXPECT_EQ(results(), (Rows{"a.html HREF=\" 1", "c.shtml HREF=\" 1", "b.asp HREF=\" 1"}));
    EXPECT_EQ(platform.focused, "cmdApply");
    EXPECT_EQ(files.read("site/sub/c.shtml"), "SRC=\"A\" HREF=\"b\"");

    // While the files are gathered nobody can cancel, nor close the form.
    {
        form().optCase.select(1);
        const WaitingEvents events([&] {
            EXPECT_TRUE(disabledIn(form()).ends_with("cmdApply cmdClose "));
            form().unload();  // refused
            EXPECT_TRUE(form().isLoaded());
        });
        form().cmdApply.click();
        EXPECT_EQ(files.read("site/sub/c.shtml"), "SRC=\"A\" HREF=\"B\"");
    }

    // Without files the run stays unfinished, and the form open.
    form().lblStartDir.setCaption(files.path("settings"));
    platform.expectMessage(exclamation(
        "There are no files matching the selected filter(s) in " + files.path("settings/"), "No files to search"));
    form().cmdApply.click();
    expectRunning(true);
    platform.expectBox("Confirm cancel", Answer::yes);
    form().cmdClose.click();
    EXPECT_FALSE(form().unload());
}

TEST_F(CaseChangeForm, AFileThatFailsEndsTheRunAndKeepsItsBytes) {
    // In capitals the letter is one that the file's encoding lacks.
    const std::string bytes = "HREF=\"\xB5\"";
    for (const auto& [mode, choice, error] : {std::tuple{0444, 0, "70"}, {0644, 1, "5 "}}) {
        chmod(files.write("a.htm", bytes).c_str(), static_cast<mode_t>(mode));
        showList({"a.htm"});
        form().optCase.select(choice);
        EXPECT_EQ(reportedBy([this] { form().cmdApply.click(); }).substr(0, 2), error);
        EXPECT_EQ(files.read("a.htm"), bytes);
        expectRunning(false);
        form().unload();
    }
}

TEST_F(CaseChangeForm, CancelIsHeardBetweenFiles) {
    for (const char* name : {"a.htm", "b.htm"}) files.write(name, "HREF=\"A\" NAME=\"B\"");
    showList({"a.htm", "b.htm"});
    form().ListView1.followRows([this](const RowChange&) {
        if (form().ListView1.count() != 1) return;
        expectRunning(true);
        form().cmdClose.click();
    });
    platform.expectBox("Confirm cancel", Answer::yes);
    form().cmdApply.click();
    expectRunning(false);
    EXPECT_EQ(files.read("a.htm"), "HREF=\"a\" NAME=\"b\"");
    EXPECT_EQ(files.read("b.htm"), "HREF=\"A\" NAME=\"B\"");
}

TEST_F(CaseChangeForm, TheActiveDocumentIsChangedAsOneStepWhileItTakesNoInput) {
    EditWindow& window = openText("page.htm", "HREF=\"A\" HREF=\"B<\" HREF=\"C\"");
    show();
    form().chkVal[nameBox].setValue(false);
    window.Text1.changed.connect([] { EXPECT_FALSE(mainForm().enabled()); });
    form().cmdApply.click();
    EXPECT_TRUE(mainForm().enabled());
    EXPECT_EQ(window.Text1.text(), "HREF=\"a\" HREF=\"b<\" HREF=\"c\"");
    EXPECT_EQ(results(), (Rows{"page.htm HREF=\" 1"}));
    mainForm().setEnabled(false);
    window.Text1.undo();
    EXPECT_EQ(window.Text1.text(), "HREF=\"A\" HREF=\"B<\" HREF=\"C\"");
}

TEST_F(CaseChangeForm, TheScopeFreesItsOwnControls) {
    const std::string document = "optWhere_0 Frame2 Label3 ";
    const std::string folder = "Frame1 lblStartDir chkSubDir Label2 cboFilter ";
    showList({"a", "b"});
    EXPECT_EQ(disabledIn(form()), document + folder);
    form().cmdRemoveOne.click();
    EXPECT_EQ(form().lstFiles.rows(), (Rows{files.path("b")}));
    form().cmdRemoveOne.click();
    EXPECT_EQ(disabledIn(form()), document + "cmdRemoveOne cmdClear " + folder + "cmdApply ");

    const std::string list = "Frame3 lstFiles cmdAddFiles cmdRemoveOne cmdClear ";
    form().optWhere.select(2);
    EXPECT_EQ(disabledIn(form()), document + list + "cmdApply ");
    openText("page.htm", "");
    form().activated.raise();
    EXPECT_TRUE(form().optWhere[0].value());
    EXPECT_EQ(disabledIn(form()), list + folder);
}

}  // namespace
}  // namespace kelvor
