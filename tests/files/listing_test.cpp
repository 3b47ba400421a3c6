// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/listing.h"

#include "files/files.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

TEST(Listing, FindsFilesByPatternWithoutRegardToCase) {
    const ScratchDirectory directory;
    for (const char* name : {"b.htm", "Ä.HTM", "a.html", "bad\xFF\xE9.htm", ".h", "a[1].x", "ississi", "日.htm"})
        directory.write(name, "");
    fs::create_directory(directory / "folder.htm");
    fs::create_directory_symlink("folder.htm", directory / "link to folder.htm");
    fs::create_symlink("b.htm", directory / "link.htm");
    fs::create_symlink("nowhere", directory / "dangling.htm");
    fs::create_symlink("loop", directory / "loop");
    using Names = std::vector<std::string>;
    const std::pair<const char*, Names> rows[] = {
        {"*.htm", {"Ä.HTM", "b.htm", "bad\xFF\xE9.htm", "link.htm", "日.htm"}},
        {"ä.*", {"Ä.HTM"}},
        {"?.htm", {"Ä.HTM", "b.htm", "日.htm"}},
        {"*??.htm", {"bad\xFF\xE9.htm", "link.htm"}},
        {"a[1].*", {"a[1].x"}},
        {"*issx*", {}},
        {"*ss*si**", {"ississi"}},
    };
    for (const auto& [pattern, names] : rows) {
        EXPECT_EQ(filesMatching(directory.path(), pattern), names) << pattern;
        EXPECT_EQ(listingFinds(directory / pattern), !names.empty()) << pattern;
    }
    EXPECT_EQ(filesMatching(directory.path(), "*.*").size(), 9U);
    for (const char* name : {"link.htm", "folder.htm", "loop"}) EXPECT_TRUE(listingFinds(directory / name)) << name;
    for (const char* name : {"B.htm", "*.css", "folder*", "missing/*", "b.htm/*", "b.htm/x", "dangling.htm"})
        EXPECT_FALSE(listingFinds(directory / name)) << name;

    for (const auto& [name, told] : {std::pair{"missing", "76 The folder does not exist: "},
                                     {"b.htm", "76 The folder does not exist: "},
                                     {"loop", "75 The links lead in a circle: "}}) {
        const std::string path = directory / name;
        EXPECT_EQ(errorOf([&] { filesMatching(path, "*"); }), told + path);
        EXPECT_EQ(errorOf([&] { directoriesIn(path); }), told + path);
    }
    EXPECT_FALSE(listingFinds(directory / std::string(300, 'x')));
    const auto closed = directory / "folder.htm";
    chmod(directory.path().c_str(), 0755);
    fs::permissions(closed, fs::perms(0));
    const int status = asOrdinaryUser([&] {
        EXPECT_TRUE(listingFinds(closed + "/b.htm")) << "only an attempt can tell";
        EXPECT_EQ(errorOf([&] { filesMatching(closed, "*"); }), "70 Permission denied: " + closed);
    });
    EXPECT_EQ(status, 0);
    fs::permissions(closed, fs::perms(0700));
}

}  // namespace
}  // namespace kelvor
