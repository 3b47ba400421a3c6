// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/disk_changes.h"

#include <filesystem>

#include "core/compare.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class DiskChanges : public StartedTest {
protected:
    /// What the bar says, with a "-" behind it when Reload and Compare cannot be reached; "" while it is hidden.
    static std::string bar() {
        MDIForm1& frame = mainForm();
        EXPECT_EQ(frame.picDisk.visible(), !frame.lblDisk.caption().empty());
        EXPECT_EQ(frame.cmdDiskReload.enabled(), frame.cmdDiskCompare.enabled());
        const bool isCut = frame.picDisk.visible() && !frame.cmdDiskReload.enabled();
        return frame.lblDisk.caption() + (isCut ? "-" : "");
    }
    /// The program comes forward.
    static std::string barThen() {
        mainForm().keyboardCame.raise();
        return bar();
    }
};

constexpr const char* changedBar = "a.htm has changed on the disk.";
constexpr const char* replacedBar = "a.htm has been replaced by another file.";
constexpr const char* goneBar = "a.htm is no longer on the disk.-";

TEST_F(DiskChanges, TheBarTellsOfTheDocumentInFrontAndFollowsIt) {
    const std::string first = open("a.htm", "one").StrUniqueID();
    EXPECT_EQ(barThen(), "");
    files.write("a.htm", "one");
    EXPECT_EQ(barThen(), "") << "the same bytes";
    files.write("a.htm", "changed");
    EXPECT_EQ(bar(), "") << "nobody has looked";
    EXPECT_EQ(barThen(), changedBar);
    open("b.htm", "two");
    EXPECT_EQ(bar(), "");
    std::filesystem::rename(files.write("new", "other"), files.path("a.htm"));
    mainForm().TabStrip1.click(first);
    EXPECT_EQ(bar(), replacedBar);
    std::filesystem::remove(files.path("a.htm"));
    menu("mnuWindow_NextWindow").click();
    EXPECT_EQ(bar(), "");
    menu("mnuFile_Close").click();
    EXPECT_EQ(bar(), goneBar) << "the end of another brings it forward";
    files.write("a.htm", "one");
    EXPECT_EQ(barThen(), "") << "there again as it was";
    files.write("a.htm", "");
    EXPECT_EQ(barThen(), changedBar);
    menu("mnuFile_Close").click();
    EXPECT_EQ(bar(), "");
    EXPECT_TRUE(fileOpen(files.write("t.tpl", "text"), true));
    std::filesystem::remove(files.path("t.tpl"));
    EXPECT_EQ(barThen(), "") << "an untitled one has no file";
}

TEST_F(DiskChanges, ReloadIsOneStepThatCanBeTakenBack) {
    CDocument& document = open("a.htm", "one\r\ntwo\r\n");
    document.SourceRTB().setSelStart(7);
    type("x");
    document.ChangeMode(view_mode::preview);
    files.write("a.htm", "zero\r\none\r\ntwo\xE4\r\n");
    EXPECT_EQ(barThen(), changedBar);
    {
        const auto fault = failing(&SystemCalls::pread, EIO);
        platform.expectMessage(openError(files.path("a.htm"), "The disk reports an error."));
        mainForm().cmdDiskReload.click();
    }
    EXPECT_EQ(document.SourceRTB().text(), "one\r\ntwxo\r\n") << "a failed one loses nothing";
    EXPECT_FALSE(document.IsSaved());
    EXPECT_EQ(bar(), changedBar);
    mainForm().cmdDiskReload.click();
    EXPECT_EQ(bar(), "");
    EXPECT_TRUE(document.IsSaved());
    EXPECT_EQ(panelText(panel::saved), "File Saved: Yes");
    EXPECT_EQ(document.SourceRTB().text(), "zero\r\none\r\ntwoä\r\n");
    EXPECT_EQ(platform.focused, "WebBrowser1");
    document.SourceRTB().undo();
    EXPECT_EQ(document.SourceRTB().text(), "one\r\ntwxo\r\n");
    EXPECT_FALSE(document.IsSaved());
}

TEST_F(DiskChanges, KeepMineAcceptsWhatIsThereOrNotThereUntilItChangesAgain) {
    const CDocument& document = open("a.htm", "mine");
    // It goes on elsewhere, so that no other file gets its number.
    auto remove = [&, count = 0]() mutable {
        std::filesystem::rename(files.path("a.htm"), files.path(std::to_string(++count)));
    };
    const auto keep = [&](const char* told) {
        EXPECT_EQ(barThen(), told);
        mainForm().cmdDiskKeep.click();
        EXPECT_EQ(bar(), "");
        EXPECT_EQ(platform.focused, "Text1");
        EXPECT_FALSE(document.IsSaved());
        EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    };
    files.write("a.htm", "theirs");
    keep(changedBar);
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm"), "mine") << "without a question";
    remove();
    keep(goneBar);
    files.write("a.htm", "new");
    keep(replacedBar);
    remove();
    std::filesystem::create_directory(files.path("a.htm"));
    keep(replacedBar);
    remove();
    keep(goneBar);
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm"), "mine");
}

TEST_F(DiskChanges, CompareShowsTheFileBesideTheText) {
    open("a.htm", "mine");
    files.write("a.htm", "theirs \xE4");
    EXPECT_EQ(barThen(), changedBar);
    platform.expectDialog<Compare>([](Compare& form) { EXPECT_EQ(form.lstLines.cell(0, 1), "theirs ä"); });
    mainForm().cmdDiskCompare.click();
    EXPECT_EQ(bar(), changedBar);
    std::filesystem::remove(files.path("a.htm"));
    platform.expectMessage(openError(files.path("a.htm"), "File not found."));
    mainForm().cmdDiskCompare.click();
    EXPECT_EQ(bar(), goneBar);
}

}  // namespace
}  // namespace kelvor
