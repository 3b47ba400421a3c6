// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/extended_find.h"

#include <filesystem>
#include <optional>

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using Texts = std::vector<std::string>;

class ExtendedFindForm : public KelvorTest {
protected:
    ExtendedFindForm() {
        start();
        std::filesystem::create_directories(files.path("site/sub"));
        mnuEdit_eFind_Click();
    }
    ~ExtendedFindForm() override { toolForm<ExtendedFind>().unload(); }

    /// Picks the folder "site" and enters the text.
    void enter(const std::string& text) {
        platform.expectFolder("Select the starting directory.", files.path("site"));
        form.lblDirFolder.doubleClick();
        EXPECT_FALSE(form.cmdBegin.enabled());
        form.rtbFind.setText(text);
        EXPECT_TRUE(form.cmdBegin.enabled());
    }
    /// What the form says, and what of it cannot be reached.
    std::string looks() { return form.lblStatus.caption() + " " + form.cmdClose.caption() + ": " + disabledIn(form); }
    /// The rows of the results as "name count", ordered by a column.
    Texts rowsBy(int column) {
        form.ListView1.clickColumn(column);
        Texts texts;
        for (const auto& row : form.ListView1.rows())
            texts.push_back(std::filesystem::relative(row.cells[0], files.path("site")).string() + " " + row.cells[1]);
        return texts;
    }

    ExtendedFind& form = toolForm<ExtendedFind>();
};

TEST_F(ExtendedFindForm, TellsThatNoFileMatches) {
    enter("x");
    form.chkCase.setValue(true);
    platform.expectMessage(
        exclamation("There are no files matching the selected filter in " + files.path("site/"), "No files to search"));
    // While files are gathered there is nothing to cancel.
    const WaitingEvents gathering([this] {
        EXPECT_EQ(
            looks(),
            "Gathering files... &Cancel: SSTab1/1 lblDirFolder cboFilter rtbFind chkCase chkSubDir cmdBegin cmdClose ");
        EXPECT_FALSE(form.unload());
        EXPECT_EQ(platform.pointer, MousePointer::hourglass);
    });
    form.cmdBegin.click();
    EXPECT_TRUE(gathering.haveRun() && !form.chkCase.value());
    EXPECT_EQ(platform.focused + platform.pointersAtBoxes, "cmdBegina");
    EXPECT_EQ(looks(), "Status: &Close: SSTab1/1 ");
}

TEST_F(ExtendedFindForm, ListsEachFileWithItsCountAndSortsThemAsTexts) {
    files.write("site/a.htm", "Cat cat CAT");
    files.write("site/b.htm", std::string(10, '.'));
    files.write("site/bad\xFF.htm", "error");
    files.write("site/sub/d.htm", "catcatcatcatcatcatcatcatcatcat");
    for (const char* kind : {"css", "vbs"}) files.write(std::string("site/x.") + kind, "cat");
    enter("cat");
    form.cboFilter.choose(10);
    form.chkSubDir.click();
    form.cmdBegin.click();
    EXPECT_TRUE(form.SSTab1.tab() == 1 && form.ListView1.selectedRow() == 0 && !form.ProgressBar1.visible());
    EXPECT_EQ(looks(), "Status: &Close: ");
    EXPECT_EQ(rowsBy(0), (Texts{"a.htm 3", "b.htm 0", "bad\xFF.htm Error", "sub/d.htm 10"}));
    EXPECT_EQ(rowsBy(1), (Texts{"bad\xFF.htm Error", "a.htm 3", "sub/d.htm 10", "b.htm 0"}));

    form.chkCase.click();
    form.cmdBegin.click();
    EXPECT_EQ(rowsBy(0), (Texts{"a.htm 1", "b.htm 0", "bad\xFF.htm Error"}));
}

TEST_F(ExtendedFindForm, OpensTheSelectedRowsAndKeepsThoseThatFailSelected) {
    for (const char* name : {"a.htm", "b\xE9.htm", "gone.htm"}) files.write(std::string("site/") + name, "x");
    enter("x");
    form.cmdBegin.click();
    form.ListView1.clickColumn(0);
    const auto path = files.path("site/gone.htm");
    std::filesystem::remove(path);
    form.ListView1.choose(0, {0, 1, 2});
    platform.expectPopup([this](MenuItem&) { form.mnuLV1_open.click(); });
    platform.expectMessage(noSuchFile(path));
    platform.expectMessage(openError(path));
    form.ListView1.mouseDown.raise({MousePress::left});
    form.ListView1.mouseDown.raise({MousePress::right});
    EXPECT_EQ(documentManager().count(), 2U);
    EXPECT_EQ(menu("mnuFile_RecentFiles_1").caption(), files.path("site/a.htm"));
    for (const int row : {0, 1, 2}) EXPECT_EQ(form.ListView1.isSelected(row), row == 2) << row;
    form.mnuLV1_Clear.click();
    EXPECT_FALSE(form.ListView1.isSelected(2));
    form.ListView1.setSelected(1, true);
    form.ListView1.pressReturn();
    EXPECT_FALSE(form.ListView1.isSelected(1));
}

TEST_F(ExtendedFindForm, ACancelEndsTheFileInProgressWithoutARow) {
    for (int i = 0; i < 10; ++i)
        std::filesystem::resize_file(files.write("site/" + std::to_string(i), ""), 150'000'000);
    enter("x");
    std::optional<WaitingEvents> before;
    std::optional<WaitingEvents> during;
    // The first events of the third file come before it is read.
    form.ProgressBar1.follow([&](Aspect) {
        if (form.ProgressBar1.value() != 2 || before) return;
        EXPECT_EQ(looks(),
                  "Searching files: &Cancel: SSTab1/1 lblDirFolder cboFilter rtbFind chkCase chkSubDir cmdBegin ");
        before.emplace([&] {
            platform.expectBox("Confirm Cancel", Answer::no);
            EXPECT_FALSE(form.unload());
            during.emplace([&] {
                platform.expectBox("Confirm Cancel", Answer::yes);
                form.cmdClose.click();
            });
        });
    });
    form.cmdBegin.click();
    EXPECT_TRUE(during && during->haveRun());
    EXPECT_TRUE(form.ListView1.count() == 2 && form.SSTab1.tab() == 1);
    EXPECT_EQ(looks(), "Status: &Close: ");
    form.ProgressBar1.follow({});
    during.reset();
}

TEST_F(ExtendedFindForm, TheEndOfTheProgramEndsTheRunUnasked) {
    for (const char* name : {"a", "b"}) files.write("site/" + std::string(name), "x");
    enter("x");
    form.ProgressBar1.follow([&](Aspect) {
        if (form.ProgressBar1.value() != 1) return;
        EXPECT_TRUE(mainForm().unload());
    });
    // What has ended lives until its last event is over.
    const EventScope scope;
    form.cmdBegin.click();
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(form.ListView1.count(), 0U);
    form.ProgressBar1.follow({});
}

}  // namespace
}  // namespace kelvor
