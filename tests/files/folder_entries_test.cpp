// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/folder_entries.h"

#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

TEST(FolderEntries, AreTheFoldersAndFilesAsAPersonSortsThem) {
    const ScratchDirectory directory;
    for (const char* name : {"b.htm", "A.htm", "bad\xff.htm", ".hidden"}) directory.write(name, "12345");
    fs::create_directory(directory / "z");
    fs::create_directory_symlink("z", directory / "link");
    fs::create_symlink("nowhere", directory / "dangling");
    ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
    std::string listed;
    for (const FolderEntry& entry : folderEntries(directory.path())) {
        listed += entry.name + (entry.isFolder ? "/ " : " ");
        EXPECT_TRUE(entry.isFolder || entry.size == 5) << entry.name;
    }
    EXPECT_EQ(listed, "link/ z/ .hidden A.htm b.htm bad\xff.htm ");
    const std::string missing = directory / "missing";
    EXPECT_EQ(errorOf([&] { folderEntries(missing); }), "76 The folder does not exist: " + missing);
    EXPECT_EQ(errorOf([&] { makeFolder(directory / "z"); }), "58 File already exists: " + (directory / "z"));
}

}  // namespace
}  // namespace kelvor
