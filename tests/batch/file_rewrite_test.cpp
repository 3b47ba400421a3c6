#include "batch/file_rewrite.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/xattr.h>

#include <chrono>
#include <random>
#include <thread>

#include "batch/line_rewrite.h"
#include "platform/error.h"
#include "platform/file_replace.h"
#include "tests/platform/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

const std::string oldText = "an old line\r\n";
const std::string newText = "a new, longer line\r\n";

struct stat statusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status;
}

/// What a rewrite said: nothing when it said that the file is written.
std::string outcomeOf(
    const std::string& path, const std::string& temporary, const std::function<void()>& step = [] {},
    const std::vector<FindItem>& items = {{"an old", "a new, longer"}}) {
    try {
        clearTemporary(temporary);
        rewriteFile(path, LineRewrite(items, true), temporary, step);
        return "";
    } catch (const Error& error) {
        return error.description();
    }
}

/// Makes a file one that nothing may change, or an ordinary one again; false when the disk knows no such thing.
bool setImmutable(const std::string& path, bool immutable) {
    const OpenFile file(open(path.c_str(), O_RDONLY));
    int flags = 0;
    if (ioctl(file.descriptor(), FS_IOC_GETFLAGS, &flags) != 0) return false;
    flags = immutable ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
    return ioctl(file.descriptor(), FS_IOC_SETFLAGS, &flags) == 0;
}

struct FileRewrite : testing::Test {
    const ScratchDirectory directory;
    const ScratchDirectory temporaries;
    const std::string temporary = temporaries / "temp.$$$";
    const std::string page = directory.write("page.html", oldText);

    /// The page has its new text, whether as the same file or as another one.
    void expectRewritten(bool sameFile) {
        const auto inode = statusOf(page).st_ino;
        EXPECT_EQ(outcomeOf(page, temporary), "");
        EXPECT_EQ(directory.read("page.html"), newText);
        EXPECT_EQ(statusOf(page).st_ino == inode, sameFile);
        EXPECT_EQ(temporaries.entryCount(), 0U);
    }
    /// The page is left as it is, in all.
    void expectKept(const std::string& said) {
        const auto before = statusOf(page);
        EXPECT_EQ(outcomeOf(page, temporary), said);
        EXPECT_EQ(directory.read("page.html"), oldText);
        const auto after = statusOf(page);
        EXPECT_EQ(after.st_ino, before.st_ino);
        EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    }
};

TEST_F(FileRewrite, FindsCafeInEveryEncodingAndKeepsIt) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> files[] = {
        {"caf\xC3\xA9\n"s, "cafe\n"s},
        {"\xEF\xBB\xBF"
         "caf\xC3\xA9\r\n"s,
         "\xEF\xBB\xBF"
         "cafe\r\n"s},
        {"caf\xE9\r\n"s, "cafe\r\n"s},
        {"\xFF\xFE"
         "c\0a\0f\0\xE9\0\n\0"s,
         "\xFF\xFE"
         "c\0a\0f\0e\0\n\0"s},
        {"\xFE\xFF\0c\0a\0f\0\xE9"s, "\xFE\xFF\0c\0a\0f\0e\0\r\0\n"s},
    };
    for (const auto& [before, after] : files) {
        directory.write("page.html", before);
        EXPECT_EQ(outcomeOf(page, temporary, [] {}, {{"é", "e"}}), "");
        EXPECT_EQ(directory.read("page.html"), after);
    }
    directory.write("page.html", "caf\xE9\r\n");
    EXPECT_EQ(outcomeOf(page, temporary, [] {}, {{"é", "→"}}),
              "The file's encoding lacks a character of the new text: " + page);
    EXPECT_EQ(directory.read("page.html"), "caf\xE9\r\n");
}

TEST_F(FileRewrite, KeepsModeOwnerAndAttributesButNotLentRights) {
    const bool root = geteuid() == 0;
    // Only root can give a file away.
    ASSERT_EQ(chown(page.c_str(), root ? 65534 : -1, root ? 12345 : -1), 0);
    ASSERT_EQ(chmod(page.c_str(), 06750), 0);
    ASSERT_EQ(setxattr(page.c_str(), "user.note", "kept", 4, 0), 0) << "no attributes on this disk";
    const auto before = statusOf(page);
    expectRewritten(false);
    const auto after = statusOf(page);
    EXPECT_EQ(after.st_mode & 07777U, 0750U);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    char note[8] = {};
    EXPECT_EQ(getxattr(page.c_str(), "user.note", note, sizeof note), 4);
    EXPECT_STREQ(note, "kept");

    // What cannot be handed over stays with the file itself.
    auto calls = kernelCalls();
    calls.fsetxattr = [](int, const char*, const void*, std::size_t, int) {
        errno = EPERM;
        return -1;
    };
    const ScopedSystemCalls scope(calls);
    directory.write("page.html", oldText);
    expectRewritten(true);
}

