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
    for (const char* name : {"B.htm", "*.css", "folder*", "missing/*", "b.htm/*", "dangling.htm"})
        EXPECT_FALSE(listingFinds(directory / name)) << name;

    for (const auto& [name, told] : {std::pair{"missing", "76 The folder does not exist: "},
                                     {"b.htm", "76 The folder does not exist: "},
                                     {"loop", "75 The links lead in a circle: "}}) {
        const std::string path = directory / name;
        EXPECT_EQ(errorOf([&] { filesMatching(path, "*"); }), told + path);
        EXPECT_EQ(errorOf([&] { directoriesIn(path); }), told + path);
    }

    // Tried at each place for each star this would take for ever.
    std::string stars;
    for (int i = 0; i < 30; ++i) stars += "*a";
    EXPECT_FALSE(nameMatches(std::string(250, 'a'), stars + "b"));
}

}  // namespace
}  // namespace kelvor
