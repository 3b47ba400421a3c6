// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/take_back.h"

#include <filesystem>

#include "batch/case_change.h"
#include "batch/multi.h"
#include "files/paths.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr const char* title = "Take Back the Last Batch";

class TakeBackForm : public StartedTest {
protected:
    /// A run of Multifile over the files, each of which holds "old".
    void run(
        const Names& names, const std::function<void()>& beforeStart = [] {}) {
        Names paths;
        for (const std::string& name : names) paths.push_back(files.write(name, "old\n"));
        Multi& multi = toolForm<Multi>();
        multi.load();
        multi.txtFind.type("old");
        multi.txtReplace.type("newer");
        multi.cmdAdd.click();
        platform.expectOpen("Select the target files (multiple selections allowed)", paths);
        multi.cmdBrowse.click();
        beforeStart();
        multi.cmdStart.click();
        multi.unload();
    }
    /// The form is shown, comes to the front, and `steps` are the user's.
    void show(const std::function<void(TakeBack&)>& steps) {
        platform.expectDialog<TakeBack>([&](TakeBack& form) {
            form.activated.raise();
            steps(form);
        });
        menu("mnuTools_TakeBack").click();
    }
    static Names rowsOf(const ReportView& list) {
        Names rows;
        for (const auto& row : list.rows()) rows.push_back(fileNamePart(row.cells.at(0)) + ": " + row.cells.at(1));
        return rows;
    }
    std::string textsOfBoth() { return files.read("a.htm") + files.read("b.htm"); }

    const ScopedDirectories withState{files.program(), files.path("settings"), files.path("state")};
};

TEST_F(TakeBackForm, ShowsTheLastRunAndPutsItsFilesBack) {
    fs::create_directory(files.path("sub"));
    run({"a.htm", "b.htm", "sub/c.htm"});
    files.write("b.htm", "theirs");
    fs::rename(files.path("sub"), files.path("away"));
    show([&](TakeBack& form) {
        EXPECT_EQ(form.lblRun.caption(), "Multifile Find and Replace, medium 2026-11-21 time 9, files changed: 3 of 3");
        EXPECT_EQ(rowsOf(form.lstChanges), Names{"old: newer"});
        EXPECT_EQ(rowsOf(form.lstFiles),
                  (Names{"a.htm: Can be put back.", "b.htm: Has been changed since.", "c.htm: File not found."}));
        EXPECT_EQ(form.lblCounts.caption(), "Can be put back: 1; as before: 0; changed since or out of reach: 2");
        form.cmdTakeBack.click();
        EXPECT_EQ(form.lblCounts.caption(), "Can be put back: 0; as before: 1; changed since or out of reach: 2");
        EXPECT_EQ(platform.focused, "cmdClose");
    });
    EXPECT_EQ(textsOfBoth(), "old\ntheirs");
    // What could not be put back is kept until the next run.
    files.write("b.htm", "newer\n");
    fs::rename(files.path("away"), files.path("sub"));
    show([&](TakeBack& form) {
        form.cmdTakeBack.click();
        EXPECT_EQ(form.lblCounts.caption(), "All files are as they were before.");
        EXPECT_EQ(disabledIn(form), "cmdTakeBack ");
    });
    EXPECT_EQ(textsOfBoth(), "old\nold\n");
    platform.expectMessage(information("There is no batch that could be taken back.", title));
    menu("mnuTools_TakeBack").click();
}

TEST_F(TakeBackForm, CanBeCancelledAndGoneOnWith) {
    run({"a.htm", "b.htm"});
    show([&](TakeBack& form) {
        bool isFirst = true;
        form.lstFiles.followRows([&](const RowChange&) {
            if (!std::exchange(isFirst, false)) return;
            EXPECT_EQ(disabledIn(form), "cmdTakeBack ");
            platform.expectBox(title, Answer::yes);
            form.cmdClose.click();
        });
        form.cmdTakeBack.click();
        EXPECT_EQ(textsOfBoth(), "newer\nold\n");
        form.cmdTakeBack.click();
    });
    EXPECT_EQ(textsOfBoth(), "old\nold\n");
}

TEST_F(TakeBackForm, TakesARunOfTheCaseChangerBackInOne) {
    files.write("a.htm", "HREF=\"A\" NAME=\"B\"");
    CaseChange& form = toolForm<CaseChange>();
    menu("mnuTools_ChangeLinks").click();
    for (const std::size_t box : {1U, 6U}) form.chkVal[box].setValue(true);
    form.optWhere.select(1);
    platform.expectOpen("Select files (multiple selections allowed)", {files.path("a.htm")});
    form.cmdAddFiles.click();
    EXPECT_EQ(form.lblKept.caption(), "The old files, 17 bytes, are kept until the next run.");
    form.cmdApply.click();
    EXPECT_EQ(files.read("a.htm"), "HREF=\"a\" NAME=\"b\"");
    show([&](TakeBack& shown) {
        EXPECT_EQ(rowsOf(shown.lstChanges), (Names{"NAME=\": Lowercase", "HREF=\": Lowercase"}));
        EXPECT_EQ(rowsOf(shown.lstFiles), Names{"a.htm: Can be put back."});
        // Another run meanwhile keeps out of the kept files, and asks.
        form.optCase.select(1);
        platform.expectBox("File/URL Reference Case Changer", Answer::no);
        form.cmdApply.click();
        EXPECT_EQ(form.ListView1.count(), 0U);
        shown.cmdTakeBack.click();
    });
    EXPECT_EQ(files.read("a.htm"), "HREF=\"A\" NAME=\"B\"");
}

TEST_F(TakeBackForm, AsksOnceWhenNothingCanBeKept) {
    const ScopedDirectories without(files.program(), files.path("settings"));
    for (const auto& [answer, text] : {std::pair(Answer::no, "old\nold\n"), {Answer::yes, "newer\nnewer\n"}}) {
        Message box = exclamation(
            "The old files cannot be kept, so this run could not be taken back from here on.\r\n\r\nGo on without "
            "keeping them?",
            "Multifile Find and Replace");
        box.buttons = MessageButtons::yesNo;
        box.standard = Answer::no;
        box.cause = "There is no home directory.";
        run({"a.htm", "b.htm"}, [&, answer = answer] { platform.expectMessage(box, answer); });
        EXPECT_EQ(textsOfBoth(), text);
    }
    platform.expectBox(title);
    menu("mnuTools_TakeBack").click();
}

}  // namespace
}  // namespace kelvor