TEST_F(FileRewrite, KeepsWhatMayNotBeWritten) {
    const char* place = directory.path().c_str();
    const auto isWritable = [this] { return OpenFile(open(page.c_str(), O_WRONLY)).descriptor() >= 0; };
    ASSERT_EQ(chmod(page.c_str(), 0444), 0);
    expectKept("The file is read-only: " + page);
    ASSERT_EQ(chmod(place, 0777), 0);
    const int status = asOrdinaryUser([&] {
        ASSERT_FALSE(isWritable()) << "the fault is not there";
        EXPECT_EQ(outcomeOf(page, ScratchDirectory() / "temp.$$$"), "The file is read-only: " + page);
    });
    EXPECT_EQ(status, 0);
    ASSERT_EQ(chmod(page.c_str(), 0644), 0);

    if (setImmutable(page, true)) {
        EXPECT_FALSE(isWritable()) << "the fault is not there";
        expectKept("Permission denied: " + page);
        setImmutable(page, false);
    } else {
        std::puts("skipped: this disk or user makes no file immutable");
    }
    if (mount(place, place, nullptr, MS_BIND, nullptr) != 0) GTEST_SKIP() << "nothing can be mounted here";
    mount(nullptr, place, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr);
    EXPECT_TRUE(!isWritable() && errno == EROFS) << "the fault is not there";
    expectKept("The disk is read-only: " + page);
    umount2(place, MNT_DETACH);
}

