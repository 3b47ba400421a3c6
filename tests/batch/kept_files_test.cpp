// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/kept_files.h"

#include <fcntl.h>

#include <algorithm>

#include "batch/put_back.h"
#include "files/paths.h"
#include "files/private_directory.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

const std::string oldBytes = "an old page\n";
const std::string newBytes = "a new and longer page\n";

TEST(BatchRecord, IsReadUpToThePieceThatIsNotWhole) {
    const BatchRun run{"Tool", {{2026, 11, 22}, 9, 5, 7}, {{"a\r\n\xFF", ""}, {"é", "e"}}, 3};
    const KeptFile file{"/x/\xFF\n.html", "/k/1", "/t/temp.$$$", hashOf("old"), hashOf("new")};
    const Names pieces = {recordOf(run), recordOfDirectory("/d"), recordOf(file), recordOf(file)};
    const auto wholeOf = [&](std::string_view bytes) {
        const auto record = readRecord(bytes);
        EXPECT_TRUE(!record || record->run.tool + record->run.changes.at(1).text == "Toolé");
        EXPECT_TRUE(!record || record->files.empty() || record->files.front() == file);
        return record ? 1 + record->directories.size() + record->files.size() : 0;
    };
    std::string bytes;
    for (std::size_t whole = 0; whole < pieces.size(); ++whole) {
        for (std::size_t cut = 0; cut < pieces[whole].size(); ++cut) {
            EXPECT_EQ(wholeOf(bytes + pieces[whole].substr(0, cut)), whole) << cut;
            std::string flipped = pieces[whole];
            flipped[cut] = static_cast<char>(flipped[cut] ^ (1 << cut % 8));
            EXPECT_EQ(wholeOf(bytes + flipped + pieces.back()), whole) << cut;
        }
        bytes += pieces[whole];
    }
    EXPECT_EQ(wholeOf(bytes), 4U);
    EXPECT_EQ(readRecord(bytes)->run.when.second, 7);
}

class Keeping : public testing::Test {
protected:
    /// What one run over the paths says; "" when all have their new bytes.
    std::string change(const Names& paths, const std::string& bytes = newBytes) {
        KeptFiles kept({"Tool", {}, {}}, paths);
        Flusher flusher;
        for (const std::string& path : paths) {
            const Outcome done =
                kept.replace(readForReplacement(path), bytes, temporaries / "temp.$$$", flusher, noStep);
            if (!done) return done.cause();
        }
        return "";
    }
    std::optional<BatchRecord> lastRecord() {
        const auto run = BatchDirectory().latest();
        return run ? std::optional(run->record) : std::nullopt;
    }
    Names putAllBack(std::optional<BatchRecord> record = {}) {
        Names said;
        Flusher flusher;
        if (!record) record = lastRecord();
        auto changed = changedFiles(record.value());
        for (auto file = changed.rbegin(); file != changed.rend(); ++file) {
            const FileLook look = putBack(*file, temporaries / "back.$$$", flusher, noStep);
            said.push_back(look.state == FileState::isOld ? "old" : look.why);
        }
        return said;
    }
    static ino_t inodeOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
        return status.st_ino;
    }

    const ScratchDirectory directory;
    const ScratchDirectory temporaries;
    const ScopedDirectories places{"", "", directory / "state"};
    FakePlatform platform;
};

TEST_F(Keeping, TakesTheFileItselfOrACopyByWhatItIs) {
    const std::function<void()> makeLink = [&] {
        fs::rename(directory / "page", directory / "real");
        fs::create_symlink("real", directory / "page");
    };
    const std::function<void()> makeSecondName = [&] {
        fs::create_hard_link(directory / "page", directory / "second");
    };
    const struct {
        const char* what;
        std::function<void()> prepare;
        int renameFails = 0;
        int linkFails = 0;
        bool isLink = false;
    } rows[] = {
        {.what = "plain", .isLink = true},
        {.what = "link", .prepare = makeLink},
        {.what = "two names", .prepare = makeSecondName},
        {.what = "read-only folder", .renameFails = EACCES},
        {.what = "kept on another disk", .linkFails = EXDEV},
        {.what = "no links", .linkFails = EPERM},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        for (const char* name : {"page", "real", "second"}) fs::remove(directory / name);
        directory.write("page", oldBytes);
        ASSERT_EQ(chmod((directory / "page").c_str(), 0640), 0);
        if (row.prepare) row.prepare();
        const auto inode = inodeOf(directory / "page");
        {
            const auto noRename = failing(&SystemCalls::rename, row.renameFails);
            const auto noLink = failing(&SystemCalls::link, row.linkFails);
            EXPECT_EQ(change({directory / "page"}), "");
        }
        const auto record = lastRecord();
        ASSERT_EQ(record->files.size(), 1U);
        const std::string kept = record->files[0].keptAs.substr(directory.path().size() + 1);
        EXPECT_EQ(directory.read("page") + directory.read(kept), newBytes + oldBytes);
        EXPECT_EQ(inodeOf(record->files[0].keptAs) == inode, row.isLink);

        EXPECT_EQ(putAllBack(), Names{"old"});
        EXPECT_EQ(directory.read("page"), oldBytes);
        EXPECT_EQ(fs::is_symlink(directory / "page"), row.what == std::string_view("link"));
        EXPECT_EQ(fs::status(directory / "page").permissions(), fs::perms{0640});
    }
}

