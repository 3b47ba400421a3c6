// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/temporary_directory.h"

#include "files/paths.h"
#include "tests/kit/faults.h"
#include "tests/kit/fresh_state.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

TEST(TemporaryDirectory, IsAnotherOneWhenItIsNoLongerItsOwn) {
    const ScratchDirectory base;
    const ScratchDirectory victim;
    const ScopedVariable environment("TMPDIR", base.path());
    const std::function<void(const std::string&)> acts[] = {
        [](const std::string& path) { fs::remove_all(path); },
        [](const std::string& path) { fs::permissions(path, fs::perms::others_write, fs::perm_options::add); },
        [&](const std::string& path) {
            fs::rename(path, path + " moved");
            fs::create_directory_symlink(victim.path(), path);
        },
        [](const std::string& path) {
            if (chown(path.c_str(), nobody, nobody) != 0) fs::remove_all(path);
        },
    };
    for (const auto& act : acts) {
        const auto before = temporaryDirectory();
        EXPECT_EQ(temporaryDirectory(), before);
        act(before);
        const auto now = temporaryDirectory();
        EXPECT_NE(now, before);
        EXPECT_EQ(directoryPart(now), base.path());
        EXPECT_EQ(fs::symlink_status(now).permissions(), fs::perms::owner_all);
    }
    EXPECT_EQ(victim.entryCount(), 0U);
}

}  // namespace
}  // namespace kelvor
