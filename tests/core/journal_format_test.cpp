// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal_format.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <functional>
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
    void base(std::string_view part) { add(basePortionRecord(check, part)); }
    void baseComplete() { add(baseCompleteRecord(check)); }
    void beginSave(const std::string& path) { add(beingSavedRecord(check, {path, Encoding::utf8, hashOf(text)})); }
    void saveOver() { add(saveOverRecord(check)); }

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

std::optional<std::string> noFile(const std::string& /*path*/) {
    return std::nullopt;
}

FileReader fileWith(const std::string& bytes) {
    return [bytes](const std::string& path) {
        EXPECT_EQ(path, "/home/\xFFx/a.htm");
        return bytes;
    };
}

std::uint64_t seemingLength(std::string_view journal) {
    return seemingTextLength(readJournalHeader(journal).header, journal.size(),
                             [&](std::size_t place) { return journal.substr(place, journalHeadRoom); });
}

/// Every kind of record, and all texts that there were on the way.
struct Everything : Draft {
    Everything() : Draft(headerOf("one two"), "one two") {
        base("one");
        change(0, 3, "1");
        base(" two");
        baseComplete();
        change(1, 0, "\r\n\xC3\xA4");
        beginSave("/b");
        saveOver();
        snapshot("anew");
        change(0, 4, "");
        change(0, 0, "z");
        beginSave("/home/a.htm");
    }
    const std::set<std::string> texts{"one two", "1 two", "1\r\n\xC3\xA4 two", "anew", "", "z"};
};

TEST(JournalFormat, AHeaderComesBackAsItWas) {
    JournalHeader ofSnapshot = headerOf("text");
    ofSnapshot.isOfSnapshot = true;
    for (const JournalHeader& header : {headerOf("text"), ofSnapshot, headerOf("", Encoding::windows1252), untitled,
                                        JournalHeader{std::string(4096, '\xFE')}}) {
        const auto read = readJournalHeader(headerRecord(header).head.substr(0, journalHeaderRoom));
        ASSERT_EQ(read.fault, JournalFault::none);
        EXPECT_EQ(read.header.name, header.name);
        EXPECT_EQ(read.header.isUntitled, header.isUntitled);
        EXPECT_EQ(read.header.encoding, header.encoding);
        EXPECT_EQ(read.header.begun, header.begun);
        ASSERT_EQ(read.header.stamp.has_value(), header.stamp.has_value());
        EXPECT_EQ(read.header.isOfFile(), header.isOfFile());
        EXPECT_TRUE(!header.stamp || (read.header.stamp->isOf(statusOf(header.stamp->size)) &&
                                      read.header.stamp->hash == header.stamp->hash));
    }
}

TEST(JournalFormat, GivesTheTextOfItsFileWithTheChanges) {
    struct Row {
        const char* what;
        std::string file;
        Encoding encoding;
        int start;
        std::string text;
    };
    for (const auto& [what, file, encoding, start, text] : {
             Row{"UTF-8", "\xC3\xA4", Encoding::utf8, 2, "\xC3\xA4!"},
             Row{"a mark", "\xEF\xBB\xBF\xC3\xA4", Encoding::utf8WithMark, 0, "!\xC3\xA4"},
             Row{"UTF-16", std::string("\xFF\xFE\xE4\0", 4), Encoding::utf16LittleEndian, 2, "\xC3\xA4!"},
             Row{"UTF-16, the other way round", "\xFE\xFF\x20\xAC", Encoding::utf16BigEndian, 3, "\xE2\x82\xAC!"},
             Row{"Windows-1252", "\x80", Encoding::windows1252, 0, "!\xE2\x82\xAC"},
             Row{"Windows-1252 that would do for UTF-8 too", "\xC3\xA4", Encoding::windows1252, 0, "!\xC3\x83\xC2\xA4"},
             Row{"a mark that is the text's own", "\xEF\xBB\xBFx", Encoding::utf8, 0, "!\xEF\xBB\xBFx"},
             Row{"nothing", "", Encoding::utf8, 0, "!"},
         }) {
        SCOPED_TRACE(what);
        for (const bool isWhole : {true, false}) {
            Draft draft(headerOf(file, encoding), text.substr(start == 0 ? 1 : 0, text.size() - 1));
            draft.base(file);
            if (isWhole) draft.baseComplete();
            draft.change(start, 0, "!");
            const auto read = readJournal(draft.bytes, isWhole ? FileReader(noFile) : fileWith(file));
            EXPECT_EQ(read.fault, JournalFault::none);
            EXPECT_EQ(read.text, text);
            EXPECT_EQ(read.isWhole, isWhole);
            EXPECT_EQ(readJournal(draft.bytes, isWhole ? noFile : fileWith(file + "?")).fault,
                      isWhole ? JournalFault::none : JournalFault::fileChanged);
        }
    }
}