TEST_F(FileRewrite, WritesInPlaceInADirectoryThatMayNotBeWritten) {
    const auto takesFiles = [this] {
        return OpenFile(open((directory / "other").c_str(), O_WRONLY | O_CREAT, 0600)).descriptor() >= 0;
    };
    ASSERT_EQ(chmod(page.c_str(), 0666), 0);
    ASSERT_EQ(chmod(directory.path().c_str(), 0555), 0);
    const auto inode = statusOf(page).st_ino;
    const int status = asOrdinaryUser([&] {
        ASSERT_FALSE(takesFiles()) << "the fault is not there";
        EXPECT_EQ(outcomeOf(page, ScratchDirectory() / "temp.$$$"), "");
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(directory.read("page.html"), newText);
    EXPECT_EQ(statusOf(page).st_ino, inode);

    directory.write("page.html", oldText);
    if (!setImmutable(directory.path(), true)) GTEST_SKIP() << "this disk or user makes no directory immutable";
    EXPECT_FALSE(takesFiles()) << "the fault is not there";
    expectRewritten(true);
    setImmutable(directory.path(), false);
}

TEST_F(FileRewrite, KeepsLinksOfBothKinds) {
    fs::create_symlink("page.html", directory / "link");
    fs::create_symlink("link", directory / "chain");
    EXPECT_EQ(outcomeOf(directory / "chain", temporary), "");
    EXPECT_EQ(fs::read_symlink(directory / "chain"), "link");
    EXPECT_EQ(fs::read_symlink(directory / "link"), "page.html");
    EXPECT_EQ(directory.read("page.html"), newText);

    directory.write("page.html", oldText);
    fs::create_hard_link(page, directory / "second");
    expectRewritten(true);
    EXPECT_EQ(directory.read("second"), newText);

    fs::create_symlink("nowhere", directory / "dangling");
    fs::create_symlink("loop", directory / "loop");
    EXPECT_EQ(outcomeOf(directory / "dangling", temporary), "File not found: " + directory / "dangling");
    EXPECT_EQ(outcomeOf(directory / "loop", temporary), "The links lead in a circle: " + directory / "loop");
    EXPECT_EQ(outcomeOf(directory.path(), temporary), "This is a folder, not a file: " + directory.path());
    EXPECT_FALSE(fs::exists(directory / "nowhere"));
}

TEST_F(FileRewrite, GoesFromDiskToDiskAndLeavesOldTextOnAFullOne) {
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "no disk can be mounted here: " << disk.failure();
    const auto& small = disk.directory();
    const auto smallPage = small.write("page.html", oldText);
    EXPECT_TRUE(rename(page.c_str(), smallPage.c_str()) != 0 && errno == EXDEV) << "these are one disk";
    const auto inode = statusOf(smallPage).st_ino;
    EXPECT_EQ(outcomeOf(smallPage, temporary), "");
    EXPECT_EQ(small.read("page.html"), newText);
    EXPECT_EQ(statusOf(smallPage).st_ino, inode);
    EXPECT_EQ(temporaries.entryCount(), 0U);

    small.write("page.html", oldText);
    small.write("filler", std::string(1 << 20, 'f'));
    ASSERT_LT(small.read("filler").size(), 1U << 20) << "the disk is not full";
    const std::vector<FindItem> growing = {{"old", std::string(9000, 'N')}};
    EXPECT_EQ(outcomeOf(
                  smallPage, temporary, [] {}, growing),
              "Disk full: " + smallPage);
    EXPECT_EQ(small.read("page.html"), oldText);
    EXPECT_GT(temporaries.read("temp.$$$").size(), 9000U) << "the new text is lost";

    // A full temporary directory: told with both names, and again writable for the next file.
    EXPECT_EQ(outcomeOf(
                  page, small / "temp.$$$", [] {}, growing),
              "Disk full: " + small / "temp.$$$" + ", which was to become " + page);
    EXPECT_EQ(directory.read("page.html"), oldText);
    fs::remove(small / "filler");
    EXPECT_EQ(outcomeOf(page, small / "temp.$$$"), "");
    EXPECT_EQ(directory.read("page.html"), newText);
}

TEST_F(FileRewrite, LeavesWhatAnotherProgramWroteMeanwhile) {
    const std::string theirs(oldText.size(), 't');
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"same size, time set back",
         [&] {
             const auto before = statusOf(page);
             directory.write("page.html", theirs);
             const timespec times[] = {before.st_atim, before.st_mtim};
             ASSERT_EQ(utimensat(AT_FDCWD, page.c_str(), times, 0), 0);
         }},
        {"another file", [&] { fs::rename(directory.write("other", theirs), page); }},
        {"gone", [&] { fs::remove(page); }},
    };
    for (const auto& [name, change] : changes) {
        directory.write("page.html", oldText);
        // The clock of the disk ticks coarsely.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        bool changed = false;
        const auto said = outcomeOf(page, temporary, [&, &act = change] {
            if (!std::exchange(changed, true)) act();
        });
        EXPECT_NE(said, "") << name;
        EXPECT_EQ(directory.read("page.html"), fs::exists(page) ? theirs : "") << name;
    }
}

TEST_F(FileRewrite, TouchesNothingThatStandsInTheTemporaryFilesPlace) {
    const auto victim = directory.write("victim", "the victim's");
    const char* place = temporary.c_str();
    const std::pair<const char*, std::function<bool()>> plants[] = {
        {"symbolic link", [&] { return symlink(victim.c_str(), place) == 0; }},
        {"hard link", [&] { return link(victim.c_str(), place) == 0; }},
        {"pipe", [&] { return mkfifo(place, 0600) == 0; }},
        {"directory", [&] { return mkdir(place, 0700) == 0; }},
        {"foreign file", [&] { return chown(temporaries.write("temp.$$$", "").c_str(), 65534, 65534) == 0; }},
    };
    for (const auto& [name, plant] : plants) {
        if (!plant()) {
            std::printf("skipped, as it cannot be made here: %s\n", name);
            fs::remove(temporary);
            continue;
        }
        const auto before = statusOf(temporary);
        EXPECT_EQ(outcomeOf(page, temporary), "Something else stands in the temporary file's place: " + temporary);
        EXPECT_THROW(rewriteFile(page, LineRewrite({}, true), temporary, [] {}), Error) << name;
        EXPECT_EQ(statusOf(temporary).st_ino, before.st_ino) << name;
        EXPECT_EQ(directory.read("victim") + directory.read("page.html"), "the victim's" + oldText) << name;
        fs::remove(temporary);
    }
}

TEST_F(FileRewrite, TakesNamesAsTheBytesTheyAre) {
    const std::string longest(255, 'n');
    for (const std::string name :
         {"-rf", "--help", "$(x)", "it's \"a\"", "two\nlines", " ~ ", "%41#?", "bad\xFF\xE9.html", longest.c_str()}) {
        const auto path = directory.write(name, oldText);
        const auto count = directory.entryCount();
        EXPECT_EQ(outcomeOf(path, temporary), "") << name;
        EXPECT_EQ(directory.read(name), newText) << name;
        EXPECT_EQ(directory.entryCount(), count) << name;
    }
    EXPECT_EQ(outcomeOf(directory / (longest + "n"), temporary).find("The file name is too long"), 0U);
}

