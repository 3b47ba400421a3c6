// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/file_rewrite.h"

#include <fcntl.h>
#include <sys/xattr.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "base/error.h"
#include "batch/line_rewrite.h"
#include "files/file_replace.h"
#include "tests/kit/faults.h"
#include "text/text_encoding.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

const std::string oldText = "an old line\r\n";
const std::string newText = "a new, longer line\r\n";
const FindItem renewal = {"an old", "a new, longer"};

/// Keeps nothing: where and how old files are kept is another matter.
struct Unkept : KeptFiles {
    Unkept() : KeptFiles({}, {}) { stop(); }
} unkept;

struct stat statusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status;
}

/// What a rewrite said: nothing when it said that the file is written.
std::string outcomeOf(
    const std::string& path, const std::string& temporary, const FindItem& item = renewal,
    const std::function<void()>& step = [] {}) {
    try {
        clearTemporary(temporary);
        FileRewriter(LineRewrite({item}, true), unkept).rewrite(path, temporary, step);
        return "";
    } catch (const Error& error) {
        return error.description();
    }
}

struct FileRewrite : testing::Test {
    const ScratchDirectory directory;
    const ScratchDirectory temporaries;
    const std::string temporary = temporaries / "temp.$$$";
    /// A name is the bytes that it is.
    const std::string name = "-rf $(x) \"it's\"\n%41#?\xFF\xE9.html";
    const std::string page = directory.write(name, oldText);

    std::string text() const { return directory.read(name); }

