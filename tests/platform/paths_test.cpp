#include "platform/paths.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <map>

#include "tests/platform/scratch_directory.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

TEST(Paths, AreTakenApartByTheirOwnRules) {
    const struct {
        const char* path;
        bool foreign;
        const char* directory;
        const char* name;
    } rows[] = {
        {"/home/a/x.htm", false, "/home/a", "x.htm"},
        {"/x.htm", false, "/", "x.htm"},
        {"/", false, "/", ""},
        {"x.htm", false, "", "x.htm"},
        {"", false, "", ""},
        {"/home/a/", false, "/home/a", ""},
        {"/home/a\\b.htm", false, "/home", "a\\b.htm"},
        {"\\x.htm", false, "", "\\x.htm"},
        {"c:x.htm", false, "", "c:x.htm"},
        {"/web/C:\\x.htm", false, "/web", "C:\\x.htm"},
        {"C:\\web\\x.htm", true, "C:\\web", "x.htm"},
        {"c:\\x.htm", true, "c:", "x.htm"},
        {"C:", true, "", "C:"},
        {"C:/web/x.htm", true, "C:/web", "x.htm"},
        {"1:\\x.htm", false, "", "1:\\x.htm"},
        {"\\\\server\\share\\x.htm", true, "\\\\server\\share", "x.htm"},
        {"\\\\server", true, "\\\\", "server"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isForeignPath(row.path), row.foreign) << row.path;
        EXPECT_EQ(separatorOf(row.path), row.foreign ? '\\' : '/') << row.path;
        EXPECT_EQ(directoryPart(row.path), row.directory) << row.path;
        EXPECT_EQ(fileNamePart(row.path), row.name) << row.path;
    }
}

TEST(Paths, AreJoinedWithOneSeparator) {
    const struct {
        const char* directory;
        const char* name;
        const char* joined;
    } rows[] = {
        {"/home/a", "x.htm", "/home/a/x.htm"},
        {"/home/a/", "x.htm", "/home/a/x.htm"},
        {"/", "x.htm", "/x.htm"},
        {"", "x.htm", "x.htm"},
        {"C:", "x.htm", "C:\\x.htm"},
        {"C:\\", "x.htm", "C:\\x.htm"},
        {"C:\\web", "x.htm", "C:\\web\\x.htm"},
        {"\\\\server", "share", "\\\\server\\share"},
        {"\\\\", "server", "\\\\server"},
        {"/a\\", "x", "/a\\/x"},
    };
    for (const auto& row : rows) EXPECT_EQ(joinPath(row.directory, row.name), row.joined);
}

using Environment = std::map<std::string, std::string>;

/// In the child process of runPrinter() this writes the directories and ends, before there is any test.
const bool isNoPrinter = [] {
    const char* output = std::getenv("KELVOR_TEST_OUTPUT");
    if (output == nullptr) return true;
    const auto permissions = fs::status(temporaryDirectory()).permissions() & fs::perms::mask;
    std::ofstream(output) << programDirectory() << '\n'
                          << settingsDirectory() << '\n'
                          << temporaryDirectory() << '\n'
                          << (permissions == fs::perms::owner_all ? "private" : "open to others") << '\n';
    std::exit(0);
}();

/// What a copy of this program, standing in `directory`, takes for its directories; one line each.
std::vector<std::string> runPrinter(const std::string& directory, const std::string& output, Environment environment) {
    fs::create_directories(directory);
    fs::copy_file("/proc/self/exe", directory + "/program", fs::copy_options::overwrite_existing);
    environment["KELVOR_TEST_OUTPUT"] = output;
    const auto child = fork();
    if (child == 0) {
        for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "TMPDIR"}) unsetenv(name);
        for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
        const auto program = directory + "/program";
        execl(program.c_str(), program.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    std::vector<std::string> lines;
    std::ifstream file(output);
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    lines.resize(4);
    return lines;
}

