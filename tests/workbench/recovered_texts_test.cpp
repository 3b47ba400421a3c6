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
    const JournalHeader named{.name = "/a\xFF.htm"};
    const SaveMark save{.path = "/a\xFF.htm"};
    const SaveMark elsewhere{.path = "/b\n.htm"};
    const auto text = [](const JournalHeader& header, const std::string& lines,
                         const std::optional<SaveMark>& mark = {}) {
        return JournalContent{.fault = JournalFault::none, .header = header, .text = lines, .save = mark};
    };
    const std::string same = "Lines added: 0, removed: 0, against the file on the disk. ";
    const std::string half = "The file on the disk may be half written.";
    const struct {
        JournalContent content;
        std::optional<std::string_view> onDisk;
        std::string told;
    } rows[] = {
        {text(named, "1\r\n2\r\n3\r\n"), "1\r\nx\r\n", "Lines added: 2, removed: 1, against the file on the disk."},
        {text(named, "1\n2"), std::nullopt, "Lines added: 2. There is no file of it any more."},
        {text({.name = "Untitled 1", .isUntitled = true}, "1"), std::nullopt,
         "Lines added: 1. There is no file of it yet."},
        {text(named, "1", save), "1", same + half},
        {text(named, "1", elsewhere), "1", same + "It was being saved as /b\\n.htm. " + half},
        {{.fault = JournalFault::noText}, "1", causeOf(JournalFault::noText)},
    };
    for (const auto& row : rows) EXPECT_EQ(describeLeftText(row.content, row.onDisk), row.told);
}

/// A start after another copy has been killed.
class RecoveredTextsForm : public KelvorTest {
protected:
    RecoveredTextsForm() { std::filesystem::create_directory(files.path("journals")); }

    void leave(const std::string& name, const JournalHeader& header, const std::string& text) {
        files.write("journals/" + name + ".journal", journalBytes(header, text));
    }
    /// Starts; while the window is shown `steps` run.
    void startWith(const std::function<void(RecoveredTexts&)>& steps) {
        platform.expectModal([&](Form& form) { steps(dynamic_cast<RecoveredTexts&>(form)); });
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
    leave("1", named, "caf\u00e9 and more");
    leave("2", {.name = "Untitled 7", .isUntitled = true}, "1\n2\n");
    leave("3", {.name = "Untitled 8", .isUntitled = true}, "later");
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
        form.cmdClose.click();
    });
    EXPECT_EQ(recentMenu(), "a.htm ");
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
    EXPECT_EQ(files.read("a.htm"), "caf\xE9");
    EXPECT_EQ(documentManager().MyDocuments().items().front()->SourceRTB().lineEnd(), "\n");
    EXPECT_EQ(journalCount(), 4);
    EXPECT_EQ(findLeftJournals().newest.size(), 2U) << "what is open again is not left";
    menu("mnuFile_Save").click();
    EXPECT_EQ(files.read("a.htm"), "caf\xE9 and more");
    EXPECT_EQ(journalCount(), 3);
}

TEST_F(RecoveredTextsForm, WhatIsTypedIntoATextThatCameBackIsLeftAgain) {
    leave("1", {.name = "Untitled 1", .isUntitled = true}, "text");
    startWith([](RecoveredTexts& form) { form.cmdBringBack.click(); });
    type("more ");
    EXPECT_EQ(readJournal(files.read("journals/1.journal"), {}).text, "more text");
}

TEST_F(RecoveredTextsForm, DiscardsAfterAQuestionAndShowsATextWithoutOpeningIt) {
    leave("1", {.name = "/gone/a\xFF.htm"}, "text");
    leave("2", {.name = "Untitled 1", .isUntitled = true}, "other");
    startWith([this](RecoveredTexts& form) {
        form.lstTexts.choose(1, {1});
        platform.expectModal([](Form& look) {
            EXPECT_EQ(look.caption(), "/gone/a\\xFF.htm");
            EXPECT_EQ(dynamic_cast<Look&>(look).rtbText.text(), "text");
        });
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
    leave("1", {.name = "Untitled 1", .isUntitled = true}, "text");
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
