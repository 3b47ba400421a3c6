#include "files/folder_entries.h"

#include "files/filter_rows.h"
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
    for (const char* name : {"b.htm/", "missing"}) {
        const std::string told = "76 The folder does not exist: " + directory / name;
        EXPECT_EQ(errorOf([&] { folderEntries(directory / name); }), told);
    }
    EXPECT_EQ(errorOf([&] { makeFolder(directory / "z"); }), "58 File already exists: " + (directory / "z"));
}

TEST(FilterRows, AreNamesWithTheirPatterns) {
    const auto told = [](const char* filter) {
        std::string text;
        for (const FilterRow& row : filterRows(filter)) {
            text += row.name + ":";
            for (const std::string& pattern : row.patterns) text += pattern + ",";
        }
        return text;
    };
    EXPECT_EQ(told("All Files (*.*)|*.*|Pages (*.asp)|*.asp;"), "All Files (*.*):*.*,Pages (*.asp):*.asp,");
    EXPECT_EQ(told(" A| *.a ; *.b |Empty||rest"), "A:*.a,*.b,Empty:*.*,");
    EXPECT_EQ(told("No pattern"), "All Files:*.*,");
    const FilterRow row{"", {"*.a", "*.b"}};
    EXPECT_TRUE(matches("X.B", row));
    EXPECT_FALSE(matches("x.c", row));
}

}  // namespace
}  // namespace kelvor
