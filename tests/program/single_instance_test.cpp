// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/single_instance.h"

#include <gtest/gtest.h>

#include <csignal>

#include "files/places.h"
#include "tests/kit/faults.h"
#include "tests/kit/fresh_state.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

struct SingleInstanceTest : testing::Test {
    ScratchDirectory runtime;
    ScopedVariable variable{"XDG_RUNTIME_DIR", runtime.path()};
};

TEST_F(SingleInstanceTest, TheLockIsTheUsersAloneAndEndsWithItsProcess) {
    const int status = inChild([] { return SingleInstance().isFirst() ? raise(SIGKILL) : 1; });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(fs::status(runtime / "kelvor.lock").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    const SingleInstance first;
    EXPECT_TRUE(first.isFirst());
    // A refused copy must not take the lock's file away.
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(SingleInstance().isFirst());
}

TEST_F(SingleInstanceTest, WhereTheRunTimeDirectoryDoesNotServeTheSettingsDo) {
    const auto lock = runtime / "kelvor.lock";
    const std::function<int()> spoils[] = {
        [&] { return symlink("victim", lock.c_str()); },
        [&] { return unlink(lock.c_str()) + chown(runtime.path().c_str(), 1, 1); },
        [&] { return setenv("XDG_RUNTIME_DIR", "/nowhere", 1); },
    };
    runtime.write("victim", "x");
    const bool systemServes = fs::exists("/run/user/" + std::to_string(geteuid()));
    for (const auto& spoil : spoils) {
        SCOPED_TRACE(&spoil - spoils);
        if (spoil() != 0) continue;  // only root gives a directory away
        const ScratchDirectory settings;
        const ScopedDirectories scope("", settings.path());
        const SingleInstance first;
        EXPECT_TRUE(first.isFirst());
        EXPECT_FALSE(SingleInstance().isFirst());
        EXPECT_TRUE(systemServes || fs::exists(settings / "kelvor.lock"));
        EXPECT_EQ(runtime.read("victim"), "x");
    }
    const ScopedDirectories none("", "");
    EXPECT_TRUE(systemServes || SingleInstance().isFirst()) << "nothing to refuse by";
}

}  // namespace
}  // namespace kelvor
