// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/private_directory.h"

#include "files/places.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

std::string errorOfMaking() {
    return errorOf([] { privateDirectory("a/b"); });
}

struct PrivateDirectory : testing::Test {
    const ScratchDirectory root;
    const std::string state = root / "home/.local/state/kelvor";
    const ScopedDirectories inForce{"", "", state};
};

TEST_F(PrivateDirectory, IsMadeForItsOwnerAlone) {
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(privateDirectory("a/b"), state + "/a/b");
        for (const char* part : {"", "/a", "/a/b"}) {
            EXPECT_EQ(fs::status(state + part).permissions(), fs::perms::owner_all) << part;
            fs::permissions(state + part, fs::perms::all);
        }
    }
    const std::string path = privateDirectory("a") + "/file";
    { const OpenFile file = createPrivateFile(path); }
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
    EXPECT_EQ(errorOf([&] { createPrivateFile(path); }), "58 File already exists: " + path);
    fs::remove(path);
    fs::create_symlink(root / "victim", path);
    EXPECT_EQ(errorOf([&] { createPrivateFile(path); }), "58 File already exists: " + path);
    EXPECT_FALSE(fs::exists(root / "victim"));
}

TEST_F(PrivateDirectory, SaysWhatStandsInItsWay) {
    const std::string place = state + "/a";
    fs::create_directories(state);
    fs::create_symlink("nowhere", place);
    EXPECT_EQ(errorOfMaking(), "53 File not found: " + place);
    fs::remove(place);
    root.write("home/.local/state/kelvor/a", "");
    EXPECT_EQ(errorOfMaking(), "76 The folder does not exist: " + place);
    fs::remove(place);
    fs::create_directory(root / "elsewhere");
    fs::create_directory_symlink(root / "elsewhere", place);
    EXPECT_EQ(errorOfMaking(), "");
    EXPECT_TRUE(fs::exists(root / "elsewhere/b"));
    const ScopedDirectories none("", "", "");
    EXPECT_EQ(errorOfMaking(), "76 There is no home directory");
}

TEST_F(PrivateDirectory, TakesNothingOfAnotherUserAndNothingWhereItMayNotWrite) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a directory away";
    fs::create_directories(state + "/a");
    ASSERT_EQ(chown((state + "/a").c_str(), nobody, nobody), 0);
    EXPECT_EQ(errorOfMaking(), "70 What stands here belongs to another user: " + state + "/a");
    fs::permissions(root.path(), fs::perms(0755));
    const int status = asOrdinaryUser([this] {
        EXPECT_EQ(errorOfMaking(), "70 What stands here belongs to another user: " + state);
        const ScopedDirectories inRootsOwn("", "", root / "state");
        EXPECT_EQ(errorOfMaking(), "70 Permission denied: " + root / "state");
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace kelvor
