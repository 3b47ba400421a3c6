// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/dry_run.h"

#include <filesystem>

#include "batch/multi.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

const std::string wouldDo = "Nothing has been written. This is what Start would do:\n";

class DryRunForm : public StartedTest {
protected:
    DryRunForm() { form.load(); }
    ~DryRunForm() override { form.unload(); }

    void add(const std::string& find, const std::string& replacement) {
        form.txtFind.type(find);
        form.txtReplace.type(replacement);
        form.cmdAdd.click();
    }
    void choose(const std::vector<std::string>& paths) {
        platform.expectOpen("Select the target files (multiple selections allowed)", paths);
        form.cmdBrowse.click();
    }
    /// What a dry run shows, the caption in front; `acts` are the user's in its window.
    std::string shown(const std::function<void(DryRun&)>& acts = [](DryRun&) {}) {
        std::string text;
        platform.expectDialog<DryRun>([&](DryRun& result) {
            acts(result);
            text = result.Label1.caption() + "\n";
            for (const ReportView::Row& row : result.ListView1.rows()) {
                for (const std::string& cell : row.cells) text += fileNamePart(cell) + "|";
                text.back() = '\n';
            }
        });
        form.cmdDryRun.click();
        EXPECT_EQ(disabledIn(form), "");
        return text;
    }

    const ScopedDirectories withState{files.program(), files.path("settings"), files.path("state")};
    Multi& form = toolForm<Multi>();
};

TEST_F(DryRunForm, TellsWhatStartWouldDoToEachFileAndWritesNothing) {
    const std::vector<std::string> targets = {files.write("one.htm", "abc a \xC3\xA4\r\n"),
                                              files.write("ends.htm", "x\r\ny\n"),
                                              files.write("same.htm", "none\n"),
                                              files.write("western.htm", "abc \xE4\r\n"),
                                              files.write("locked.htm", "abc\r\n"),
                                              files.path("missing.htm"),
                                              files.write("same text.htm", "sole\r\n"),
                                              files.path("one.htm")};
    fs::permissions(files.path("locked.htm"), fs::perms::owner_read);
    add("a", "\xE2\x86\x92");
    add("abc", "xa");
    add("sole", "sole");
    add("zz", "z");
    choose(targets);
    form.chkCase.click();
    const auto bytes = [&] {
        std::string all;
        for (const std::string& path : targets) all += files.read(fileNamePart(path)) + "|";
        return all;
    };
    const std::string before = bytes();
    EXPECT_EQ(shown(), wouldDo +
                           "(all files)|(all pairs)||2 of 8 changed|4\n"
                           "(all files)|sole|sole||1\n"
                           "(all files)|abc|xa||1\n"
                           "(all files)|zz|z||0\n"
                           "(all files)|a|\xE2\x86\x92||2\n"
                           "one.htm|(all pairs)||Changed|3\n"
                           "one.htm|abc|xa||1\n"
                           "one.htm|a|\xE2\x86\x92||2\n"
                           "ends.htm|(all pairs)||Changed: ends of lines only|0\n"
                           "same.htm|(all pairs)||Written with the same bytes|0\n"
                           "western.htm|(all pairs)||Left as it is: The file's encoding lacks a character of the new "
                           "text.|0\n"
                           "locked.htm|(all pairs)||Left as it is: The file is read-only.|0\n"
                           "missing.htm|(all pairs)||Left as it is: File not found.|0\n"
                           "same text.htm|(all pairs)||Written with the same bytes|1\n"
                           "same text.htm|sole|sole||1\n"
                           "one.htm|(all pairs)||Not counted again: stands further up too|0\n");
    EXPECT_EQ(bytes(), before);

    for (int refused = 0; refused < 3; ++refused) platform.expectBox("Multifile Find and Replace");
    form.cmdStart.click();
    const std::string one = "x\xE2\x86\x92 \xE2\x86\x92 \xC3\xA4\r\n|";
    EXPECT_EQ(bytes(), one + "x\r\ny\r\n|none\n|abc \xE4\r\n|abc\r\n||sole\r\n|" + one);
}

TEST_F(DryRunForm, AsksAsStartDoesAndShowsWhatItHasWhenCancelled) {
    std::vector<std::string> targets;
    for (int number = 0; number < 3000; ++number)
        targets.push_back(files.write(std::to_string(number), number % 2 == 0 ? "a\r\n" : "b\r\n"));
    choose(targets);
    add("a", "b");
    add("A", "b");
    platform.expectBox("Duplicate find items found", Answer::yes);
    form.cmdDryRun.click();
    form.cmdRemoveItem.click();
    platform.expectBox("Cancel multifile find and replace", Answer::yes);
    {
        const WaitingEvents events([&] {
            EXPECT_EQ(disabledIn(form), "cmdAdd cmdClear cmdRemoveItem cmdRemoveSummary Command1 cmdStart cmdDryRun ");
            form.cmdClose.click();
        });
        EXPECT_TRUE(shown().starts_with("Cancelled; 3000 files were not looked at. " + wouldDo +
                                        "(all files)|(all pairs)||0 of 0 changed|0\n"));
    }
    std::string inOrder;
    const std::string again = shown([&](DryRun& result) {
        result.ListView1.clickColumn(4);
        for (const int row : {1, 2, 3001, 3002, 4501}) inOrder += result.ListView1.cell(row, 4) + " ";
    });
    EXPECT_EQ(inOrder, "1500 1 1 0 0 ");
    EXPECT_TRUE(again.starts_with(wouldDo + "(all files)|(all pairs)||1500 of 3000 changed|1500\n"));
}

}  // namespace
}  // namespace kelvor
