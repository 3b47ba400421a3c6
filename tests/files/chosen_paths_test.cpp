// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/chosen_paths.h"

#include <cstdlib>

#include "tests/kit/faults.h"

namespace kelvor {
namespace {

TEST(ChosenPaths, AreRefusedWithTheReason) {
    const ScratchDirectory directory;
    const auto file = directory.write("file", "");
    std::filesystem::create_directory(directory / "sub");
    std::filesystem::create_symlink("loop", directory / "loop");
    std::filesystem::create_symlink("sub", directory / "link");
    const std::string missing = "The folder does not exist: ";
    const std::string circle = "The links lead in a circle: ";
    // What is said when one is to be opened, chosen as a folder, saved to.
    const std::tuple<std::string, std::string, std::string, std::string> rows[] = {
        {file, "", "This is a file, not a folder: " + file, ""},
        {directory / "link", "This is a folder, not a file: " + directory / "link", "", ""},
        {directory / "none", "File not found: " + directory / "none", missing + directory / "none", ""},
        {directory / "none/a", "File not found: " + directory / "none/a", missing + directory / "none/a",
         missing + directory / "none"},
        {file + "/a", missing + file + "/a", missing + file + "/a", missing + file + "/a"},
        {directory / "loop", circle + directory / "loop", circle + directory / "loop", circle + directory / "loop"},
    };
    for (const auto& [path, opening, choosing, saving] : rows) {
        EXPECT_EQ(obstacleToFile(path).value_or(""), opening);
        EXPECT_EQ(obstacleToFolder(path).value_or(""), choosing);
        EXPECT_EQ(obstacleToSaving(path).value_or(""), saving);
    }
    std::string told = "File not found: /none";
    for (int i = 1; i < 10; ++i) told += "\r\nFile not found: /none";
    std::vector<std::string> paths(10, "/none");
    paths.push_back(file);
    EXPECT_EQ(obstaclesTo(paths), told);
    paths.insert(paths.end(), 2, "/none");
    EXPECT_EQ(obstaclesTo(paths), told + "\r\nand 2 more.");
}

TEST(ChosenPaths, LeadToTheFoldersAboveAndTheHome) {
    setenv("HOME", "/home/me", 1);
    auto places = placesFrom("/a/b");
    ASSERT_GE(places.size(), 4U);
    places.resize(4);
    EXPECT_EQ(places, (std::vector<std::string>{"/a/b", "/a", "/", "/home/me"}));
    EXPECT_EQ(withoutSeparator("/a/") + withoutSeparator("/a") + withoutSeparator("/"), "/a/a/");
}

}  // namespace
}  // namespace kelvor
