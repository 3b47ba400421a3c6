// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <filesystem>

#include "assistants/template_holder.h"
#include "core/journal_file.h"
#include "core/virtual_directories.h"
#include "files/files.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"
#include "workbench/scratch_pad.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

class JournalOf : public StartedTest {
protected:
    std::vector<std::string> paths() {
        std::vector<std::string> found;
        std::error_code isMissing;
        for (const auto& entry : fs::directory_iterator(files.path("state/journals"), isMissing))
            if (entry.path().string().ends_with(journalSuffix)) found.push_back(entry.path());
        std::sort(found.begin(), found.end());
        return found;
    }
    static JournalContent journalAt(const std::string& path) { return readJournal(readFile(path), readFile); }
    /// The texts that a kill would leave now, " + " between them.
    std::string kept() {
        std::string texts;
        for (const std::string& path : paths()) {
            EXPECT_EQ(journalAt(path).fault, JournalFault::none);
            texts += (texts.empty() ? "" : " + ") + journalAt(path).text;
        }
        return texts;
    }
    void expectLocked(const std::string& path) {
        const OpenFile other(::open(path.c_str(), O_RDWR));
        EXPECT_NE(flock(other.descriptor(), LOCK_EX | LOCK_NB), 0);
    }
    CDocument& openUntitled(const std::string& text) {
        EXPECT_TRUE(fileOpen(files.write("any.tpl", text), true));
        mainForm().increaseUntitledCount();
        return documentManager().currentDocument();
    }
    void close(Answer answer = Answer::no) {
        const CDocument& document = documentManager().currentDocument();
        if (!document.IsSaved()) {
            platform.expectMessage(
                saveQuestion(document.IsUntitled() ? document.ShortFileName() : document.LongFileName()), answer);
        }
        menu("mnuFile_Close").click();
    }
    /// What is done between events when a second has gone by.
    void waitASecond() {
        now += std::chrono::seconds(2);
        while (workOnJournals(now)) continue;
    }
    std::string notice() { return panelText(panel::notice); }

    Journal::Moment now = std::chrono::steady_clock::now();
    const ScopedDirectories withState{files.program(), files.path("settings"), files.path("state")};
};

constexpr const char* isFull = "Unsaved text is not being kept: The disk is full.";

TEST_F(JournalOf, EachDocumentIsKeptFromItsFirstChangeUntilItIsSavedOrGivenUp) {
    EditControl& titled = open("caf\xE9.htm", "\xE4\r\n").SourceRTB();
    EXPECT_EQ(kept(), "") << "nothing has changed";
    type("x");
    titled.setSelStart(99);
    type("y");
    EXPECT_EQ(kept(), "x\xC3\xA4\r\ny");
    const JournalContent first = journalAt(paths()[0]);
    EXPECT_EQ(first.header.name, files.path("caf\xE9.htm")) << "byte for byte";
    EXPECT_EQ(first.header.encoding, Encoding::windows1252);
    EXPECT_TRUE(first.isWhole);

    openUntitled("<P>");
    EXPECT_EQ(paths().size(), 1U) << "a template is nobody's change";
    type("2");
    const JournalHeader second = journalAt(paths()[1]).header;
    EXPECT_TRUE(second.isUntitled && second.name == "Untitled 1");
    for (int i = 0; i < 2; ++i) titled.undo();
    EXPECT_EQ(kept(), "\xC3\xA4\r\n + 2<P>") << "it still counts as changed";
    {
        const EditControl::Batch batch(titled);
        titled.setText("all new");
        titled.setSelText("and ");
        titled.setSelStart(0);
        menu("mnuEdit_Undo").click();
    }
    EXPECT_EQ(kept(), "and all new + <P>") << "undo was for the one in front";

    expectLocked(paths()[0]);
    close(Answer::cancel);
    EXPECT_EQ(paths().size(), 2U);
    close();
    EXPECT_EQ(kept(), "and all new");
    menu("mnuFile_Save").click();
    EXPECT_EQ(kept(), "");
    type("z");
    EXPECT_EQ(kept(), "zand all new") << "from the file as it was saved";
    close();
    EXPECT_EQ(kept() + notice(), "");
}