TEST(Directories, AreTheExecutablesOwnWhenItHoldsTemplates) {
    const ScratchDirectory root;
    fs::create_directories(root / "portable/Templates");
    const auto lines = runPrinter(root / "portable", root / "output", {{"HOME", root / "home"}});
    EXPECT_EQ(lines[0], root / "portable");
    EXPECT_EQ(lines[1], root / "home/.config/kelvor");
    EXPECT_EQ(fs::status(lines[1]).permissions() & fs::perms::mask, fs::perms::owner_all);
    EXPECT_FALSE(fs::exists(root / "home/.local"));
}

TEST(Directories, AreFilledOnceFromTheInstalledData) {
    const ScratchDirectory root;
    fs::create_directories(root / "usr/share/kelvor/Templates");
    root.write("usr/share/kelvor/tags.txt", "tags");
    root.write("usr/share/kelvor/Templates/page.htm", "page");
    fs::permissions(root / "usr/share/kelvor/tags.txt", fs::perms::owner_read);
    const Environment environment = {{"HOME", root / "home"}, {"XDG_DATA_HOME", root / "data"}};

    EXPECT_EQ(runPrinter(root / "usr/bin", root / "output", environment)[0], root / "data/kelvor");
    EXPECT_EQ(root.read("data/kelvor/tags.txt"), "tags");
    EXPECT_EQ(root.read("data/kelvor/Templates/page.htm"), "page");
    EXPECT_NE(fs::status(root / "data/kelvor/tags.txt").permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_EQ(std::distance(fs::directory_iterator(root / "data/kelvor"), {}), 2);

    root.write("data/kelvor/tags.txt", "the user's");
    fs::remove(root / "data/kelvor/Templates/page.htm");
    runPrinter(root / "usr/bin", root / "output", environment);
    EXPECT_EQ(root.read("data/kelvor/tags.txt"), "the user's");
    EXPECT_FALSE(fs::exists(root / "data/kelvor/Templates/page.htm"));

    // A first start that was cut short: what is there stays, what lacks comes.
    fs::remove_all(root / "data/kelvor/Templates");
    runPrinter(root / "usr/bin", root / "output", environment);
    EXPECT_EQ(root.read("data/kelvor/tags.txt"), "the user's");
    EXPECT_EQ(root.read("data/kelvor/Templates/page.htm"), "page");
}

TEST(Directories, DoWithoutAHome) {
    const ScratchDirectory root;
    fs::create_directories(root / "usr/share/kelvor/Templates");
    fs::create_directories(root / "tmp");
    const auto installed = root / "usr/share/kelvor";
    auto lines = runPrinter(root / "usr/bin", root / "output", {{"TMPDIR", root / "tmp"}});
    EXPECT_EQ(lines[0], installed);
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(fs::path(lines[2]).parent_path(), root / "tmp");
    EXPECT_EQ(lines[3], "private");
    EXPECT_FALSE(fs::exists(lines[2])) << "the temporary directory outlived its process";

    lines = runPrinter(root / "usr/bin", root / "output", {{"HOME", "/proc/nowhere"}, {"XDG_CONFIG_HOME", "relative"}});
    EXPECT_EQ(lines[0], installed);
    EXPECT_EQ(lines[1], "/proc/nowhere/.config/kelvor");
}

TEST(Directories, StayWhenAForkedCopyEnds) {
    const auto directory = temporaryDirectory();
    ASSERT_TRUE(fs::is_directory(directory));
    const auto child = fork();
    if (child == 0) std::exit(0);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(fs::is_directory(directory));
}

TEST(Directories, AreOthersInATest) {
    const auto before = settingsDirectory();
    {
        const ScopedDirectories scope("/program", "/settings");
        EXPECT_EQ(programDirectory(), "/program");
        {
            const ScopedDirectories inner("/inner", "/inner/settings");
            EXPECT_EQ(programDirectory(), "/inner");
        }
        EXPECT_EQ(programDirectory(), "/program");
        EXPECT_EQ(settingsDirectory(), "/settings");
    }
    EXPECT_EQ(settingsDirectory(), before);
}

}  // namespace
}  // namespace kelvor
