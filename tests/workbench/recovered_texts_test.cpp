// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/recovered_texts.h"

#include <filesystem>

#include "core/look.h"
#include "files/places.h"
#include "tests/kit/kelvor_fixture.h"
#include "tests/kit/left_journal.h"

namespace kelvor {
namespace {

TEST(LeftTexts, AreDescribedAgainstTheirFileOnTheDisk) {
    const std::string path = "/a\xFF.htm";
    const auto left = [&](const std::string& text, const std::string& savePath = {}) {
        const auto save = savePath.empty() ? std::nullopt : std::optional(SaveMark{.path = savePath});
        return JournalContent{.fault = JournalFault::none, .header = {.name = path}, .text = text, .save = save};
    };
    JournalContent untitled = left("1");
    untitled.header = {.name = "Untitled 1", .isUntitled = true};
    const std::string same = "Lines added: 0, removed: 0, against the file on the disk. ";
    const std::string half = "The file on the disk may be half written.";
    const std::tuple<JournalContent, std::optional<std::string_view>, std::string> rows[] = {
        {left("1\r\n2\r\n3\r\n"), "1\r\nx\r\n", "Lines added: 2, removed: 1, against the file on the disk."},
        {left("1\n2"), std::nullopt, "Lines added: 2. There is no file of it any more."},
        {untitled, std::nullopt, "Lines added: 1. There is no file of it yet."},
        {left("1", path), "1", same + "It was being saved, and the file has all of it."},
        {left("1", path), "1\r\n", "Lines added: 1, removed: 1, against the file on the disk. " + half},
        {left("1", "/b\n.htm"), "1", same + "It was being saved as /b\\n.htm. " + half},
        {{.fault = JournalFault::noText}, "1", causeOf(JournalFault::noText)},
    };
    for (const auto& [content, onDisk, told] : rows) EXPECT_EQ(describeLeftText(content, onDisk), told);
}

/// A start after another copy has been killed.
class RecoveredTextsForm : public KelvorTest {
protected:
    RecoveredTextsForm() { std::filesystem::create_directory(files.path("journals")); }

    void leave(const std::string& name, const JournalHeader& header, const std::string& text) {
        files.write("journals/" + name + ".journal", journalBytes(header, text));
    }
    void leaveUntitled(const std::string& name, const std::string& text) {
        leave(name, {.name = "Untitled 7", .isUntitled = true}, text);
    }
    /// Starts; while the window is shown `steps` run.
    void startWith(const std::function<void(RecoveredTexts&)>& steps) {
        platform.expectDialog(steps);
        start();
    }
    std::ptrdiff_t journalCount() const {
        return std::distance(std::filesystem::directory_iterator(files.path("journals")), {});
    }
    /// The open documents, each with its text, and whether it is saved.
    static std::string documents() {
        std::string all;
        for (const auto& document : documentManager().MyDocuments().items())
            all +=
                document->ShortFileName() + "=" + document->SourceRTB().text() + (document->IsSaved() ? "" : "*") + " ";
        return all;
    }

    ScopedDirectories inForce_{files.program(), files.path("settings"), files.path("")};
};

TEST_F(RecoveredTextsForm, BringsBackWhatIsSelectedAsChangedAndKeepsItOn) {
    const std::string path = files.write("a.htm", "caf\xE9");
    const JournalHeader named{.name = path, .encoding = Encoding::windows1252, .stamp = readStamp(path)};
    files.write("journals/1.journal", journalBytes(named, "caf\u00e9 and more") + "torn");
    leaveUntitled("2", "1\n2\n");
    leaveUntitled("3", "later");
    files.write("journals/4.journal", "nonsense");
    startWith([this](RecoveredTexts& form) {
        EXPECT_EQ(form.lblAbout.caption(), causeOf(JournalFault::unreadable));
        EXPECT_EQ(disabledIn(form), "cmdBringBack cmdLook ");
        for (const auto& [row, size] : {std::pair(0, ""), {1, "5 bytes"}, {3, "14 bytes"}})
            EXPECT_EQ(form.lstTexts.cell(row, 2), size);
        form.lstTexts.choose(3, {0, 2, 3});
        EXPECT_EQ(form.lblAbout.caption(), "3 are selected.");
        form.cmdBringBack.click();
        EXPECT_EQ(documents(), "Untitled 1=1\n2\n* a.htm=caf\u00e9 and more* ");
        EXPECT_EQ(form.lstTexts.count(), 2U) << "the unreadable one and the other one stay";
        EXPECT_FALSE(form.lblOthers.visible());
    });
    EXPECT_EQ(recentMenu(), "a.htm ");
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    EXPECT_EQ(files.read("a.htm"), "caf\xE9");
    EXPECT_EQ(documentManager().MyDocuments().items().front()->SourceRTB().lineEnd(), "\n");
    EXPECT_EQ(journalCount(), 4);
    EXPECT_EQ(findLeftJournals().newest.size(), 2U) << "what is open again is not left";
    type("+ ");
    EXPECT_EQ(readJournal(files.read("journals/1.journal"), {}).text, "+ caf\u00e9 and more") << "it is left again";
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm"), "+ caf\xE9 and more");
    EXPECT_EQ(journalCount(), 3);
}

TEST_F(RecoveredTextsForm, DiscardsAfterAQuestionAndShowsATextWithoutOpeningIt) {
    leave("1", {.name = "/gone/a\xFF.htm"}, "text");
    leaveUntitled("2", "other");
    startWith([this](RecoveredTexts& form) {
        form.lstTexts.choose(1, {1});
        platform.expectDialog<Look>(
            [](Look& look) { EXPECT_EQ(look.caption() + "|" + look.rtbText.text(), "/gone/a\\xFF.htm|text"); });
        form.cmdLook.click();
        const std::string behind = "?\r\nNothing will be left of what was not saved.";
        platform.expectMessage(deletion("Do you want to discard the unsaved text [/gone/a\\xFF.htm]" + behind),
                               Answer::no);
        form.cmdDiscard.click();
        EXPECT_EQ(journalCount(), 2);
        form.lstTexts.choose(0, {0, 1});
        platform.expectMessage(deletion("Do you want to discard the 2 selected texts" + behind), Answer::yes);
        form.cmdDiscard.click();
        EXPECT_FALSE(form.isLoaded()) << "there is nothing more to offer";
    });
    EXPECT_EQ(journalCount(), 0);
    EXPECT_EQ(documents(), "");
}

TEST_F(RecoveredTextsForm, WhatCannotBePutTogetherStaysAndTheOthersComeBack) {
    const std::string path = files.write("a.htm", "old");
    const JournalRecord begin = headerRecord({.name = path, .stamp = readStamp(path)});
    const JournalRecord typed = changeRecord(begin.check, {0, 0, 1}, "x", 4);
    files.write("a.htm", "new");
    files.write("journals/2.journal", begin.head + typed.head + std::string(typed.body));
    leaveUntitled("1", "text");
    startWith([&](RecoveredTexts& form) {
        form.lstTexts.choose(0, {0, 1});
        platform.expectMessage(openError(path, causeOf(JournalFault::fileChanged)));
        form.cmdBringBack.click();
        EXPECT_EQ(form.lstTexts.count(), 1U);
    });
    EXPECT_EQ(documents(), "Untitled 1=text* ");
    EXPECT_EQ(journalCount(), 2);
}

}  // namespace
}  // namespace kelvor
