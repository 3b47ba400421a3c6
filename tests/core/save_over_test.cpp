// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/save_over.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

#include "core/file_close.h"
#include "core/file_save.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class SaveOverTest : public StartedTest {
protected:
    /// Opens a file whose text is typed in and whose bytes another program writes.
    CDocument& openChanged(const std::string& name) {
        CDocument& document = open(name, "old");
        type("mine ");
        files.write(name, "theirs");
        mainForm().keyboardCame.raise();
        EXPECT_TRUE(mainForm().picDisk.visible());
        return document;
    }
    /// The next question is about this file and is answered so.
    void expectQuestion(const std::string& name, Button SaveOver::*button) {
        platform.expectDialog<SaveOver>([this, name, button](SaveOver& question) {
            EXPECT_EQ(question.lblFile.caption(), files.path(name));
            (question.*button).click();
            EXPECT_FALSE(question.isLoaded());
        });
    }
};

TEST_F(SaveOverTest, EachButtonDoesWhatItSaysOnEachRoadOfASave) {
    const std::pair<const char*, std::function<void()>> roads[] = {
        {"Save", [&] { menu("mnuFile_Save").click(); }},
        {"Save All", [&] { menu("mnuFile_SaveAll").click(); }},
        {"Save As onto its own file", [&] { fileSaveAs(documentManager().currentDocument(), files.path("a.htm")); }},
    };
    for (const auto& [road, save] : roads) {
        SCOPED_TRACE(road);
        const CDocument& document = openChanged("a.htm");
        expectQuestion("a.htm", &SaveOver::cmdCancel);
        save();
        EXPECT_FALSE(document.IsSaved());
        EXPECT_EQ(files.read("a.htm"), "theirs");
        expectQuestion("a.htm", &SaveOver::cmdOverwrite);
        save();
        EXPECT_TRUE(document.IsSaved());
        EXPECT_FALSE(mainForm().picDisk.visible());
        EXPECT_EQ(files.read("a.htm"), "mine old");
        save();
        menu("mnuFile_Close").click();
    }
}

TEST_F(SaveOverTest, CompareAndNoNameComeBackAndAnotherNameGoesOn) {
    const CDocument& document = openChanged("a.htm");
    const std::string gone = files.path("gone/b.htm");
    platform.expectDialog<SaveOver>([&](SaveOver& question) {
        platform.expectModal([](Form& shown) { EXPECT_EQ(shown.name(), "frmCompare"); });
        question.cmdCompare.click();
        platform.expectSave("", "a.htm");
        question.cmdSaveAs.click();
        EXPECT_TRUE(question.isLoaded()) << "no name leads back to the question";
        platform.expectSave(gone, "a.htm");
        question.cmdSaveAs.click();
        platform.expectMessage(saveError(gone, "The folder does not exist."));
    });
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(document.LongFileName(), files.path("a.htm"));
    expectQuestion("a.htm", &SaveOver::cmdSaveAs);
    platform.expectSave(files.path("b.htm"), "a.htm");
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm") + "|" + files.read("b.htm"), "theirs|mine old");
    EXPECT_EQ(document.LongFileName(), files.path("b.htm"));
    EXPECT_TRUE(document.IsSaved());
    EXPECT_EQ(recentMenu(), "b.htm ");
}

TEST_F(SaveOverTest, ADeclinedSaveStopsTheCloseAndTheExitAndNotTheOtherSaves) {
    CDocument& first = openChanged("a.htm");
    CDocument& second = openChanged("b.htm");
    CDocument& third = openChanged("c.htm");
    expectQuestion("a.htm", &SaveOver::cmdOverwrite);
    expectQuestion("b.htm", &SaveOver::cmdCancel);
    expectQuestion("c.htm", &SaveOver::cmdOverwrite);
    menu("mnuFile_SaveAll").click();
    EXPECT_EQ(first.IsSaved() && third.IsSaved(), !second.IsSaved());
    EXPECT_EQ(files.read("a.htm") + files.read("b.htm") + files.read("c.htm"), "mine oldtheirsmine old");
    for (const auto end : {mnuFile_CloseAll_Click, mnuFile_Exit_Click}) {
        platform.expectMessage(saveQuestion(files.path("b.htm")), Answer::yes);
        expectQuestion("b.htm", &SaveOver::cmdCancel);
        end();
        EXPECT_TRUE(documentManager().MyDocuments().contains(second.StrUniqueID()));
        EXPECT_EQ(files.read("b.htm"), "theirs");
    }
}

TEST_F(SaveOverTest, WhatComesBetweenTheLookOrTheAnswerAndTheWriteIsAskedAbout) {
    const std::string path = open("a.htm", "old").LongFileName();
    type("mine ");
    int writes = 0;
    // Another program writes when the save has looked, and stands at the moment of opening the file.
    auto calls = kernelCalls();
    calls.open = [&](const char* opened, int flags, mode_t mode) {
        if (opened == path && (flags & O_ACCMODE) == O_RDWR && writes < 2) {
            ++writes;
            files.write("a.htm", "theirs " + std::to_string(writes));
        }
        return ::open(opened, flags, mode);
    };
    const ScopedSystemCalls between(calls);
    for (const char* there : {"theirs 1", "theirs 2"})
        platform.expectDialog<SaveOver>([this, there](SaveOver& question) {
            EXPECT_EQ(files.read("a.htm"), there);
            question.cmdOverwrite.click();
        });
    menu("mnuFile_Save").click();
    EXPECT_EQ(writes, 2) << "the fault did not come";
    EXPECT_EQ(files.read("a.htm"), "mine old");
}

TEST_F(SaveOverTest, AFileThatIsGoneIsMadeAnewUnlessOneComesInItsPlace) {
    const CDocument& document = open("a.htm", "old");
    std::filesystem::remove(files.path("a.htm"));
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm"), "old");
    std::filesystem::remove(files.path("a.htm"));
    mainForm().keyboardCame.raise();
    mainForm().cmdDiskKeep.click();
    files.write("a.htm", "theirs");
    expectQuestion("a.htm", &SaveOver::cmdCancel);
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm"), "theirs");
    // What cannot be written is told as ever, with no question before it.
    open("b.htm", "b");
    chmod(files.path("b.htm").c_str(), 0444);
    platform.expectMessage(saveError(files.path("b.htm"), "The file is read-only."));
    menu("mnuFile_Save").click();
    EXPECT_FALSE(document.IsSaved());
}

}  // namespace
}  // namespace kelvor
