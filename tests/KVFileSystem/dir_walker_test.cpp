#include "KVFileSystem/dir_walker.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/platform/scratch_directory.h"

namespace kelvor {
namespace {

using Names = std::vector<std::string>;

class Walk : public testing::Test {
protected:
    /// What a walk finds, sorted, each without the tree's own path.
    Names found(const std::string& filter, int topOnly = 0) {
        Names names;
        DirWalker walker;
        walker.ItemFound = [&](const std::string& sPath, const std::string& sFileName, bool&) {
            EXPECT_TRUE(sPath.starts_with(tree.path() + "/") && sPath.ends_with('/')) << sPath;
            EXPECT_EQ(sFileName.find('/'), std::string::npos);
            names.push_back((sPath + sFileName).substr(tree.path().size() + 1));
        };
        walker.Walk(tree.path(), filter, topOnly);
        std::sort(names.begin(), names.end());
        return names;
    }
    void makeDirectory(const std::string& name) { std::filesystem::create_directory(tree / name); }

    ScratchDirectory tree{memoryDisk()};
};

TEST_F(Walk, TellsWhichNamesMatch) {
    for (const char* name :
         {"a.htm", "b.HTML", "c.shtml", "d.htm.bak", "e.ht", "f.c", "g.cgi", "noextension", ".htm", "h.htm.html"})
        tree.write(name, "");
    const struct {
        const char* filter;
        Names names;
    } rows[] = {
        {"*.htm", {".htm", "a.htm", "b.HTML", "h.htm.html"}},
        {"*.html", {"b.HTML", "h.htm.html"}},
        {"*.c", {"f.c"}},
        {"*.*htm", {".htm", "a.htm"}},
        {"a*", {"a.htm"}},
        {"*h*t*m", {".htm", "a.htm"}},
        {"htm", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(found(row.filter), row.names) << row.filter;
    EXPECT_EQ(found("*.*").size(), 10U);
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
    EXPECT_EQ(found("*.txt", 1).size(), odd.size());
    EXPECT_EQ(found("*.txt"), all);

    ScratchDirectory elsewhere;
    elsewhere.write("real.lnk", "");
    makeDirectory("directory.lnk");
    mkfifo((tree / "pipe.lnk").c_str(), 0600);
    for (const auto& [target, name] : {std::pair{elsewhere / "real.lnk", "file.lnk"},
                                       {tree.path(), "loop.lnk"},
                                       {tree / "nowhere", "dangling.lnk"},
                                       {tree / "pipe.lnk", "topipe.lnk"}})
        std::filesystem::create_symlink(target, tree / name);
    EXPECT_EQ(found("*.lnk"), Names{"file.lnk"});
}

TEST_F(Walk, EndsAtOnceWhenCancelledAndPassesOverWhatIsNotThere) {
    for (const char* name : {"a", "b", "c"}) {
        makeDirectory(name);
        tree.write(std::string(name) + "/file", "");
    }
    int calls = 0;
    DirWalker walker;
    walker.ItemFound = [&](const std::string&, const std::string&, bool& fCancel) { fCancel = ++calls == 2; };
    walker.Walk(tree.path() + "/", "*.*", 0);
    EXPECT_EQ(calls, 2);

    walker.ItemFound = [&](const std::string& sPath, const std::string&, bool&) {
        ++calls;
        for (const std::string name : {"a", "b", "c"})
            if (tree / name + "/" != sPath) std::filesystem::remove_all(tree / name);
    };
    walker.Walk(tree.path(), "*.*", 0);
    walker.Walk(tree / "missing", "*.*", 0);
    EXPECT_EQ(calls, 3);
}

TEST_F(Walk, GoesDeeperThanPathsAndDescriptorsReach) {
    constexpr int depth = 1200;
    const auto create = [](int directory, const char* name) {
        close(openat(directory, name, O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    };
    int directory = open(tree.path().c_str(), O_RDONLY | O_CLOEXEC);
    for (int level = 0; level < depth; ++level) {
        // On the way back each level has another directory to go to.
        for (const char* name : {"before", "down", "next"}) mkdirat(directory, name, 0700);
        for (const char* name : {"before/file", "next/file"}) create(directory, name);
        const int next = openat(directory, "down", O_RDONLY | O_CLOEXEC);
        close(std::exchange(directory, next));
    }
    close(directory);
    std::size_t files = 0;
    std::size_t mostOpen = 0;
    DirWalker walker;
    walker.ItemFound = [&](const std::string&, const std::string&, bool&) {
        ++files;
        mostOpen = std::max(mostOpen, openFileCount());
    };
    const auto openBefore = openFileCount();
    walker.Walk(tree.path(), "*.*", 0);
    EXPECT_EQ(files, 2U * depth);
    EXPECT_LE(mostOpen, openBefore + 20);
    EXPECT_EQ(openFileCount(), openBefore);
}

}  // namespace
}  // namespace kelvor