TEST(JournalFormat, WhatIsCutAnywhereGivesAnEarlierTextOrNone) {
    const Everything draft;
    std::size_t valid = 0;
    for (std::size_t length = 0; length <= draft.bytes.size(); ++length) {
        const auto read = readJournal(draft.bytes.substr(0, length), fileWith("one two"));
        EXPECT_GE(read.validLength, valid) << length;
        EXPECT_LE(read.validLength, length);
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
        EXPECT_EQ(readJournal(goesOn.bytes, fileWith("one two")).text, "+" + read.text) << length;
    }
    const auto whole = readJournal(draft.bytes, noFile);
    EXPECT_EQ(whole.validLength, draft.bytes.size());
    EXPECT_EQ(whole.text, "z");
    EXPECT_EQ(whole.save, (SaveMark{"/home/a.htm", Encoding::utf8, hashOf("z")}));
}

TEST(JournalFormat, AMarkOfASaveLastsUntilItIsOver) {
    Draft draft(untitled);
    EXPECT_EQ(readJournal(draft.bytes, noFile).fault, JournalFault::noText);
    for (const auto& [step, marked] : std::vector<std::pair<std::function<void()>, std::string>>{
             {[&] { draft.snapshot("text"); }, ""},
             {[&] { draft.beginSave("/a"); }, "/a"},
             {[&] { draft.change(0, 0, "x"); }, "/a"},  // the file is no better for what was typed since
             {[&] { draft.snapshot("anew"); }, "/a"},
             {[&] { draft.beginSave("/b"); }, "/b"},
             {[&] { draft.saveOver(); }, ""},
         }) {
        step();
        const auto read = readJournal(draft.bytes, noFile);
        EXPECT_EQ(read.save ? read.save->path : "", marked) << draft.text;
        EXPECT_EQ(seemingLength(draft.bytes), read.text.size());
    }
}

TEST(JournalFormat, DamageNeverGivesATextThatWasNotThere) {
    const Everything draft;
    std::mt19937 random(11);
    for (int round = 0; round < 2'000; ++round) {
        std::string bytes = draft.bytes;
        bytes[random() % bytes.size()] ^= static_cast<char>(1U << random() % 8);
        const auto flipped = readJournal(bytes, fileWith("one two"));
        EXPECT_TRUE(flipped.fault != JournalFault::none || draft.texts.contains(flipped.text)) << flipped.text;

        std::generate(bytes.begin() + (round % 2 == 0 ? 0 : 16), bytes.end(), [&] { return char(random()); });
        EXPECT_NE(readJournal(bytes, fileWith("one two")).fault, JournalFault::none);
        seemingLength(bytes);
    }
}

/// Each row spoils the last one of three records, a change from "text" to "xtext".
TEST(JournalFormat, ARecordThatDoesNotFitEndsTheReadingBeforeIt) {
    struct Row {
        const char* what;
        JournalRecord (*record)(const ContentHash& previous);
    };
    for (const auto& [what, record] : {
             Row{"joined to another one", [](auto&) { return snapshotRecord({}, "other"); }},
             Row{"in front of the text",
                 [](auto& previous) {
                     return changeRecord(previous, {-1, 0, 1}, "y", 6);
                 }},
             Row{"behind the text",
                 [](auto& previous) {
                     return changeRecord(previous, {6, 0, 1}, "y", 6);
                 }},
             Row{"more than there is",
                 [](auto& previous) {
                     return changeRecord(previous, {1, 5, 0}, "", 0);
                 }},
             Row{"another length",
                 [](auto& previous) {
                     return changeRecord(previous, {0, 0, 1}, "y", 7);
                 }},
             Row{"a file behind a text", [](auto& previous) { return basePortionRecord(previous, "y"); }},
             Row{"its end", [](auto& previous) { return baseCompleteRecord(previous); }},
             Row{"a second header",
                 [](auto& previous) {
                     auto header = headerRecord(untitled);
                     return header.check = previous, header.head.erase(0, 16), header;
                 }},
             Row{"a length beyond all files",
                 [](auto& previous) {
                     auto change = changeRecord(previous, {0, 0, 1}, "y", 6);
                     return change.head[8] = 0x10, change;
                 }},
             Row{"the save of another text",
                 [](auto& previous) {
                     return beingSavedRecord(previous, {"/a", Encoding::utf8, hashOf("other")});
                 }},
         }) {
        SCOPED_TRACE(what);
        Draft draft(untitled);
        draft.snapshot("text");
        draft.change(0, 0, "x");
        const Draft before = draft;
        draft.add(record(draft.check));
        draft.add(snapshotRecord(before.check, "not reached"));
        const auto read = readJournal(draft.bytes, noFile);
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
        EXPECT_EQ(readJournal(bytes, noFile).fault, fault) << version;
        EXPECT_EQ(readJournalHeader(bytes.substr(0, 16)).fault, fault) << version;
    }
}

}  // namespace
}  // namespace kelvor