TEST_F(Keeping, RecordsThenKeepsThenReplaces) {
    const std::string page = directory.write("page", oldBytes);
    Names order;
    auto calls = kernelCalls();
    calls.pwrite = [&](int descriptor, const void* bytes, std::size_t size, off_t offset) {
        order.push_back("write " + fileNamePart(pathOf(descriptor)));
        return ::pwrite(descriptor, bytes, size, offset);
    };
    calls.fsync = [&](int descriptor) { return order.push_back("flush " + fileNamePart(pathOf(descriptor))), 0; };
    calls.link = [&](const char* from, const char* to) { return order.push_back("link"), ::link(from, to); };
    calls.rename = [&](const char* from, const char* to) { return order.push_back("rename"), ::rename(from, to); };
    const ScopedSystemCalls scope(calls);
    EXPECT_EQ(change({page}), "");
    EXPECT_EQ(order, (Names{"write record", "flush record", "write record", "write temp.$$$", "flush temp.$$$", "link",
                            "rename"}));
}

TEST_F(Keeping, SaysWhyNothingCanBeKeptAndLeavesTheFileAndTheEarlierRun) {
    const std::string page = directory.write("page", "the first\n");
    ASSERT_EQ(change({page}, oldBytes), "");
    int fired = 0;
    const auto refuse = [&](SystemCalls& calls, const std::string& what, int code) {
        calls.open = [&fired, code, what](const char* path, int flags, mode_t mode) {
            const bool isMeant = (flags & O_CREAT) != 0 && std::string_view(path).ends_with(what);
            return isMeant ? (++fired, errno = code, -1) : ::open(path, flags, mode);
        };
    };
    const std::pair<const char*, std::function<void(SystemCalls&)>> rows[] = {
        {"The disk is full.",  // at the record's first write
         [&](SystemCalls& calls) { calls.pwrite = [&](auto...) { return ++fired, errno = ENOSPC, -1; }; }},
        {"The disk is full.",  // at the copy, where there can be no link
         [&](SystemCalls& calls) {
             calls.link = [](auto...) { return errno = EXDEV, -1; };
             refuse(calls, "/1", ENOSPC);
         }},
        {"The disk is full.",  // at the copy, where the link is of no use
         [&](SystemCalls& calls) {
             calls.rename = [](auto...) { return errno = EXDEV, -1; };
             refuse(calls, "/1", ENOSPC);
         }},
        {"The old files need 12 bytes and the disk has 0 bytes left.",
         [&](SystemCalls& calls) {
             calls.statvfs = [&](const char*, struct statvfs* room) { return ++fired, *room = {}, 0; };
         }},
        {"Permission denied.", [&](SystemCalls& calls) { refuse(calls, "/record", EACCES); }},
    };
    for (const auto& [said, spoil] : rows) {
        auto calls = kernelCalls();
        spoil(calls);
        {
            const ScopedSystemCalls scope(calls);
            EXPECT_EQ(change({page}), said);
        }
        EXPECT_EQ(std::exchange(fired, 0), 1) << "the fault did not come";
        EXPECT_EQ(directory.read("page"), oldBytes);
        EXPECT_EQ(fs::hard_link_count(page), 1U);
        EXPECT_EQ(temporaries.entryCount(), 0U);
    }
    {
        const BatchDirectory held;
        EXPECT_EQ(change({page}), "Another run or another copy of the program is using the kept files.");
    }
    EXPECT_EQ(putAllBack(), Names{"old"});
    EXPECT_EQ(directory.read("page"), "the first\n");
}

TEST_F(Keeping, ThrowsTheEarlierRunAwayWithTheFirstFileWritten) {
    const std::string page = directory.write("page", "1");
    const std::string other = directory.write("other", "1");
    ASSERT_EQ(change({page}, "2"), "");
    const std::string earlier = lastRecord()->files.at(0).keptAs;
    EXPECT_EQ(change({page}, "2"), "") << "the bytes that it has";
    EXPECT_TRUE(fs::exists(earlier));
    {
        const auto noRename = failing(&SystemCalls::rename, EIO);
        EXPECT_NE(errorOf([&] { change({page}, "3"); }), "");
    }
    EXPECT_EQ(lastRecord()->files.at(0).keptAs, earlier) << "none was written";
    fs::remove(temporaries / "temp.$$$");
    EXPECT_EQ(change({page, other, page}, "3"), "");
    EXPECT_FALSE(fs::exists(earlier));
    // One that was killed before it began is none.
    fs::create_directory(directory / "state/batch/99");
    directory.write("state/batch/99/record", "KELV");
    EXPECT_EQ(putAllBack(), (Names{"old", "old"}));
    EXPECT_EQ(directory.read("page") + directory.read("other"), "21");
}

