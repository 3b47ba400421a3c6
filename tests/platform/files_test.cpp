#include "platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cerrno>
#include <chrono>

#include "platform/error.h"
#include "platform/system_calls.h"
#include "tests/platform/scratch_directory.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

/// The number of the Error that `action` throws; 0 when it throws none.
template <typename Action>
int errorNumberOf(const Action& action) {
    try {
        action();
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

TEST(ReadFile, GivesAllBytes) {
    const ScratchDirectory directory;
    std::string all;
    for (int i = 0; i < 300000; ++i) all += static_cast<char>(i * 7 + i / 256);
    for (const auto size : {std::size_t{0}, std::size_t{1}, std::size_t{65536}, all.size()}) {
        const auto path = directory.write("file", all.substr(0, size));
        EXPECT_TRUE(readFile(path) == all.substr(0, size)) << size;
    }
    auto calls = kernelCalls();
    calls.pread = [](int descriptor, void* bytes, std::size_t size, off_t offset) {
        return ::pread(descriptor, bytes, std::min<std::size_t>(size, 1000), offset);
    };
    const ScopedSystemCalls scope(calls);
    EXPECT_TRUE(readFile(directory / "file") == all);
}

TEST(ReadFile, ReadsWhatTheKernelWritesButNotWithoutEnd) {
    EXPECT_NE(readFile("/proc/self/maps").find("[stack]"), std::string::npos);

    const ScratchDirectory directory;
    const auto path = directory.write("endless", "");
    auto calls = kernelCalls();
    calls.pread = [](int, void*, std::size_t size, off_t) { return static_cast<ssize_t>(size); };
    const ScopedSystemCalls scope(calls);
    EXPECT_EQ(errorNumberOf([&] { readFile(path); }), error_number::pathAccess);
}

TEST(ReadFile, SaysThatMemoryDoesNotSuffice) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer ends the process at so large a request";
#endif
    const ScratchDirectory directory;
    const auto path = directory.write("huge", "");
    auto calls = kernelCalls();
    calls.fstat = [](int descriptor, struct stat* status) {
        const int result = ::fstat(descriptor, status);
        status->st_size = off_t{1} << 62;
        return result;
    };
    const ScopedSystemCalls scope(calls);
    EXPECT_EQ(errorNumberOf([&] { readFile(path); }), error_number::outOfMemory);
}

TEST(Files, RefuseAtOnceWhatIsNoFile) {
    const ScratchDirectory directory;
    directory.write("file", "x");
    ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", directory / "link to pipe");
    fs::create_symlink("loop", directory / "loop");
    fs::create_symlink("nowhere", directory / "dangling");
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (directory / "socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);

    const struct {
        std::string path;
        int readNumber;
        int saveNumber;
    } rows[] = {
        {directory.path(), error_number::pathAccess, error_number::pathAccess},
        {directory / "pipe", error_number::pathAccess, error_number::pathAccess},
        {directory / "link to pipe", error_number::pathAccess, error_number::pathAccess},
        {directory / "socket", error_number::pathAccess, error_number::pathAccess},
        {"/dev/zero", error_number::pathAccess, error_number::pathAccess},
        {"/dev/full", error_number::pathAccess, error_number::pathAccess},
        {directory / "loop", error_number::pathAccess, error_number::pathAccess},
        {directory / "dangling", error_number::fileNotFound, error_number::pathNotFound},
        {directory / "file/below", error_number::pathNotFound, error_number::pathNotFound},
        {directory / std::string(256, 'n'), error_number::badFileName, error_number::badFileName},
        {"", error_number::fileNotFound, error_number::pathNotFound},
    };
    const auto openBefore = openFileCount();
    const auto start = std::chrono::steady_clock::now();
    for (const auto& row : rows) {
        EXPECT_EQ(errorNumberOf([&] { readFile(row.path); }), row.readNumber) << row.path;
        EXPECT_EQ(errorNumberOf([&] { saveFileInPlace(row.path, "text"); }), row.saveNumber) << row.path;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(openFileCount(), openBefore);
    close(listener);
}

/// Another user without rights, when the test runs as root.
class AsNobody {
public:
    AsNobody() {
        if (root_ && seteuid(65534) != 0) throw std::runtime_error("seteuid");
    }
    ~AsNobody() {
        if (root_ && seteuid(0) != 0) std::abort();
    }

private:
    bool root_ = geteuid() == 0;
};

TEST(Files, TellWhatTheUserMayNotDo) {
    const ScratchDirectory directory;
    chmod(directory.path().c_str(), 0755);
    const auto secret = directory.write("secret", "x");
    const auto shown = directory.write("shown", "x");
    chmod(secret.c_str(), 0000);
    if (geteuid() != 0) chmod(shown.c_str(), 0444);
    const AsNobody scope;
    EXPECT_EQ(errorNumberOf([&] { readFile(secret); }), error_number::permissionDenied);
    EXPECT_EQ(errorNumberOf([&] { saveFileInPlace(shown, "y"); }), error_number::permissionDenied);
    EXPECT_TRUE(isReadOnly(shown));
    EXPECT_EQ(readFile(shown), "x");
}

TEST(AppendToFile, AddsLinesAndFollowsNoLink) {
    const ScratchDirectory directory;
    EXPECT_TRUE(appendToFile(directory / "log", "one\n"));
    EXPECT_TRUE(appendToFile(directory / "log", "two\n"));
    EXPECT_EQ(directory.read("log"), "one\ntwo\n");

    directory.write("victim", "x");
    fs::create_symlink("victim", directory / "link");
    mkfifo((directory / "pipe").c_str(), 0600);
    const int reader = open((directory / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    for (const auto& path : {directory / "link", directory / "pipe", directory / "missing/log", directory.path(),
                             std::string("/dev/full")}) {
        EXPECT_FALSE(appendToFile(path, "line\n")) << path;
    }
    close(reader);
    EXPECT_EQ(directory.read("victim"), "x");
}

TEST(NameMatches, StarsAndQuestionMarksWithoutRegardToCase) {
    const struct {
        const char* name;
        const char* pattern;
        bool matches;
    } rows[] = {
        {"index.HTM", "*.htm", true},
        {"index.html", "*.htm", false},
        {"index", "*.*", true},
        {"index", "*", true},
        {"", "*", true},
        {"", "", true},
        {"a", "", false},
        {"a.b.c", "*.c", true},
        {"abc", "a?c", true},
        {"ac", "a?c", false},
        {"aéc", "a?c", true},
        {"ÉTÉ.txt", "été.*", true},
        {"bad\xFF.htm", "bad?.HTM", true},
        {"a[1].htm", "a[1].*", true},
        {"abcabd", "*ab?", true},
        {"mississippi", "m*iss*pi", true},
        {"mississippi", "*issx*", false},
        {"abc", "abc**", true},
        {"x\ny", "x*y", true},
    };
    for (const auto& row : rows) EXPECT_EQ(nameMatches(row.name, row.pattern), row.matches) << row.name << row.pattern;

    // Tried at each place for each star this would take for ever.
    std::string stars;
    for (int i = 0; i < 30; ++i) stars += "*a";
    EXPECT_FALSE(nameMatches(std::string(250, 'a'), stars + "b"));
}

TEST(Listing, CountsFilesOfAnyNameAndNoDirectories) {
    const ScratchDirectory directory;
    for (const char* name : {"b.htm", "Ä.HTM", "a.htm", "bad\xFF\xE9.htm", "note.txt", ".hidden", "README"}) {
        directory.write(name, "");
    }
    fs::create_directory(directory / "folder.htm");
    fs::create_directory_symlink("folder.htm", directory / "link to folder.htm");
    fs::create_symlink("a.htm", directory / "link.htm");
    fs::create_symlink("nowhere", directory / "dangling.htm");

    using Names = std::vector<std::string>;
    EXPECT_EQ(filesMatching(directory.path(), "*.htm"),
              (Names{"a.htm", "Ä.HTM", "b.htm", "bad\xFF\xE9.htm", "link.htm"}));
    EXPECT_EQ(filesMatching(directory.path(), "*.*").size(), 8U);
    EXPECT_EQ(filesMatching(directory / "missing", "*"), Names{});

    const struct {
        const char* path;
        bool found;
    } rows[] = {
        {"a.htm", true},         {"A.htm", false},        {"A.ht?", true},
        {"*.txt", true},         {"*.css", false},        {"bad*", true},
        {"folder.htm", false},   {"folder*", false},      {"*", true},
        {"missing/*", false},    {"folder.htm/*", false}, {"folder.htm/", false},
        {"dangling.htm", false}, {"link.htm", true},      {"", false},
    };
    for (const auto& row : rows) EXPECT_EQ(listingFinds(directory / row.path), row.found) << row.path;
    EXPECT_FALSE(listingFinds(""));
    EXPECT_FALSE(listingFinds("C:\\web\\*.htm"));
}

TEST(Files, RenameOverTheTargetAndRemove) {
    const ScratchDirectory directory;
    directory.write("new", "n");
    directory.write("old", "o");
    renameFile(directory / "new", directory / "old");
    EXPECT_EQ(directory.read("old"), "n");
    EXPECT_EQ(directory.entryCount(), 1U);
    removeFile(directory / "old");
    EXPECT_EQ(directory.entryCount(), 0U);

    EXPECT_EQ(errorNumberOf([&] { renameFile(directory / "old", directory / "new"); }), error_number::fileNotFound);
    EXPECT_EQ(errorNumberOf([&] { removeFile(directory / "old"); }), error_number::fileNotFound);
    EXPECT_EQ(errorNumberOf([&] { removeFile(directory.path()); }), error_number::pathAccess);
    EXPECT_TRUE(isDirectory(directory.path()));
    EXPECT_FALSE(isDirectory(directory / "old"));
}

}  // namespace
}  // namespace kelvor