struct Way {
    const char* name;
    bool otherDisk;
    bool hardLink;
};
constexpr Way ways[] = {{"renamed", false, false}, {"from another disk", true, false}, {"two names", false, true}};

/// One rewrite with a fault at a call. False when the call was not reached any more.
bool rewriteWithFault(const Way& way, Saboteur saboteur) {
    SCOPED_TRACE(std::string(way.name) + ": call " + std::to_string(saboteur.at) + " " + std::strerror(saboteur.code));
    const ScratchDirectory directory;
    const ScratchDirectory temporaries(way.otherDisk ? memoryDisk() : testing::TempDir());
    const auto temporary = temporaries / "temp.$$$";
    const auto page = directory.write("page.html", oldText);
    if (way.hardLink) fs::create_hard_link(page, directory / "second");
    const auto filesBefore = openFileCount();
    std::string said;
    const auto rewrite = [&] {
        const ScopedSystemCalls scope(saboteur.calls());
        said = outcomeOf(page, temporary);
        return 0;
    };
    const bool killed = saboteur.kill && WIFSIGNALED(inChild(rewrite));
    if (!saboteur.kill) rewrite();
    EXPECT_EQ(openFileCount(), filesBefore);
    EXPECT_EQ(directory.entryCount(), way.hardLink ? 2U : 1U);
    const auto bytes = directory.read("page.html");
    if (saboteur.kill) {
        // What is written in place may be half done, and then the temporary file has all of it.
        const bool inPlace = way.otherDisk || way.hardLink;
        const bool mendable = inPlace && temporaries.read("temp.$$$") == newText;
        EXPECT_TRUE(bytes == newText || (killed && (bytes == oldText || mendable)));
    } else {
        const bool damaged = said.find("damaged") != std::string::npos;
        EXPECT_TRUE(damaged || bytes == (said.empty() ? newText : oldText)) << said;
    }
    return killed || !saboteur.firstHit.empty();
}

TEST(FileRewriteFaults, LeaveTheOldOrTheNewTextWhicheverCallFails) {
    if (statusOf(memoryDisk()).st_dev == statusOf(testing::TempDir()).st_dev) GTEST_SKIP() << "there is one disk only";
    for (const Way& way : ways) {
        for (const int code : {0, EIO, ENOSPC, EACCES, EXDEV, EINTR}) {
            int at = 1;
            // The code 0 is a kill.
            while (rewriteWithFault(way, {.at = at, .code = code, .kill = code == 0})) {
                ASSERT_LT(++at, 100) << "the rewrite does not end";
                ASSERT_FALSE(testing::Test::HasFailure());
            }
            EXPECT_GT(at, 10);
        }
    }
}

TEST(FileRewriteFaults, AKillLeavesEachOfManyFilesWhole) {
    constexpr int files = 50;
    const auto seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const ScratchDirectory directory(memoryDisk());
    const ScratchDirectory temporaries(memoryDisk());
    const auto nameOf = [](int number) { return std::to_string(number) + ".html"; };
    std::string oldPage;
    std::string newPage;
    for (int line = 0; line < 1000; ++line) {
        oldPage += oldText;
        newPage += newText;
    }
    const auto rewriteAll = [&] {
        for (int number = 0; number < files; ++number) outcomeOf(directory / nameOf(number), temporaries / "temp.$$$");
        return 0;
    };
    int interrupted = 0;
    for (int round = 0; round < 40; ++round) {
        for (int number = 0; number < files; ++number) directory.write(nameOf(number), oldPage);
        const auto child = fork();
        if (child == 0) _exit(rewriteAll());
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        int rewritten = 0;
        for (int number = 0; number < files; ++number) {
            const auto bytes = directory.read(nameOf(number));
            ASSERT_TRUE(bytes == oldPage || bytes == newPage) << nameOf(number) << " has " << bytes.size() << " bytes";
            rewritten += bytes == newPage ? 1 : 0;
        }
        interrupted += rewritten > 0 && rewritten < files ? 1 : 0;
    }
    EXPECT_GT(interrupted, 0) << "no kill came in the middle of a run";
}

}  // namespace
}  // namespace kelvor