TEST_F(Keeping, StandsBesideTheFilesWhereTheStateIsOnAnotherDisk) {
    const ScratchDirectory elsewhere(memoryDisk());
    if (fs::status(elsewhere.path()).type() == fs::file_type::none) GTEST_SKIP();
    const ScopedDirectories away("", "", elsewhere / "state");
    for (const char* name : {"site", "site/a", "site/ab"}) fs::create_directory(directory / name);
    const Names paths = {directory.write("site/a/page", oldBytes), directory.write("site/ab/page", oldBytes)};
    const auto inode = inodeOf(paths[0]);
    ASSERT_EQ(change(paths), "");
    const auto record = lastRecord();
    const std::string kept = record->files.at(0).keptAs;
    if (!record->directories.empty()) {
        EXPECT_TRUE(kept.starts_with(directory / "site/.kelvor-kept-")) << kept;
        EXPECT_EQ(inodeOf(kept), inode);
        EXPECT_EQ(fs::status(record->directories[0]).permissions(), fs::perms::owner_all);
    } else {
        std::puts("skipped: there is no other disk");
    }
    ASSERT_EQ(change({paths[0]}, "later"), "");
    while (removeSupersededFiles()) continue;
    EXPECT_FALSE(fs::exists(fs::path(kept).parent_path()));
}

TEST_F(Keeping, PutsNothingBackThatSomebodyHasChangedOrThatIsLost) {
    const std::string page = directory.write("page", oldBytes);
    const auto keptAs = [&] { return lastRecord()->files.at(0).keptAs; };
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { directory.write("page", "theirs"); }, "Has been changed since."},
        {[&] { fs::remove(page); }, "File not found."},
        {[&] { fs::permissions(page, fs::perms::owner_read); }, "The file is read-only."},
        {[&] { fs::remove(keptAs()); }, "The old file is not there any more."},
        {[&] { std::ofstream(keptAs()) << "rotten"; }, "The old file is damaged."},
    };
    for (const auto& [spoil, said] : rows) {
        fs::remove(page);
        directory.write("page", oldBytes);
        ASSERT_EQ(change({page}), "");
        spoil();
        const std::string before = directory.read("page");
        EXPECT_EQ(putAllBack(), Names{said});
        EXPECT_EQ(directory.read("page"), before);
    }
}

TEST(HalfWritten, IsWhatHasTheOldOrTheNewByteAtEachPlace) {
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        {"oldold", "newer", "newold", true},  {"oldold", "newer", "newerd", true}, {"ol", "newer", "new", true},
        {"oldold", "newer", "newXld", false}, {"ol", "newer", "n", false},         {"ol", "newer", "newer!", false},
    };
    for (const auto& [before, after, now, is] : rows) EXPECT_EQ(isHalfWritten(now, before, after), is) << now;
}

TEST_F(Keeping, IsTakenBackWhereverTheRunAndTheTakingBackWereStopped) {
    // One file is replaced, the other one written in place.
    const Names paths{directory.write("page", oldBytes), directory.write("linked", oldBytes)};
    fs::create_hard_link(paths[1], directory / "second");
    // Whether the steps were killed, pieces of seven bytes being read and written.
    const auto isKilled = [](int at, const std::function<void()>& steps) {
        Saboteur saboteur{.at = at, .kill = true, .mostBytes = 7};
        return isKilledIn(saboteur, steps);
    };
    const auto expectAllOld = [&] {
        EXPECT_EQ(directory.read("page") + directory.read("linked"), oldBytes + oldBytes);
        for (const char* name : {"temp.$$$", "back.$$$"}) fs::remove(temporaries / name);
    };
    int at = 1;
    for (; isKilled(at, [&] { change(paths); }); ++at) {
        SCOPED_TRACE("killed at call " + std::to_string(at));
        if (lastRecord()) putAllBack();
        expectAllOld();
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(at, 60);
    change(paths);
    for (at = 1; isKilled(at, [&] { putAllBack(); }); ++at) {
        SCOPED_TRACE("taking back killed at call " + std::to_string(at));
        EXPECT_EQ(putAllBack(), (Names{"old", "old"}));
        expectAllOld();
        ASSERT_FALSE(HasFailure());
        change(paths);
    }
    EXPECT_GT(at, 60);
    // Or the disk was full from there on, till the next try.
    for (at = 1;; ++at) {
        SCOPED_TRACE("full at call " + std::to_string(at));
        change(paths);
        const auto record = lastRecord();
        Saboteur saboteur{.at = at, .fromThenOn = true, .code = ENOSPC, .mostBytes = 7};
        isKilledIn(saboteur, [&] { putAllBack(record); });
        if (saboteur.firstHit.empty()) break;
        EXPECT_EQ(putAllBack(record), (Names{"old", "old"}));
        expectAllOld();
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(at, 60);
}

}  // namespace
}  // namespace kelvor
