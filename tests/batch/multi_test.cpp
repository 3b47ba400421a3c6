// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/multi.h"

#include <fcntl.h>
#include <sys/file.h>

#include <filesystem>

#include "files/paths.h"
#include "files/places.h"
#include "files/temporary_directory.h"
#include "html/special_chars.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

constexpr const char* addQuestion = "Find text not added to summary";
constexpr const char* cancelQuestion = "Cancel multifile find and replace";
constexpr const char* duplicateQuestion = "Duplicate find items found";

class MultiForm : public KelvorTest {
protected:
    MultiForm() {
        initSpecialChars();
        start();
        form.load();
    }
    ~MultiForm() override { toolForm<Multi>().unload(); }

    void add(const std::string& find, const std::string& replacement) {
        form.txtFind.type(find);
        form.txtReplace.type(replacement);
        form.cmdAdd.click();
    }
    void choose(const std::vector<std::string>& paths) {
        platform.expectOpen("Select the target files (multiple selections allowed)", paths);
        form.cmdBrowse.click();
    }
    void expectSkipped(const std::string& path, const std::string& cause) {
        platform.expectMessage(
            critical("Could not write to " + path + " skipping file.", "Multifile Find and Replace", cause));
    }
    std::string summary(int row) { return form.lstSummary.cell(row, 0) + "|" + form.lstSummary.cell(row, 1); }

    const ScopedDirectories withState{files.program(), files.path("settings"), files.path("state")};
    Multi& form = toolForm<Multi>();
};

TEST_F(MultiForm, AddsPairsAndOffersWhatCanBeDone) {
    platform.expectMessage(exclamation("You must enter some text to be found.", "Empty field"));
    form.cmdAdd.click();
    add("a", "b");
    EXPECT_EQ(form.txtFind.text() + form.txtReplace.text(), "");
    form.txtFind.type("c");
    for (const auto& [answer, rows] : {std::pair(Answer::no, 1U), {Answer::yes, 2U}}) {
        form.mfrTab.choose(2);
        platform.expectBox(addQuestion, answer);
        form.mfrTab.choose(1);
        EXPECT_EQ(form.lstSummary.count(), rows);
    }
    EXPECT_EQ(summary(1), "c|");

    EXPECT_EQ(disabledIn(form), "cmdRemove cmdClearFiles cmdStart cmdDryRun ");
    choose({files.path("one.htm"), files.path("two.htm")});
    EXPECT_EQ(disabledIn(form), "");
    form.cmdRemove.click();
    choose({});
    EXPECT_EQ(form.lbxTargetFiles.rows(), (std::vector{files.path("two.htm")}));
    form.cmdRemove.click();
    EXPECT_EQ(disabledIn(form), "cmdRemove cmdClearFiles cmdStart cmdDryRun ");
    choose({files.path("one.htm")});
    form.cmdClearFiles.click();
    form.cmdRemoveSummary.click();
    EXPECT_EQ(disabledIn(form), "cmdRemoveItem cmdRemoveSummary cmdRemove cmdClearFiles cmdStart cmdDryRun ");
}

TEST_F(MultiForm, PrefillsBothWaysAndThenCountsItsRowsFromTheirOwn) {
    choose({files.path("one.htm")});
    form.cmdAddSC.click();
    ASSERT_EQ(form.lstSummary.count(), 62U);
    EXPECT_EQ(summary(61), "ÿ|&yuml;");
    EXPECT_TRUE(form.chkCase.value() && !form.chkCase.enabled() && !form.cmdAddSC.enabled());
    EXPECT_FALSE(form.cmdStart.enabled());
    add("x", "y");
    EXPECT_TRUE(form.cmdStart.enabled());
    EXPECT_EQ(summary(0), "À|y");
    EXPECT_EQ(summary(62), "x|");
    // Fewer rows counted than were removed: a pair is refused, for without its replacement it would delete.
    form.lstSummary.setSelectedRow(0);
    for (int count = 0; count < 2; ++count) form.cmdRemoveItem.click();
    EXPECT_EQ(reportedBy([&] { add("z", "y"); }), "9 The summary has no row for the replacement text;");
    EXPECT_EQ(form.lstSummary.count(), 61U);
    form.cmdRemoveSummary.click();
    EXPECT_TRUE(!form.chkCase.value() && form.chkCase.enabled() && form.cmdAddSC.enabled());
    form.Option1[1].click();
    form.cmdAddSC.click();
    EXPECT_EQ(summary(0), "&Agrave;|À");
}

TEST_F(MultiForm, RewritesWhatItCanAndNamesTheRestInOrder) {
    const auto one = files.write("one.htm", "abc a");
    const auto readOnly = files.write("two.htm", "abc");
    const auto last = files.write("four.htm", "none\r\nno end");
    fs::permissions(readOnly, fs::perms::owner_read);
    add("a", "→");
    add("abc", "x");
    choose({one, readOnly, files.path("missing.htm"), last});
    form.chkCase.click();
    expectSkipped(readOnly, "The file is read-only.");
    expectSkipped(files.path("missing.htm"), "File not found.");
    form.cmdStart.click();
    EXPECT_EQ(platform.focused, "cmdStart");

    EXPECT_EQ(files.read("one.htm"), "x →\r\n");
    EXPECT_EQ(files.read("two.htm"), "abc");
    EXPECT_EQ(files.read("four.htm"), "none\r\nno end\r\n") << "written though nothing is found";
    EXPECT_NE(files.read("program/errorlog.txt").find("The file is read-only: " + readOnly), std::string::npos);
    EXPECT_EQ(std::pair(form.ProgressBar1.value(), form.ProgressBar1.maximum()), std::pair(0, 4));
    EXPECT_TRUE(!form.chkCase.value() && !form.cmdClose.isDefault());
    EXPECT_EQ(disabledIn(form), "");
    EXPECT_EQ(platform.pointer, MousePointer::standard);
}

