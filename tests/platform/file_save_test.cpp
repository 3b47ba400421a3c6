#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/system_calls.h"
#include "tests/platform/faults.h"

namespace kelvor {
namespace {

std::string oldText(std::size_t size) {
    return std::string(size, 'o');
}
std::string newText(std::size_t size) {
    return std::string(size, 'N');
}

/// Bytes as the lengths of their runs, "3000 N, 10 o": short enough to be read when a test fails.
std::string runsOf(std::string_view bytes) {
    std::string runs;
    for (std::size_t start = 0; start < bytes.size();) {
        const auto end = std::min(bytes.find_first_not_of(bytes[start], start), bytes.size());
        runs += std::to_string(end - start) + " " + bytes[start] + ", ";
        start = end;
    }
    return runs;
}

/// What a save said: nothing when it said that the file is saved.
std::string outcomeOf(const std::string& path, const std::string& bytes, int* number = nullptr) {
    try {
        saveFileInPlace(path, bytes);
        return "";
    } catch (const Error& error) {
        if (number != nullptr) *number = error.number();
        return error.description();
    }
}

struct Sizes {
    const char* name;
    /// In bytes; a negative old size is a file that does not exist.
    int before;
    std::size_t after;
    std::size_t mostBytes;
};

constexpr Sizes saves[] = {
    {"grows", 3000, 9000, 1 << 20},
    {"shrinks", 9000, 3000, 1 << 20},
    {"stays", 4000, 4000, 1 << 20},
    {"becomes empty", 100, 0, 1 << 20},
    {"was empty", 0, 100, 1 << 20},
    {"is new", -1, 5000, 1 << 20},
    {"grows in short writes", 3000, 9000, 2000},
    {"shrinks in short writes", 9000, 3000, 2000},
    {"is new in short writes", -1, 5000, 2000},
};

/// A fault after which a save may well succeed, when it comes once.
bool isHarmless(const std::string& call, int code) {
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    return code == EINTR || (call == "fallocate" && !full) || (call == "fsync" && code == EROFS);
}

void checkAfterFault(const ScratchDirectory& directory, const Sizes& save, const Saboteur& saboteur,
                     const std::string& said, const struct stat& before) {
    const bool existed = save.before >= 0;
    const auto path = directory / "page.html";
    struct stat after {};
    const bool exists = stat(path.c_str(), &after) == 0;
    const bool saved = said.empty();
    const bool damaged = said.find("damaged") != std::string::npos;
    if (saved) {
        EXPECT_EQ(runsOf(directory.read("page.html")), runsOf(newText(save.after)));
    } else if (!damaged) {
        EXPECT_EQ(exists, existed);
        EXPECT_EQ(runsOf(directory.read("page.html")),
                  runsOf(oldText(static_cast<std::size_t>(std::max(save.before, 0)))));
    }
    if (existed) {
        ASSERT_TRUE(exists);
        EXPECT_EQ(after.st_ino, before.st_ino);
        EXPECT_EQ(after.st_mode, before.st_mode);
    }
    EXPECT_EQ(directory.entryCount(), exists ? 1U : 0U);
    if (saboteur.fromThenOn || saboteur.firstHit.empty()) return;
    EXPECT_EQ(saved, isHarmless(saboteur.firstHit, saboteur.code)) << said;
    EXPECT_EQ(damaged, saboteur.firstHit == "close" && existed && !saved) << said;
}

/// Runs the save with a fault at call `at`; false when no call was reached any more.
bool saveWithFault(const Sizes& save, int at, int code, bool fromThenOn) {
    SCOPED_TRACE(std::string(save.name) + ": call " + std::to_string(at) + " " + std::strerror(code) +
                 (fromThenOn ? " from then on" : " once"));
    const ScratchDirectory directory(memoryDisk());
    const auto path = directory / "page.html";
    struct stat before {};
    if (save.before >= 0) {
        directory.write("page.html", oldText(static_cast<std::size_t>(save.before)));
        chmod(path.c_str(), 0640);
        stat(path.c_str(), &before);
    }
    const auto openBefore = openFileCount();
    Saboteur saboteur;
    saboteur.at = at;
    saboteur.fromThenOn = fromThenOn;
    saboteur.code = code;
    saboteur.mostBytes = save.mostBytes;
    std::string said;
    {
        const ScopedSystemCalls scope(saboteur.calls());
        said = outcomeOf(path, newText(save.after));
    }
    EXPECT_EQ(openFileCount(), openBefore);
    checkAfterFault(directory, save, saboteur, said, before);
    return !saboteur.firstHit.empty();
}

TEST(FileSave, NeverLosesTheOldBytesSilentlyWhateverCallFails) {
    int faults = 0;
    for (const auto& save : saves) {
        for (const int code : {ENOSPC, EDQUOT, EIO, EINTR, EROFS, EACCES, EFBIG}) {
            for (const bool fromThenOn : {false, true}) {
                int at = 1;
                while (saveWithFault(save, at, code, fromThenOn)) {
                    ++faults;
                    ASSERT_LT(++at, 100) << "the save does not end";
                    ASSERT_FALSE(HasFailure());
                }
                EXPECT_GT(at, 5);
            }
        }
    }
    EXPECT_GT(faults, 1000);
}

TEST(FileSave, LeavesOldOrNewBytesAtEachPlaceWhenKilled) {
    for (const auto& save : saves) {
        bool ended = false;
        for (int at = 1; !ended; ++at) {
            ASSERT_LT(at, 100);
            SCOPED_TRACE(std::string(save.name) + ": killed at call " + std::to_string(at));
            const ScratchDirectory directory;
            const auto oldSize = static_cast<std::size_t>(std::max(save.before, 0));
            if (save.before >= 0) directory.write("page.html", oldText(oldSize));
            const auto child = fork();
            if (child == 0) {
                Saboteur saboteur;
                saboteur.at = at;
                saboteur.kill = true;
                saboteur.mostBytes = save.mostBytes;
                const ScopedSystemCalls scope(saboteur.calls());
                _exit(outcomeOf(directory / "page.html", newText(save.after)).empty() ? 0 : 1);
            }
            int status = 0;
            ASSERT_EQ(waitpid(child, &status, 0), child);
            ended = WIFEXITED(status);
            EXPECT_TRUE(!ended || WEXITSTATUS(status) == 0);

            const auto bytes = directory.read("page.html");
            const auto [least, most] = std::minmax(oldSize, save.after);
            EXPECT_TRUE(bytes.size() >= least && bytes.size() <= most) << bytes.size();
            const auto behindNew = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c != 'N'; });
            EXPECT_TRUE(std::all_of(behindNew, bytes.end(), [](char c) { return c == 'o'; }));
            EXPECT_LE(behindNew - bytes.begin(), static_cast<std::ptrdiff_t>(save.after));
        }
    }
}

