// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/places.h"

#include <cstdlib>

#include "files/temporary_directory.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

/// In the process of directoriesOf() this writes the directories and ends, before there is any test.
const bool isNoPrinter = [] {
    const char* output = std::getenv("KELVOR_TEST_OUTPUT");
    if (output == nullptr) return true;
    const fs::path temporary = temporaryDirectory();
    // The end of a forked copy must not take it away.
    if (fork() == 0) std::exit(0);
    wait(nullptr);
    const bool isPrivate = fs::status(temporary).permissions() == fs::perms::owner_all;
    std::ofstream(output) << programDirectory() << '\n'
                          << settingsDirectory() << '\n'
                          << temporary.parent_path().string() << (isPrivate ? "" : " gone or not private") << '\n';
    std::exit(0);
}();

struct ProgramDirectories : testing::Test {
    /// What a copy of this program takes for its directories, one to a line: its own, the settings', and the one of
    /// its temporary directory, which is gone by then.
    std::string directoriesOf(const std::string& place, const std::string& environment) {
        fs::create_directories(place);
        fs::create_directories(root / "tmp");
        fs::copy_file("/proc/self/exe", place + "/program", fs::copy_options::overwrite_existing);
        const auto command = "env -u HOME -u XDG_DATA_HOME -u XDG_CONFIG_HOME TMPDIR=" + root / "tmp" + " " +
                             environment + " KELVOR_TEST_OUTPUT=" + root / "output" + " " + place + "/program";
        EXPECT_EQ(std::system(command.c_str()), 0);
        EXPECT_TRUE(fs::is_empty(root / "tmp"));
        return root.read("output");
    }
    const ScratchDirectory root;
};

TEST_F(ProgramDirectories, FollowThePlaceOfTheProgramAndTheHome) {
    const auto installed = root / "usr/share/kelvor";
    const auto portable = root / "portable";
    for (const auto& directory : {installed, portable}) fs::create_directories(directory + "/Templates");
    const auto told = [&](const std::string& program, const std::string& settings) {
        return program + "\n" + settings + "\n" + root / "tmp" + "\n";
    };
    EXPECT_EQ(directoriesOf(portable, "HOME=" + root / "home"), told(portable, root / "home/.config/kelvor"));
    EXPECT_EQ(directoriesOf(root / "usr/bin", ""), told(installed, ""));
    EXPECT_EQ(directoriesOf(root / "usr/bin", "HOME=/proc/nowhere XDG_CONFIG_HOME=here"),
              told(installed, "/proc/nowhere/.config/kelvor"));
    EXPECT_EQ(fs::status(root / "home/.config/kelvor").permissions(), fs::perms::owner_all);
    EXPECT_FALSE(fs::exists(root / "home/.local"));
}

TEST_F(ProgramDirectories, AreFilledOnceFromTheInstalledData) {
    fs::create_directories(root / "usr/share/kelvor/Templates");
    fs::permissions(root.write("usr/share/kelvor/tags.txt", "tags"), fs::perms::owner_read);
    root.write("usr/share/kelvor/Templates/page.htm", "page");
    const auto start = [&] { return directoriesOf(root / "usr/bin", "XDG_DATA_HOME=" + root / "data"); };
    EXPECT_TRUE(start().starts_with(root / "data/kelvor\n"));
    EXPECT_EQ(root.read("data/kelvor/tags.txt") + root.read("data/kelvor/Templates/page.htm"), "tagspage");
    EXPECT_NE(fs::status(root / "data/kelvor/tags.txt").permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_EQ(std::distance(fs::directory_iterator(root / "data/kelvor"), {}), 2);

    root.write("data/kelvor/tags.txt", "the user's");
    fs::remove(root / "data/kelvor/Templates/page.htm");
    start();
    EXPECT_FALSE(fs::exists(root / "data/kelvor/Templates/page.htm"));

    // A first start that was cut short: what is there stays, what lacks comes.
    fs::remove(root / "data/kelvor/Templates");
    start();
    EXPECT_EQ(root.read("data/kelvor/tags.txt") + root.read("data/kelvor/Templates/page.htm"), "the user'spage");
}

}  // namespace
}  // namespace kelvor
