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

TEST_F(SingleInstanceTest, WhereTheRunTimeDirectoryDoesNotServeAnotherDoes) {
    runtime.write("victim", "x");
    ASSERT_EQ(symlink("victim", (runtime / "kelvor.lock").c_str()), 0);
    const bool systemServes = fs::exists("/run/user/" + std::to_string(geteuid()));
    for (const std::string& place : {runtime.path(), std::string("/nowhere")}) {
        const ScopedVariable spoiled("XDG_RUNTIME_DIR", place);
        const ScratchDirectory settings;
        const ScopedDirectories scope("", settings.path());
        const SingleInstance first;
        EXPECT_TRUE(first.isFirst());
        EXPECT_FALSE(SingleInstance().isFirst());
        EXPECT_TRUE(systemServes || fs::exists(settings / "kelvor.lock"));
    }
    EXPECT_EQ(runtime.read("victim"), "x");
}

}  // namespace
}  // namespace kelvor