TEST(FileSave, KeepsTheOldBytesWhenAnotherFileTakesThePlace) {
    const ScratchDirectory directory;
    const auto path = directory.write("page.html", oldText(10));
    auto calls = kernelCalls();
    calls.fstat = [&](int descriptor, struct stat* status) {
        directory.write("other", "theirs");
        std::filesystem::rename(directory / "other", path);
        return ::fstat(descriptor, status);
    };
    const ScopedSystemCalls scope(calls);
    EXPECT_NE(outcomeOf(path, newText(20)).find("replaced"), std::string::npos);
    EXPECT_EQ(directory.read("page.html"), "theirs");
}

TEST(FileSave, GivesOldBytesBackAtTheFileSizeLimit) {
    const ScratchDirectory directory;
    const auto path = directory.write("page.html", oldText(3000));
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit previous{};
    getrlimit(RLIMIT_FSIZE, &previous);
    auto limit = previous;
    limit.rlim_cur = 10000;
    setrlimit(RLIMIT_FSIZE, &limit);
    int number = 0;
    const auto said = outcomeOf(path, newText(40000), &number);
    const auto saidOfNew = outcomeOf(directory / "new.html", newText(40000));
    setrlimit(RLIMIT_FSIZE, &previous);
    std::signal(SIGXFSZ, previousHandler);
    EXPECT_EQ(number, error_number::diskFull) << said;
    EXPECT_EQ(said.find("damaged"), std::string::npos);
    EXPECT_EQ(runsOf(directory.read("page.html")), runsOf(oldText(3000)));
    EXPECT_NE(saidOfNew, "");
    EXPECT_EQ(directory.entryCount(), 1U);
}

