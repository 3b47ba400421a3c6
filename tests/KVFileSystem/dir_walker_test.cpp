// SPDX-License-Identifier: GPL-3.0-or-later
#include "KVFileSystem/dir_walker.h"

#include <algorithm>

#include "tests/kit/scratch_directory.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class Walk : public testing::Test {
protected:
    /// What a walk finds, sorted, each without the tree's own path.
    Names found(const std::string& filter, int topOnly = 0) {
        Names names;
        DirWalker walker;
        const auto openBefore = openFileCount();
        walker.ItemFound = [&](const std::string& sPath, const std::string& sFileName, bool&) {
            EXPECT_LE(openFileCount(), openBefore + 20);
            EXPECT_TRUE(sPath.starts_with(tree / "") && sPath.ends_with('/') && sFileName.find('/') == sFileName.npos);
            names.push_back((sPath + sFileName).substr(tree.path().size() + 1));
        };
        walker.Walk(tree.path(), filter, topOnly);
        EXPECT_EQ(openFileCount(), openBefore);
        std::sort(names.begin(), names.end());
        return names;
    }
    void makeDirectory(const std::string& name) { fs::create_directory(tree / name); }

    ScratchDirectory tree{memoryDisk()};
};

TEST_F(Walk, TellsWhichNamesMatch) {
    for (const char* name : {"a.htm", "b.HTML", "c.shtml", "d.htm.bak", "e.ht", "f.c", "g.cgi", "noextension", ".htm",
                             "h.azazel", "[@`{.x", "i.h`ml"})
        tree.write(name, "");
    const std::pair<const char*, Names> rows[] = {
        {"*.htm", {".htm", "a.htm", "b.HTML"}},
        {"*.html", {"b.HTML"}},
        {"a*", {"a.htm"}},
        {"*h*t*m", {".htm", "a.htm"}},
        {"htm", {}},
        // Letters have two cases, and their neighbours only one.
        {"*.AZA", {"h.azazel"}},
        {"[@*", {"[@`{.x"}},
        {"*`{.X", {"[@`{.x"}},
        {"{*", {}},
        {"*`.x", {}},
        // A longer ending is found by three letters only, not by other signs.
        {"*.h`m", {}},
        {"*.az", {}},
    };
    for (const auto& [filter, names] : rows) EXPECT_EQ(found(filter), names) << filter;
    EXPECT_EQ(found("*.*").size(), 12U);
}

TEST_F(Walk, DeliversEveryRegularFileAndNothingElse) {
    makeDirectory("sub");
    makeDirectory("sub/.deep");
    const Names odd = {"bad\xFF\xE9.txt", "line\nend.txt", std::string(251, 'x') + ".txt", ".txt", "-rf *.txt"};
    Names all;
    for (const std::string directory : {"", "sub/", "sub/.deep/"})
        for (const std::string& name : odd) {
            tree.write(directory + name, "");
            all.push_back(directory + name);
        }
    std::sort(all.begin(), all.end());
    makeDirectory(".kelvor-kept-0123");
    tree.write(".kelvor-kept-0123/old.txt", "");
    EXPECT_EQ(found("*.txt", 1).size(), odd.size());
    EXPECT_EQ(found("*.txt"), all);

    makeDirectory("directory.lnk");
    mkfifo((tree / "pipe.lnk").c_str(), 0600);
    const char* links[][2] = {
        {"sub/.txt", "file.lnk"}, {".", "loop.lnk"}, {"no", "dangling.lnk"}, {"pipe.lnk", "p.lnk"}};
    for (const auto& [target, name] : links) fs::create_symlink(target, tree / name);
    EXPECT_EQ(found("*.lnk"), Names{"file.lnk"});
}

TEST_F(Walk, EndsAtOnceWhenCancelledAndPassesOverWhatIsNotThere) {
    for (const std::string name : {"a", "b", "c"}) {
        makeDirectory(name);
        for (const char* file : {"/1", "/2", "/3"}) tree.write(name + file, "");
    }
    int calls = 0;
    DirWalker walker;
    walker.ItemFound = [&](const std::string&, const std::string&, bool& fCancel) { fCancel = ++calls == 2; };
    walker.Walk(tree / "", "*.*", 0);
    EXPECT_EQ(calls, 2);
    walker.Walk(tree / "missing", "*.*", 0);
    EXPECT_EQ(calls, 2);
}

TEST_F(Walk, ComesBackFromDeeperThanDirectoriesStayOpen) {
    Names all;
    std::string way;
    for (int level = 0; level < 40; ++level, way += "down/") {
        // On the way back each level has another directory to go to.
        for (const std::string name : {"before", "next"}) {
            fs::create_directories(tree / (way + name));
            tree.write(way + name + "/file", "");
            all.push_back(way + name + "/file");
        }
    }
    std::sort(all.begin(), all.end());
    EXPECT_EQ(found("*"), all);
}

}  // namespace
}  // namespace kelvor