TEST_F(JournalOf, WhatCouldNotBeWrittenIsToldOnceAndWrittenWithTheNextKey) {
    using Fault = std::function<ScopedSystemCalls()>;
    const Fault shortWrite = [] {
        auto calls = systemCalls();
        calls.pwrite = [](int descriptor, const void* bytes, std::size_t count, off_t place) {
            return count > 5 ? ::pwrite(descriptor, bytes, 5, place) : (errno = ENOSPC, -1);
        };
        return ScopedSystemCalls(std::move(calls));
    };
    const Fault noEntry = [] { return failing(&SystemCalls::open, ENOSPC); };
    for (const auto& [what, fault, isNew] : {std::tuple{"no room for all", shortWrite, false},
                                             {"no room for the first", shortWrite, true},
                                             {"no entry", noEntry, true}}) {
        SCOPED_TRACE(what);
        open("a.htm", "text");
        if (!isNew) type("1");
        platform.beIdle();
        const std::string before = kept();
        {
            const auto inForce = fault();
            type("2");
            EXPECT_EQ(notice(), isFull);
            const std::string told = std::string(isFull) + " Told.";
            mainForm().StatusBar1.setPanelText(panel::notice, told);
            type("3");
            platform.beIdle();
            EXPECT_EQ(notice(), told) << "not with each key";
        }
        EXPECT_EQ(kept(), before);
        type("4");
        EXPECT_EQ(kept(), std::string(isNew ? "" : "1") + "234text");
        EXPECT_EQ(notice(), "");
        close();
        EXPECT_EQ(fs::is_empty(files.path("state/journals")), true);
    }
}

TEST_F(JournalOf, WhatCouldNotBeWrittenIsWrittenLaterThoughNothingIsTyped) {
    open("a.htm", "text");
    {
        const auto fault = failing(&SystemCalls::open, ENOSPC);
        type("x");
    }
    waitASecond();
    EXPECT_EQ(kept(), "xtext");
    EXPECT_EQ(notice(), "");
    // Nobody knows what a disk has that has reported an error: the journal is written anew.
    const auto inode = [this] { return readStamp(paths().at(0)).inode; };
    const auto first = inode();
    type("y");
    {
        const auto fault = failing(&SystemCalls::fdatasync, EIO);
        waitASecond();
        EXPECT_EQ(notice(), "Unsaved text is not being kept: The disk reports an error.");
        mainForm().StatusBar1.setPanelText(panel::notice, "another's");
    }
    waitASecond();
    EXPECT_NE(inode(), first);
    EXPECT_EQ(kept(), "xytext");
    EXPECT_EQ(notice(), "another's");
    // The same when somebody removes it.
    type("z");
    fs::remove_all(files.path("state"));
    for (int i = 0; i < 2; ++i) waitASecond();
    EXPECT_EQ(kept(), "xyztext");
    EXPECT_EQ(notice(), "");
}

TEST_F(JournalOf, WithoutAStateDirectoryASaveGoesOn) {
    const ScopedDirectories homeless(files.program(), files.path("settings"), "");
    open("a.htm", "old");
    type("new");
    EXPECT_EQ(notice(), "Unsaved text is not being kept: There is no home directory.");
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm") + notice(), "newold");
}

/// Three megabytes, so that the copy takes more than one turn.
TEST_F(JournalOf, AFileThatAnotherProgramWritesIsNotNeeded) {
    const std::string text = std::string(3'000'000, '-');
    const std::string other = std::string(3'000'000, '+');
    for (const int turn : {-1, 0, 1, 2, 3}) {
        SCOPED_TRACE(turn);
        open("a.htm", text);
        const auto rewrite = [&] { files.write("a.htm", other); };
        if (turn == -1) rewrite();
        type("x");
        EXPECT_EQ(journalAt(paths()[0]).isWhole, turn == -1) << "there is something to be late for";
        for (int i = 0; i < turn; ++i) workOnJournals(now);
        if (turn >= 0) rewrite();
        while (workOnJournals(now)) continue;
        fs::remove(files.path("a.htm"));
        EXPECT_TRUE(kept() == "x" + text && journalAt(paths()[0]).isWhole);
        close();
    }
}

TEST_F(JournalOf, AFileReadAnewOrTakenForKnownIsNotTakenForTheTextBefore) {
    EditControl& text = open("a.htm", "old").SourceRTB();
    text.setFileStamp(readStamp(files.write("a.htm", "disk")));
    type("x");
    EXPECT_EQ(kept(), "xold") << "the text stays, and its file is known to be another";
    const auto stamp = journalAt(paths()[0]).header.stamp;
    EXPECT_TRUE(stamp && stamp->hash == hashOf("disk"));
    text.ReloadFile(files.write("a.htm", "disk 2"));
    documentManager().currentDocument().journal().start(true);
    EXPECT_EQ(kept(), "");
    text.undo();
    EXPECT_EQ(kept(), "xold");
}