TEST(FileSave, LeavesTheFileWholeOnAFullDisk) {
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "no disk can be mounted here: " << disk.failure();
    const auto& directory = disk.directory();
    const auto path = directory.write("page.html", oldText(8000));
    directory.write("filler", std::string(1 << 20, 'f'));
    ASSERT_LT(directory.read("filler").size(), 1U << 20) << "the disk is not full";

    int number = 0;
    EXPECT_NE(outcomeOf(path, newText(40000), &number), "");
    EXPECT_EQ(number, error_number::diskFull);
    EXPECT_EQ(runsOf(directory.read("page.html")), runsOf(oldText(8000)));
    EXPECT_NE(outcomeOf(directory / "new.html", newText(100)), "");
    EXPECT_EQ(directory.entryCount(), 2U);
    EXPECT_EQ(outcomeOf(path, newText(8000)), "");
    EXPECT_EQ(outcomeOf(path, newText(10)), "");
    EXPECT_EQ(runsOf(directory.read("page.html")), runsOf(newText(10)));
}

TEST(FileSave, SavesOnADiskThatCanNeitherReserveNorFlush) {
    const ScratchDirectory directory;
    const auto path = directory.write("page.html", oldText(30));
    for (const int code : {EOPNOTSUPP, ENOSYS, EINVAL}) {
        auto calls = kernelCalls();
        calls.fallocate = [code](int, int, off_t, off_t) {
            errno = code;
            return -1;
        };
        calls.fsync = [code](int) {
            errno = code;
            return -1;
        };
        const ScopedSystemCalls scope(calls);
        EXPECT_EQ(outcomeOf(path, newText(50)), "") << std::strerror(code);
    }
    EXPECT_EQ(runsOf(directory.read("page.html")), runsOf(newText(50)));
}

TEST(FileSave, FollowsLinksAndKeepsThem) {
    namespace fs = std::filesystem;
    const ScratchDirectory directory;
    directory.write("page.html", "old");
    fs::create_symlink("page.html", directory / "link");
    fs::create_symlink("link", directory / "chain");
    fs::create_hard_link(directory / "page.html", directory / "second");
    fs::create_symlink("nowhere", directory / "dangling");
    fs::create_symlink("loop", directory / "loop");

    saveFileInPlace(directory / "chain", "through links");
    EXPECT_TRUE(fs::is_symlink(directory / "chain"));
    EXPECT_TRUE(fs::is_symlink(directory / "link"));
    EXPECT_EQ(directory.read("page.html"), "through links");
    EXPECT_EQ(directory.read("second"), "through links");
    EXPECT_EQ(fs::hard_link_count(directory / "second"), 2U);

    EXPECT_NE(outcomeOf(directory / "dangling", "x").find("link to a file that does not exist"), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(directory / "dangling"));
    EXPECT_FALSE(fs::exists(directory / "nowhere"));
    EXPECT_NE(outcomeOf(directory / "loop", "x").find("circle"), std::string::npos);
}

TEST(FileSave, RefusesAReadOnlyFileForRootToo) {
    const ScratchDirectory directory;
    const auto path = directory.write("page.html", "old");
    chmod(path.c_str(), 0444);
    EXPECT_TRUE(isReadOnly(path));
    int number = 0;
    EXPECT_EQ(outcomeOf(path, "new", &number), "The file is read-only: " + path);
    EXPECT_EQ(number, error_number::permissionDenied);
    EXPECT_EQ(directory.read("page.html"), "old");
    chmod(path.c_str(), 0644);
    EXPECT_FALSE(isReadOnly(path));
    EXPECT_FALSE(isReadOnly(directory / "missing"));
}

TEST(FileSave, MakesANewFileOnlyWhereAFolderIs) {
    const ScratchDirectory directory;
    const auto mask = umask(027);
    saveFileInPlace(directory / "new.html", "new");
    umask(mask);
    struct stat status {};
    ASSERT_EQ(stat((directory / "new.html").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    int number = 0;
    EXPECT_NE(outcomeOf(directory / "missing/new.html", "x", &number), "");
    EXPECT_EQ(number, error_number::pathNotFound);
    EXPECT_FALSE(std::filesystem::exists(directory / "missing"));
}

}  // namespace
}  // namespace kelvor