    /// The page has its new text, whether as the same file or as another one.
    void expectRewritten(bool sameFile) {
        const auto inode = statusOf(page).st_ino;
        EXPECT_EQ(outcomeOf(page, temporary), "");
        EXPECT_EQ(text(), newText);
        EXPECT_EQ(statusOf(page).st_ino == inode, sameFile);
        EXPECT_EQ(temporaries.entryCount(), 0U);
    }
    /// The page is left as it is, in all.
    void expectKept(const std::string& said) {
        const auto before = statusOf(page);
        EXPECT_EQ(outcomeOf(page, temporary), said);
        EXPECT_EQ(text(), oldText);
        EXPECT_EQ(statusOf(page).st_ino, before.st_ino);
        EXPECT_EQ(statusOf(page).st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    }
};

TEST_F(FileRewrite, FindsCafeInEveryEncodingAndKeepsIt) {
    FileRewriter rewriter(LineRewrite({{"é", "e"}}, true), unkept);
    for (const auto encoding : {Encoding::utf8, Encoding::utf8WithMark, Encoding::utf16LittleEndian,
                                Encoding::utf16BigEndian, Encoding::windows1252}) {
        const std::string before = encode("à café\r\n", encoding).value();
        directory.write(name, before);
        rewriter.rewrite(page, temporary, [] {});
        EXPECT_EQ(text(), encode("à cafe\r\n", encoding).value());
    }
    directory.write(name, "caf\xE9\r\n");
    EXPECT_EQ(outcomeOf(page, temporary, {"é", "→"}), "The file's encoding lacks a character of the new text: " + page);
    EXPECT_EQ(text(), "caf\xE9\r\n");
}

TEST_F(FileRewrite, KeepsModeOwnerAndAttributesButNotLentRights) {
    // Only root can give a file away.
    const bool root = geteuid() == 0;
    ASSERT_EQ(chown(page.c_str(), root ? nobody : -1, root ? 12345 : -1), 0);
    ASSERT_EQ(chmod(page.c_str(), 06750), 0);
    ASSERT_EQ(setxattr(page.c_str(), "user.note", "kept", 4, 0), 0) << "no attributes on this disk";
    const auto before = statusOf(page);
    expectRewritten(false);
    const auto after = statusOf(page);
    EXPECT_EQ(after.st_mode & 07777U, 0750U);
    EXPECT_TRUE(after.st_uid == before.st_uid && after.st_gid == before.st_gid);
    char note[8] = {};
    EXPECT_EQ(std::string_view(note, getxattr(page.c_str(), "user.note", note, sizeof note) == 4 ? 4 : 0), "kept");
}

TEST_F(FileRewrite, KeepsWhatMayNotBeWritten) {
    ASSERT_EQ(chmod(page.c_str(), 0444), 0);
    expectKept("The file is read-only: " + page);
    ASSERT_EQ(chmod(page.c_str(), 0644), 0);
    const auto readOnlyDisk = failing(&SystemCalls::open, EROFS);
    expectKept("The disk is read-only: " + page);
}

TEST_F(FileRewrite, WritesInPlaceWhereNoOtherFileMayTakeThePlace) {
    for (const int code : {EXDEV, EACCES, EPERM, EROFS, EBUSY}) {
        directory.write(name, oldText);
        const auto noRename = failing(&SystemCalls::rename, code);
        expectRewritten(true);
    }
}

TEST_F(FileRewrite, KeepsLinksOfBothKinds) {
    fs::create_hard_link(page, directory / "second");
    expectRewritten(true);
    EXPECT_EQ(directory.read("second"), newText);
    fs::remove(directory / "second");

    fs::create_symlink(name, directory / "link");
    fs::create_symlink("link", directory / "chain");
    directory.write(name, oldText);
    EXPECT_EQ(outcomeOf(directory / "chain", temporary), "");
    EXPECT_TRUE(fs::is_symlink(directory / "chain") && fs::is_symlink(directory / "link"));
    EXPECT_EQ(text(), newText);

    fs::create_symlink("nowhere", directory / "dangling");
    EXPECT_EQ(outcomeOf(directory / "dangling", temporary), "File not found: " + directory / "dangling");
    EXPECT_FALSE(fs::exists(directory / "nowhere"));
}

TEST_F(FileRewrite, TellsWhichDiskIsFullAndKeepsTheNewTextWhenItIsThePages) {
    ASSERT_EQ(chown(page.c_str(), geteuid() == 0 ? nobody : -1, -1), 0);
    {
        const auto full = failing(&SystemCalls::pwrite, ENOSPC);
        expectKept("The disk is full: " + temporary + ", which was to become " + page);
    }
    {
        const auto otherDisk = failing(&SystemCalls::rename, EXDEV);
        const auto full = failing(&SystemCalls::fallocate, ENOSPC);
        EXPECT_EQ(outcomeOf(page, temporary), "The disk is full: " + page);
        EXPECT_EQ(text(), oldText);
        EXPECT_EQ(temporaries.read("temp.$$$"), newText) << "the new text is lost";
    }
    // What is left does not stand in the way.
    expectRewritten(false);
}

TEST_F(FileRewrite, LeavesWhatAnotherProgramWroteMeanwhile) {
    const std::string theirs(oldText.size(), 't');
    const std::function<void()> changes[] = {
        [&] {  // the same size, and the time set back
            const timespec times[] = {statusOf(page).st_atim, statusOf(page).st_mtim};
            directory.write(name, theirs);
            ASSERT_EQ(utimensat(AT_FDCWD, page.c_str(), times, 0), 0);
        },
        [&] { fs::rename(directory.write("other", theirs), page); },
    };
    for (const auto& change : changes) {
        directory.write(name, oldText);
        // The clock of the disk ticks coarsely.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_EQ(outcomeOf(page, temporary, renewal, change),
                  "Another program has changed the file meanwhile: " + page);
        EXPECT_EQ(text(), theirs);
    }
}