TEST_F(JournalOf, ASaveIsAnnouncedBeforeItsFirstByte) {
    // What stands when the first byte of the file is written: a journal that has the new text whole, says so, and is
    // on the disk.
    const auto expectAnnounced = [this](const std::string& path, const std::function<void()>& save) {
        std::string announced;
        bool isFlushed = false;
        auto calls = systemCalls();
        calls.fdatasync = [&](int descriptor) { return isFlushed = true, ::fdatasync(descriptor); };
        calls.pwrite = [&](int descriptor, const void* bytes, std::size_t count, off_t place) {
            if (pathOf(descriptor).ends_with(journalSuffix)) {
                isFlushed = false;
            } else if (isFlushed && paths().size() == 1) {
                const JournalContent journal = journalAt(paths()[0]);
                const bool isSame = journal.text == std::string_view(static_cast<const char*>(bytes), count);
                if (journal.isWhole && journal.save && isSame) announced = journal.save->path;
            }
            return ::pwrite(descriptor, bytes, count, place);
        };
        const ScopedSystemCalls scope(std::move(calls));
        save();
        EXPECT_EQ(announced, path);
        EXPECT_EQ(paths().size(), 0U) << "the file has it";
    };
    const auto typeAndClick = [this](const std::string& typed, const char* name) {
        if (!typed.empty()) type(typed);
        menu(name).click();
    };
    open("a.htm", "old");
    for (const char* typed : {"new ", ""})
        expectAnnounced(files.path("a.htm"), [&] { typeAndClick(typed, "mnuFile_Save"); });
    // Before the copy of its file is whole.
    open("large.htm", std::string(3'000'000, '-'));
    expectAnnounced(files.path("large.htm"), [&] { typeAndClick("x", "mnuFile_Save"); });
    platform.expectSave(files.path("b.htm"), "large.htm");
    expectAnnounced(files.path("b.htm"), [&] { typeAndClick("2 ", "mnuFile_SaveAs"); });

    fs::create_directories(templateDirectory());
    platform.expectBox("Template added");
    expectAnnounced(templateFile("new"), [] { toolForm<TemplateHolder>().addTpl("new"); });
    vdirManager().VirtualDirectories().Add("/web", "http://x", "/web");
    expectAnnounced(vdirManager().VDirFilePath(), [] { vdirManager().WriteVDirs(); });
    showScratchPad();
    toolForm<ScratchPad>().append("pad");
    platform.expectSave(files.path("pad.txt"));
    expectAnnounced(files.path("pad.txt"), [] { toolForm<ScratchPad>().mnusp_save.click(); });
}

TEST_F(JournalOf, AFailedSaveIsNoLongerAnnounced) {
    CDocument& document = open("a.htm", "old");
    type("new");
    chmod(document.LongFileName().c_str(), 0444);
    platform.expectMessage(saveError(document.LongFileName(), "The file is read-only."));
    menu("mnuFile_Save").click();
    EXPECT_EQ(kept(), "newold");
    EXPECT_FALSE(journalAt(paths()[0]).save.has_value());
    type("er");
    EXPECT_EQ(kept(), "newerold");
    chmod(document.LongFileName().c_str(), 0644);
    {
        const auto fault = failing(&SystemCalls::unlink, EROFS);
        menu("mnuFile_Save").click();
    }
    ASSERT_EQ(paths().size(), 1U) << "the fault was there";
    EXPECT_EQ(fs::file_size(paths()[0]), 0U) << "nothing is offered that is saved";
}

TEST_F(JournalOf, ALongJournalOfAShortTextIsMadeShort) {
    EditControl& text = open("a.htm", "").SourceRTB();
    for (int i = 0; i < 9; ++i) {
        text.setText(std::string(8'000'000, '-'));
        text.setText("short");
    }
    EXPECT_GT(fs::file_size(paths()[0]), 64'000'000U);
    const std::string path = paths()[0];
    waitASecond();
    EXPECT_LT(fs::file_size(path), 1'000U);
    type("x");
    EXPECT_EQ(kept(), "xshort");
    const auto stamp = journalAt(path).header.stamp;
    EXPECT_TRUE(stamp && stamp->hash == hashOf(""));
    expectLocked(path);
    EXPECT_EQ(std::distance(fs::directory_iterator(files.path("state/journals")), {}), 1);
}

}  // namespace
}  // namespace kelvor
