// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal_format.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <random>
#include <set>

namespace kelvor {
namespace {

/// A journal in the making, and the text that it should give so far.
struct Draft {
    explicit Draft(const JournalHeader& header, std::string first = {}) : text(std::move(first)) {
        add(headerRecord(header));
    }

    void add(const JournalRecord& record) {
        bytes.append(record.head).append(record.body);
        check = record.check;
    }
    void change(int start, int removed, std::string_view inserted) {
        text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(removed), inserted);
        const ChangedRange range{start, removed, static_cast<int>(inserted.size())};
        add(changeRecord(check, range, inserted, static_cast<int>(text.size())));
    }
    void snapshot(const std::string& whole) { add(snapshotRecord(check, text = whole)); }
    void beginSave(const std::string& path) { add(beingSavedRecord(check, {path, Encoding::utf8, hashOf(text)})); }

    std::string bytes;
    std::string text;
    ContentHash check;
};

struct stat statusOf(std::size_t size) {
    struct stat status {};
    EXPECT_EQ(stat("/proc/self/exe", &status), 0);
    status.st_size = static_cast<off_t>(size);
    return status;
}

JournalHeader headerOf(const std::string& file, Encoding encoding = Encoding::utf8) {
    return {"/home/\xFFx/a.htm", false, encoding, 1'234'567'890'123, stampOf(statusOf(file.size()), hashOf(file))};
}

const JournalHeader untitled{"Untitled 3", true, Encoding::utf8, -1, std::nullopt};

JournalContent readAlone(std::string_view bytes) {
    return readJournal(bytes, [](const std::string& /*path*/) { return std::nullopt; });
}

JournalContent readWith(std::string_view bytes, const std::string& file) {
    return readJournal(bytes, [&](const std::string& path) {
        EXPECT_EQ(path, "/home/\xFFx/a.htm");
        return file;
    });
}

std::uint64_t seemingLength(std::string_view journal) {
    return seemingTextLength(readJournalHeader(journal).header, journal.size(),
                             [&](std::size_t place) { return journal.substr(place, journalHeadRoom); });
}

/// Every kind of record, and all texts that there were on the way.
struct Everything : Draft {
    Everything() : Draft(headerOf("one two"), "one two") {
        add(basePortionRecord(check, "one"));
        change(0, 3, "1");
        add(basePortionRecord(check, " two"));
        add(baseCompleteRecord(check));
        change(1, 0, "\r\n\xC3\xA4");
        beginSave("/b");
        add(saveOverRecord(check));
        snapshot("anew");
        change(0, 4, "");
        change(0, 0, "z");
        beginSave("/home/a.htm");
    }
    const std::set<std::string> texts{"one two", "1 two", "1\r\n\xC3\xA4 two", "anew", "", "z"};
};

TEST(JournalFormat, AHeaderComesBackAsItWas) {
    const auto fields = [](const JournalHeader& header) {
        return std::tuple(header.name, header.isUntitled, header.encoding, header.begun, header.isOfFile(),
                          header.stamp ? header.stamp->hash : ContentHash());
    };
    JournalHeader ofSnapshot = headerOf("text");
    ofSnapshot.isOfSnapshot = true;
    for (const JournalHeader& header : {headerOf("text"), ofSnapshot, headerOf("", Encoding::windows1252), untitled,
                                        JournalHeader{std::string(4096, '\xFE')}}) {
        const auto read = readJournalHeader(headerRecord(header).head.substr(0, journalHeaderRoom));
        EXPECT_EQ(read.fault, JournalFault::none);
        EXPECT_EQ(fields(read.header), fields(header));
        EXPECT_EQ(read.header.stamp && read.header.stamp->isOf(statusOf(header.stamp->size)), header.stamp.has_value());
    }
}

TEST(JournalFormat, GivesTheTextOfItsFileWithTheChanges) {
    for (const auto& [file, encoding, start, text] : std::vector<std::tuple<std::string, Encoding, int, std::string>>{
             {"\xC3\xA4", Encoding::utf8, 2, "\xC3\xA4!"},
             {"\xEF\xBB\xBF\xC3\xA4", Encoding::utf8WithMark, 0, "!\xC3\xA4"},
             {{"\xFF\xFE\xE4\0", 4}, Encoding::utf16LittleEndian, 2, "\xC3\xA4!"},
             {"\xFE\xFF\x20\xAC", Encoding::utf16BigEndian, 3, "\xE2\x82\xAC!"},
             {"\xC3\xA4", Encoding::windows1252, 0, "!\xC3\x83\xC2\xA4"},  // which would do for UTF-8 too
             {"\xEF\xBB\xBFx", Encoding::utf8, 0, "!\xEF\xBB\xBFx"},       // the mark is the text's own
             {"", Encoding::utf8, 0, "!"},
         }) {
        Draft draft(headerOf(file, encoding), text.substr(start == 0 ? 1 : 0, text.size() - 1));
        draft.add(basePortionRecord(draft.check, file));
        Draft whole = draft;
        whole.add(baseCompleteRecord(whole.check));
        for (Draft* each : {&draft, &whole}) each->change(start, 0, "!");
        EXPECT_EQ(readWith(draft.bytes, file).text, text);
        EXPECT_FALSE(readWith(draft.bytes, file).isWhole);
        EXPECT_EQ(readWith(draft.bytes, file + "?").fault, JournalFault::fileChanged);
        EXPECT_EQ(readAlone(whole.bytes).text, text);
        EXPECT_TRUE(readAlone(whole.bytes).isWhole);
    }
}

TEST(JournalFormat, WhatIsCutAnywhereGivesAnEarlierTextOrNone) {
    const Everything draft;
    std::size_t valid = 0;
    for (std::size_t length = 0; length <= draft.bytes.size(); ++length) {
        const auto read = readWith(draft.bytes.substr(0, length), "one two");
        EXPECT_TRUE(valid <= read.validLength && read.validLength <= length) << length;
        valid = read.validLength;
        EXPECT_EQ(read.fault, valid > 0 ? JournalFault::none : JournalFault::unreadable)
            << "the header alone is needed";
        if (valid == 0) continue;
        EXPECT_EQ(seemingLength(draft.bytes.substr(0, length)), read.text.size());
        EXPECT_TRUE(draft.texts.contains(read.text)) << read.text;
        // What is written behind the valid part goes on from it.
        Draft goesOn = draft;
        goesOn.bytes.resize(valid);
        goesOn.check = read.check;
        goesOn.text = read.text;
        goesOn.change(0, 0, "+");
        EXPECT_EQ(readWith(goesOn.bytes, "one two").text, "+" + read.text) << length;
    }
    EXPECT_EQ(valid, draft.bytes.size());
    EXPECT_EQ(readAlone(draft.bytes).text, "z");
    EXPECT_EQ(readAlone(draft.bytes).save, (SaveMark{"/home/a.htm", Encoding::utf8, hashOf("z")}));
}

TEST(JournalFormat, AMarkOfASaveLastsUntilItIsOver) {
    Draft draft(untitled);
    EXPECT_EQ(readAlone(draft.bytes).fault, JournalFault::noText);
    const auto marked = [&draft] {
        const auto read = readAlone(draft.bytes);
        EXPECT_EQ(seemingLength(draft.bytes), read.text.size());
        return read.save ? read.save->path : "";
    };
    draft.snapshot("text");
    EXPECT_EQ(marked(), "");
    draft.beginSave("/a");
    draft.change(0, 0, "x");
    EXPECT_EQ(marked(), "/a") << "the file is no better for what was typed since";
    draft.snapshot("anew");
    EXPECT_EQ(marked(), "/a");
    draft.beginSave("/b");
    EXPECT_EQ(marked(), "/b");
    draft.add(saveOverRecord(draft.check));
    EXPECT_EQ(marked(), "");
}

TEST(JournalFormat, DamageNeverGivesATextThatWasNotThere) {
    const Everything draft;
    std::mt19937 random(11);
    for (int round = 0; round < 2'000; ++round) {
        std::string bytes = draft.bytes;
        bytes[random() % bytes.size()] ^= static_cast<char>(1U << random() % 8);
        const auto flipped = readWith(bytes, "one two");
        EXPECT_TRUE(flipped.fault != JournalFault::none || draft.texts.contains(flipped.text)) << flipped.text;

        std::generate(bytes.begin() + (round % 2 == 0 ? 0 : 16), bytes.end(), [&] { return char(random()); });
        EXPECT_NE(readWith(bytes, "one two").fault, JournalFault::none);
        seemingLength(bytes);
    }
}

/// Each row stands behind a change from "text" to "xtext".
TEST(JournalFormat, ARecordThatDoesNotFitEndsTheReadingBeforeIt) {
    Draft before(untitled);
    before.snapshot("text");
    before.change(0, 0, "x");
    auto beyondAllFiles = changeRecord(before.check, {0, 0, 1}, "y", 6);
    beyondAllFiles.head[8] = 0x10;
    for (const auto& [what, record] : {
             std::pair{"joined to another one", snapshotRecord({}, "other")},
             {"in front of the text", changeRecord(before.check, {-1, 0, 1}, "y", 6)},
             {"behind the text", changeRecord(before.check, {6, 0, 1}, "y", 6)},
             {"more than there is", changeRecord(before.check, {1, 5, 0}, "", 0)},
             {"another length", changeRecord(before.check, {0, 0, 1}, "y", 7)},
             {"a length beyond all files", beyondAllFiles},
             {"a file behind a text", basePortionRecord(before.check, "y")},
             {"its end", baseCompleteRecord(before.check)},
             {"the save of another text", beingSavedRecord(before.check, {"/a", Encoding::utf8, hashOf("other")})},
         }) {
        SCOPED_TRACE(what);
        Draft draft = before;
        draft.add(record);
        draft.add(snapshotRecord(before.check, "not reached"));
        const auto read = readAlone(draft.bytes);
        EXPECT_EQ(read.text, "xtext");
        EXPECT_FALSE(read.save.has_value());
        EXPECT_EQ(read.validLength, before.bytes.size());
        EXPECT_EQ(read.check, before.check);
    }
}

TEST(JournalFormat, ANewerJournalIsNamedSo) {
    std::string bytes = Everything().bytes;
    for (const auto& [version, fault] :
         {std::pair{0, JournalFault::unreadable}, {2, JournalFault::newer}, {255, JournalFault::newer}}) {
        bytes[15] = static_cast<char>(version);
        EXPECT_EQ(readAlone(bytes).fault, fault) << version;
    }
}

}  // namespace
}  // namespace kelvor
