// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/file_versions.h"

#include <filesystem>
#include <functional>

#include "controls/text_buffer.h"
#include "core/compare.h"
#include "core/look.h"
#include "files/places.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

class FileVersionsForm : public StartedTest {
protected:
    bool isReachable() {
        menu("mnuFile").clicked.raise();
        return menu("mnuFile_Versions").reachable();
    }
    /// Opens the window from the menu; `acts` are the user's in it.
    void inWindow(const std::function<void(FileVersions&)>& acts) {
        platform.expectDialog<FileVersions>(acts);
        EXPECT_TRUE(isReachable());
        menu("mnuFile_Versions").click();
    }
    void keep(const std::string& bytes) { keepVersion(files.path("page.htm"), bytes, {}, 0); }

    ScopedDirectories inForce{files.path("program"), files.path("settings"), files.path("state")};
};

TEST_F(FileVersionsForm, TheMenuSwitchesThemOnAndReachesThoseOfAFile) {
    EXPECT_FALSE(isReachable());
    ASSERT_TRUE(fileOpen(files.write("new.tpl", ""), true));
    EXPECT_FALSE(isReachable());
    open("page.htm", "text");
    for (const char* view : {"mnuView_Preview", "mnuView_Source"}) {
        menu(view).click();
        EXPECT_EQ(isReachable(), view == std::string("mnuView_Source"));
    }
    platform.expectMessage(
        information("From now on each save keeps what the file held before it. The versions are in\r\n" +
                        files.path("state/versions") + "\r\n\r\nVersions of This File in the File menu shows them.",
                    "Keep Versions"));
    menu("mnuFile_KeepVersions").click();
    EXPECT_TRUE(keepsVersions() && menu("mnuFile_KeepVersions").checked());
    menu("mnuFile_KeepVersions").setChecked(false);
    EXPECT_TRUE(isReachable() && menu("mnuFile_KeepVersions").checked()) << "as in another run";
    menu("mnuFile_KeepVersions").click();
    EXPECT_FALSE(keepsVersions() || menu("mnuFile_KeepVersions").checked());
}

TEST_F(FileVersionsForm, SaysWhatThereIsAndWhatCannotBeRead) {
    CDocument& document = open("page.htm", "one\ntwo\n");
    const std::tuple<bool, const char*, const char*> rows[] = {
        {false, "", "No version of this file is kept: Keep Versions in the File menu is switched off."},
        {true, "", "No version of this file is kept yet. The next save keeps what it writes over."},
        {true, "one\n", "1 version is kept."},
        {false, "one\n", "1 version is kept. No more are added: Keep Versions in the File menu is switched off."},
        {true, "one\ntwo\n", "2 versions are kept."},
    };
    for (const auto& [on, bytes, told] : rows) {
        setKeepsVersions(on);
        if (*bytes != '\0') keep(bytes);
        inWindow([told = told](FileVersions& form) {
            EXPECT_EQ(form.lblState.caption(), told);
            EXPECT_EQ(form.cmdBring.enabled(), form.lstVersions.count() > 0);
        });
    }
    for (const char* bytes : {"damaged", "caf\xE9"}) keep(bytes);
    const auto versions = versionsOf(document.LongFileName());
    fs::resize_file(fs::directory_iterator(versionsDirectory())->path() / versions[1].id, 3);
    inWindow([&](FileVersions& form) {
        EXPECT_EQ(form.lstVersions.cell(3, 0) + ", " + form.lstVersions.cell(3, 1), "short 1970-1-1 time 0, 4 bytes");
        const char* differences[] = {"Since then in the editor: 2 lines added, 1 line removed.",
                                     "This version is damaged.", "The text in the editor is the same.",
                                     "Since then in the editor: 1 line added, 0 lines removed."};
        for (int row = 0; row < 4; ++row) {
            form.lstVersions.setSelectedRow(row);
            EXPECT_EQ(form.lblDifference.caption(), differences[row]);
            EXPECT_EQ(form.cmdLook.enabled() && form.cmdCompare.enabled() && form.cmdBring.enabled(), row != 1);
        }
        form.lstVersions.setSelectedRow(0);
        platform.expectDialog<Look>([](Look& look) { EXPECT_EQ(look.rtbText.text(), "caf\xC3\xA9"); });
        form.lstVersions.pressReturn();
        platform.expectDialog<Compare>([](Compare& window) {
            const ReportView& lines = window.lstLines;
            EXPECT_EQ(lines.columns()[1] + "|" + lines.columns()[4], "Version of short 1970-1-1 time 0|In the editor");
            EXPECT_EQ(lines.cell(0, 1) + "|" + lines.cell(0, 4), "caf\xC3\xA9|one");
        });
        form.cmdCompare.click();
        // The document may close behind it.
        document.CloseDoc();
        for (const int row : {-1, 2}) form.lstVersions.setSelectedRow(row);
        form.cmdCompare.click();
        form.cmdBring.click();
    });
    EXPECT_EQ(files.read("page.htm"), "one\ntwo\n");
}

TEST_F(FileVersionsForm, BringsAVersionIntoTheEditorAsOneStep) {
    const std::tuple<const char*, const char*, int> rows[] = {
        {"one two three", "one 2 three", 4},
        {"caf\xE9 new", "caf\xC3\xA9 old", 6},
        {"a\r\nb\r\n", "a\nb\n", 1},
        {"text", "", 0},
        {"same", "same", 2},
    };
    platform.answerAllMessages(Answer::no);
    for (const auto& [now, version, caret] : rows) {
        CDocument& document = open("page.htm", now);
        auto& text = dynamic_cast<TextBuffer&>(document.SourceRTB());
        const std::string before = text.text();
        const Encoding encoding = text.encoding();
        text.setSelStart(2);
        fs::remove_all(versionsDirectory());
        keep(version);
        inWindow([](FileVersions& form) { form.cmdBring.click(); });
        EXPECT_EQ(text.text(), version);
        EXPECT_EQ(std::pair(text.selStart(), text.selLength()), std::pair(caret, 0)) << version;
        EXPECT_EQ(document.IsSaved(), before == version);
        EXPECT_EQ(text.encoding(), encoding);
        EXPECT_EQ(files.read("page.htm"), now);
        text.undo();
        EXPECT_EQ(text.text(), before);
        document.CloseDoc();
    }
}

}  // namespace
}  // namespace kelvor