TEST_F(MultiForm, NamesTheTemporaryDirectoryWhenThatIsFull) {
    const auto one = files.write("one.htm", "a\r\n");
    add("a", "b");
    choose({one});
    auto calls = kernelCalls();
    calls.pwrite = [](int descriptor, const void* bytes, std::size_t size, off_t offset) {
        return pathOf(descriptor).ends_with("temp.$$$") ? (errno = ENOSPC, -1)
                                                        : ::pwrite(descriptor, bytes, size, offset);
    };
    const ScopedSystemCalls full(std::move(calls));
    expectSkipped(one, "The disk is full.\r\nTemporary directory: " + temporaryDirectory());
    form.cmdStart.click();
    EXPECT_EQ(files.read("one.htm"), "a\r\n");
}

TEST_F(MultiForm, AsksAboutDuplicatesByTheModeOfTheSearch) {
    const auto one = files.write("one.htm", "foo Foo\r\n");
    add("Foo", "1");
    add("foo", "2");
    choose({one});
    platform.expectBox(duplicateQuestion, Answer::yes);
    form.cmdStart.click();
    EXPECT_EQ(files.read("one.htm"), "foo Foo\r\n");
    platform.expectBox(duplicateQuestion, Answer::no);
    form.cmdStart.click();
    EXPECT_EQ(files.read("one.htm"), "1 1\r\n");
}

TEST_F(MultiForm, CancelTakesEffectBetweenFiles) {
    const std::vector paths = {files.write("one.htm", "a\r\n"), files.write("two.htm", "a\r\n")};
    const auto bothFiles = [this] { return files.read("one.htm") + files.read("two.htm"); };
    add("a", "b");
    // The user's acts: when the bar gets its range, and behind the first file.
    std::function<void()> atStart;
    std::function<void()> afterOne;
    form.ProgressBar1.follow([&](Aspect) {
        auto& act = form.ProgressBar1.value() == 0 ? atStart : afterOne;
        if (const auto once = std::exchange(act, nullptr)) once();
    });
    choose(paths);
    atStart = [&] {
        EXPECT_TRUE(form.cmdClose.caption() == "&Cancel" && form.cmdClose.isDefault());
        choose(paths);
        EXPECT_EQ(disabledIn(form), "cmdAdd cmdClear cmdRemoveItem cmdRemoveSummary Command1 cmdStart cmdDryRun ");
        EXPECT_EQ(platform.pointer, MousePointer::hourglass);
        // Closing the window asks as Cancel does, and the form stays.
        platform.expectBox(cancelQuestion, Answer::no);
        EXPECT_FALSE(form.unload());
    };
    afterOne = [&] {
        platform.expectBox(cancelQuestion, Answer::yes);
        form.cmdClose.click();
    };
    form.cmdStart.click();
    EXPECT_EQ(bothFiles(), "b\r\na\r\n");

    // No goes on with the other files, though the list is empty by then.
    afterOne = [&] {
        platform.expectBox(cancelQuestion, Answer::no);
        form.cmdClose.click();
        form.cmdClearFiles.click();
    };
    form.cmdStart.click();
    EXPECT_EQ(bothFiles(), "b\r\nb\r\n");
}

TEST_F(MultiForm, OffersToDeleteWhatKilledRunsHaveLeft) {
    form.unload();
    fs::create_directory(files.path("tmp"));
    const ScopedVariable environment("TMPDIR", files.path("tmp"));
    const auto leave = [this](const std::string& name) {
        fs::create_directory(files.path("tmp/" + name));
        return files.write("tmp/" + name + "/temp.$$$", "text");
    };
    const std::vector abandoned = {leave("kelvor-aB1cD2"), leave("kelvor-xY8zW9")};
    const auto held = leave("kelvor-isHeld");
    const OpenFile holder(::open(directoryPart(held).c_str(), O_RDONLY));
    ASSERT_EQ(flock(holder.descriptor(), LOCK_EX), 0);
    const auto foreign = leave("kelvor-project");
    fs::create_directory_symlink(directoryPart(foreign), files.path("tmp/kelvor-isLink"));
    fs::create_directory(files.path("tmp/kelvor-linked"));
    fs::create_symlink(foreign, files.path("tmp/kelvor-linked/temp.$$$"));
    const auto expectOffer = [&](const std::string& paths, Answer answer) {
        auto offer = question(
            "A multifile find and replace was interrupted. What it was writing is still there:\r\n\r\n" + paths +
                "\r\n\r\nShould a file of that run be half written, its whole new text is in "
                "there.\r\nDelete it now?",
            "Multifile Find and Replace");
        offer.standard = Answer::no;
        platform.expectMessage(offer, answer);
        platform.expectModal([](Form& shown) { shown.unload(); });
        mnuTools_multi_Click();
    };
    const auto both = abandoned[0] + "\r\n" + abandoned[1];
    expectOffer(both, Answer::no);
    {
        const auto locked = failing(&SystemCalls::unlink, EACCES);
        EXPECT_EQ(reportedBy([&] { expectOffer(both, Answer::yes); }),
                  "70 Permission denied: " + abandoned[0] + ";70 Permission denied: " + abandoned[1] + ";");
    }
    expectOffer(both, Answer::yes);
    for (const auto& path : abandoned) EXPECT_FALSE(fs::exists(directoryPart(path)));
    EXPECT_TRUE(fs::exists(held) && fs::exists(foreign));
    platform.expectModal([](Form& shown) { shown.unload(); });
    mnuTools_multi_Click();
}

}  // namespace
}  // namespace kelvor