TEST_F(FileRewrite, HearsTheUserWhileTheDiskIsBusyAndLeavesOnlyBehindTheFlush) {
    std::atomic<bool> busy = false;
    std::atomic<int> heard = 0;
    auto calls = kernelCalls();
    calls.fsync = [&](int) {
        constexpr auto moment = std::chrono::milliseconds(5);
        busy = true;
        for (int moments = 0; heard < 5 && moments < 12'000; ++moments) std::this_thread::sleep_for(moment);
        std::this_thread::sleep_for(4 * moment);  // longer than it takes to leave without waiting for this
        busy = false;
        return 0;
    };
    const ScopedSystemCalls scope(std::move(calls));
    FileRewriter rewriter(LineRewrite({renewal}, true), unkept);
    const auto stop = [&] {
        if (busy && ++heard == 5) throw Error(error_number::pathAccess, "stopped");
    };
    EXPECT_THROW(rewriter.rewrite(page, temporary, stop), Error);
    EXPECT_FALSE(busy) << "the file is closed under the flush";
    EXPECT_EQ(text(), oldText);
    fs::remove(temporary);
    rewriter.rewrite(page, temporary, [] {});
    EXPECT_EQ(text(), newText);
}

TEST_F(FileRewrite, TouchesNothingThatStandsInTheTemporaryFilesPlace) {
    const auto victim = directory.write("victim", "the victim's");
    const char* place = temporary.c_str();
    const std::function<int()> plants[] = {
        [&] { return symlink(victim.c_str(), place); },
        [&] { return link(victim.c_str(), place); },
        [&] { return chown(temporaries.write("temp.$$$", "").c_str(), 1, 1); },
    };
    for (const auto& plant : plants) {
        fs::remove(temporary);
        if (plant() != 0) GTEST_SKIP() << "only root gives a file away";
        const auto before = statusOf(temporary);
        EXPECT_EQ(outcomeOf(page, temporary), "Something else stands in the temporary file's place: " + temporary);
        EXPECT_THROW(FileRewriter(LineRewrite({}, true), unkept).rewrite(page, temporary, [] {}), Error);
        EXPECT_EQ(statusOf(temporary).st_ino, before.st_ino);
        EXPECT_EQ(directory.read("victim") + text(), "the victim's" + oldText);
    }
}

/// One rewrite with a fault at a call, in place or not. False when the call was not reached any more.
bool rewriteWithFault(bool otherDisk, Saboteur saboteur) {
    SCOPED_TRACE((otherDisk ? "other disk, call " : "same disk, call ") + std::to_string(saboteur.at) + " " +
                 std::strerror(saboteur.code));
    const ScratchDirectory directory;
    const ScratchDirectory temporaries(otherDisk ? memoryDisk() : testing::TempDir());
    const auto page = directory.write("page.html", oldText);
    EXPECT_EQ(chmod(page.c_str(), 0640), 0);
    std::string said;
    const bool killed = isKilledIn(saboteur, [&] { said = outcomeOf(page, temporaries / "temp.$$$"); });
    EXPECT_EQ(directory.entryCount(), 1U);
    EXPECT_EQ(statusOf(page).st_mode & 07777U, 0640U);
    const auto bytes = directory.read("page.html");
    if (killed) {
        // What is written in place may be half done, and then the temporary file has all of it.
        const bool mendable = otherDisk && temporaries.read("temp.$$$") == newText;
        EXPECT_TRUE(bytes == oldText || bytes == newText || mendable) << bytes;
    } else {
        const bool damaged = said.find("damaged") != std::string::npos;
        EXPECT_TRUE(damaged || bytes == (said.empty() ? newText : oldText)) << said;
    }
    return killed || !saboteur.firstHit.empty();
}

TEST(FileRewriteFaults, LeaveTheOldOrTheNewTextWhicheverCallFails) {
    const bool oneDisk = statusOf(memoryDisk()).st_dev == statusOf(testing::TempDir()).st_dev;
    if (oneDisk) std::puts("skipped: there is no other disk");
    for (const bool otherDisk : {false, !oneDisk}) {
        for (const int code : {0, EIO, ENOSPC, EACCES, EXDEV, EINTR}) {
            int at = 1;
            // The code 0 is a kill. Texts are read and written in pieces.
            while (rewriteWithFault(otherDisk, {.at = at, .code = code, .kill = code == 0, .mostBytes = 7})) {
                ASSERT_LT(++at, 100) << "the rewrite does not end";
                ASSERT_FALSE(testing::Test::HasFailure());
            }
            EXPECT_GT(at, 10);
        }
    }
}

}  // namespace
}  // namespace kelvor
