// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal_list.h"

#include <fcntl.h>
#include <sys/file.h>

#include <filesystem>

#include "base/error.h"
#include "files/places.h"
#include "tests/kit/left_journal.h"
#include "tests/kit/scratch_directory.h"

namespace kelvor {
namespace {

class JournalList : public testing::Test {
protected:
    JournalList() { std::filesystem::create_directory(files_ / "journals"); }

    void leave(const std::string& name, const std::string& bytes) { files_.write("journals/" + name, bytes); }
    static std::string journal(const std::string& name) {
        return journalBytes({.name = name, .isUntitled = true}, "text");
    }
    /// What is found, each as its name or its fault, and how many are not looked at.
    static std::string found(std::size_t most = 500) {
        std::string names;
        const LeftJournals left = findLeftJournals(most);
        for (const auto& one : left.newest) {
            const char* const faults[] = {"", "unreadable", "newer"};
            names += one->header.name + faults[static_cast<std::size_t>(one->fault)] + " ";
        }
        return names + std::to_string(left.others);
    }

    ScratchDirectory files_;
    ScopedDirectories inForce_{"", "", files_.path()};
};

TEST_F(JournalList, HasWhatIsLeftTheLastOneFirst) {
    std::string newer = journal("x");
    newer[newer.find('\n') + 1] = '\x7F';
    leave("1.journal", journal("a\xFF"));
    leave("2.journal", journal("b").substr(0, 30));
    leave("3.journal", "\n");
    leave("4.journal", newer);
    leave("5.journal", std::string(20'000, '\xA5'));
    leave("6.journal", journal("c") + "torn");
    leave("6.other", journal("no journal"));
    leave("7.journal", "");
    leave("7.journal-part", journal("no journal yet"));
    leave("8.journal", headerRecord({.name = "nothing typed"}).head);
    std::filesystem::create_directory(files_ / "journals/9.journal");
    std::filesystem::create_symlink(files_.write("elsewhere", journal("of a link")), files_ / "journals/99.journal");
    EXPECT_EQ(found(), "c unreadable newer unreadable unreadable a\xFF 0");
    EXPECT_EQ(found(4), "c unreadable 4");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(files_ / "journals"), {}), 9)
        << "what never held a text has gone";
}

TEST_F(JournalList, LeavesAloneWhatSomebodyHolds) {
    leave("1.journal", journal("free"));
    leave("2.journal", journal("held"));
    {
        const OpenFile other(open((files_ / "journals/2.journal").c_str(), O_RDWR | O_CLOEXEC));
        ASSERT_EQ(flock(other.descriptor(), LOCK_EX | LOCK_NB), 0);
        EXPECT_EQ(found(), "free 0");
    }
    const LeftJournals shown = findLeftJournals();
    EXPECT_EQ(shown.newest.size(), 2U);
    EXPECT_EQ(found(), "0") << "what is in a list is in no other one";
    discardLeftJournal(*shown.newest.front());
    EXPECT_FALSE(std::filesystem::exists(files_ / "journals/2.journal"));
}

TEST_F(JournalList, IsEmptyWithoutADirectory) {
    std::filesystem::remove(files_ / "journals");
    EXPECT_EQ(found(), "0");
    files_.write("journals", "a file");
    EXPECT_EQ(found(), "0");
}

TEST_F(JournalList, ReadsATextThatRestsOnItsFileOnlyWhenThatIsTheSame) {
    const std::string path = files_.write("a.htm", "on the disk");
    const JournalHeader header{.name = path, .stamp = readStamp(path)};
    const JournalRecord begin = headerRecord(header);
    const JournalRecord typed = changeRecord(begin.check, {0, 2, 6}, "behind", 15);
    leave("1.journal", begin.head + typed.head + std::string(typed.body));
    for (const auto& [onDisk, fault] :
         {std::pair("on the disk", JournalFault::none), {"another", JournalFault::fileChanged}}) {
        files_.write("a.htm", onDisk);
        const JournalContent content = readLeftJournal(*findLeftJournals().newest.front());
        EXPECT_EQ(content.fault, fault);
        EXPECT_EQ(content.text, fault == JournalFault::none ? "behind the disk" : "");
    }
}

TEST_F(JournalList, AFileThatTheKilledSaveHasWrittenWholeIsNoStrangersWork) {
    const std::string path = files_.write("a.htm", "old");
    JournalContent content{.header = {.name = path, .stamp = readStamp(path)}, .text = "new"};
    for (const std::string& target : {path, files_ / "b.htm"}) {
        content.save = SaveMark{.path = target};
        for (const std::string onDisk : {"new", "neold"}) {
            files_.write("a.htm", onDisk);
            EXPECT_EQ(fileSeen(content)->hash, hashOf(target == path && onDisk == "new" ? "new" : "old"));
        }
    }
}

}  // namespace
}  // namespace kelvor
