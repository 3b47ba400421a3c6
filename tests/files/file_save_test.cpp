// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/files.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

struct Save {
    const char* name;
    /// In bytes; a negative old size is a file that does not exist.
    int before;
    std::size_t after;
    std::size_t mostBytes;
};

constexpr Save saves[] = {
    {"grows in short writes", 3000, 9000, 2000},
    {"shrinks in short writes", 9000, 3000, 2000},
    {"stays", 4000, 4000, 1 << 20},
    {"becomes empty", 100, 0, 1 << 20},
    {"was empty", 0, 100, 1 << 20},
    {"is new", -1, 5000, 2000},
};

/// Whether a save succeeds all the same when the fault comes once.
bool isHarmless(const std::string& call, int code) {
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    const bool cannotFlush = code == EINVAL || code == ENOSYS || code == EOPNOTSUPP || code == EROFS;
    return code == EINTR || (call == "fallocate" && !full) || (call == "fsync" && cannotFlush);
}

/// One save with a fault at a call. False when the save ended before that call.
bool saveWithFault(const Save& save, Saboteur fault) {
    SCOPED_TRACE(std::string(save.name) + ": call " + std::to_string(fault.at) + " " +
                 (fault.kill ? "killed" : std::strerror(fault.code)) + (fault.fromThenOn ? " from then on" : " once"));
    const ScratchDirectory directory(memoryDisk());
    const auto path = directory / "page.html";
    const std::string oldBytes(static_cast<std::size_t>(std::max(save.before, 0)), 'o');
    const std::string newBytes(save.after, 'N');
    if (save.before >= 0) chmod(directory.write("page.html", oldBytes).c_str(), 0640);
    struct stat before {};
    struct stat after {};
    const bool existed = stat(path.c_str(), &before) == 0;
    fault.mostBytes = save.mostBytes;
    std::string said;
    // A new file gets the mode that the old one has.
    const auto mask = umask(027);
    const bool killed = isKilledIn(fault, [&] { said = errorOf([&] { saveFileInPlace(path, newBytes); }); });
    umask(mask);

    const bool exists = stat(path.c_str(), &after) == 0;
    EXPECT_TRUE(!existed || after.st_ino == before.st_ino);
    EXPECT_EQ(after.st_mode & 07777U, exists ? 0640U : 0U);
    EXPECT_EQ(directory.entryCount(), exists ? 1U : 0U);
    const auto bytes = directory.read("page.html");
    if (killed) {
        // New bytes and behind them old ones.
        const auto written = std::min(bytes.find_first_not_of('N'), bytes.size());
        EXPECT_LE(written, newBytes.size());
        EXPECT_EQ(bytes.find_first_not_of('o', written), std::string::npos);
        const auto [least, most] = std::minmax({oldBytes.size(), newBytes.size()});
        EXPECT_EQ(std::clamp(bytes.size(), least, most), bytes.size());
        return true;
    }
    const bool saved = said.empty();
    const bool damaged = said.find("damaged") != std::string::npos;
    EXPECT_TRUE(damaged || exists == (existed || saved));
    EXPECT_TRUE(damaged || bytes == (saved ? newBytes : oldBytes)) << said;
    if (fault.fromThenOn || fault.firstHit.empty()) return !fault.firstHit.empty();
    EXPECT_EQ(saved, isHarmless(fault.firstHit, fault.code)) << said;
    EXPECT_EQ(damaged, fault.firstHit == "close" && existed && !saved) << said;
    return true;
}

TEST(FileSave, NeverLosesTheOldBytesSilentlyWhateverCallFails) {
    for (const auto& save : saves) {
        for (const int code : {0, ENOSPC, EDQUOT, EFBIG, EIO, EINTR, EROFS, EINVAL, ENOSYS, EOPNOTSUPP}) {
            for (const bool fromThenOn : {false, true}) {
                int at = 1;
                // The code 0 is a kill.
                while (saveWithFault(save, {.at = at, .fromThenOn = fromThenOn, .code = code, .kill = code == 0})) {
                    ASSERT_LT(++at, 100) << "the save does not end";
                    ASSERT_FALSE(HasFailure());
                }
                EXPECT_GT(at, 5);
            }
        }
    }
}

TEST(FileSave, KeepsTheOldBytesWhenAnotherFileTakesThePlace) {
    const ScratchDirectory directory;
    const auto path = directory.write("page.html", "old");
    auto calls = kernelCalls();
    calls.fstat = [&](int descriptor, struct stat* status) {
        std::filesystem::rename(directory.write("other", "theirs"), path);
        return ::fstat(descriptor, status);
    };
    const ScopedSystemCalls scope(calls);
    EXPECT_EQ(errorOf([&] { saveFileInPlace(path, "new"); }),
              "75 Another program replaced the file during the save: " + path);
    EXPECT_EQ(directory.read("page.html"), "theirs");
}

}  // namespace
}  // namespace kelvor
