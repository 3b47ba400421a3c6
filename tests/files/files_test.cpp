// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/files.h"

#include "files/file_bytes.h"
#include "files/whole_file.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

TEST(ReadFile, GivesAllBytesHoweverTheyCome) {
    const ScratchDirectory directory;
    std::string bytes;
    for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    Saboteur saboteur{.mostBytes = 1000};
    const ScopedSystemCalls scope(saboteur.calls());
    EXPECT_TRUE(readFile(directory.write("file", bytes)) == bytes);
    EXPECT_EQ(readFile(directory.write("file", "")), "");
    // What the kernel writes as it is read has no size.
    EXPECT_NE(readFile("/proc/self/maps").find("[stack]"), std::string::npos);
}

TEST(FileBytes, AreAllThatAreThereThoughTheFileHadAnotherSize) {
    const ScratchDirectory directory;
    const auto path = directory.write("file", std::string(10000, 'x'));
    for (const off_t size : {1, 9999, 10001, 20000}) {
        auto calls = kernelCalls();
        calls.fstat = [size](int descriptor, struct stat* status) {
            const int result = ::fstat(descriptor, status);
            status->st_size = size;
            return result;
        };
        const ScopedSystemCalls scope(calls);
        EXPECT_EQ(FileBytes().read(path, [] {}), std::string(10000, 'x')) << size;
    }
}

TEST(Files, RefuseAtOnceWhatIsNoFile) {
    const ScratchDirectory directory;
    directory.write("file", "x");
    ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
    fs::create_symlink("loop", directory / "loop");
    fs::create_symlink("nowhere", directory / "dangling");
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {directory.path(), "75 This is a folder, not a file: ", ""},
        {directory / "pipe", "75 This is a pipe, not a file: ", ""},
        {"/dev/zero", "75 This is a device, not a file: ", ""},
        {directory / "loop", "75 The links lead in a circle: ", ""},
        {directory / "dangling", "53 File not found: ", "76 This is a link to a file that does not exist: "},
        {directory / "missing/file", "53 File not found: ", "76 The folder does not exist: "},
        {directory / "file/below", "76 The folder does not exist: ", ""},
        {directory / std::string(256, 'n'), "52 The file name is too long: ", ""},
    };
    for (const auto& [path, read, save] : rows) {
        EXPECT_EQ(errorOf([&, &path = path] { readFile(path); }), read + path);
        EXPECT_EQ(errorOf([&, &path = path] { saveFileInPlace(path, "text"); }), (save.empty() ? read : save) + path);
    }
    EXPECT_EQ(directory.entryCount(), 4U);
}

TEST(Files, TellWhatTheUserMayNotDo) {
    const ScratchDirectory directory;
    chmod(directory.path().c_str(), 0755);
    const auto readOnly = directory.write("read-only", "old");
    const auto shown = directory.write("shown", "old");
    const auto closed = directory.write("closed", "old");
    chmod(readOnly.c_str(), 0444);
    chmod(closed.c_str(), 0);
    // Root is bound by a file's mode, others by its owner too.
    EXPECT_TRUE(isReadOnly(readOnly));
    EXPECT_FALSE(isReadOnly(shown));
    EXPECT_FALSE(isReadOnly(directory / "missing"));
    EXPECT_EQ(errorOf([&] { saveFileInPlace(readOnly, "new"); }), "70 The file is read-only: " + readOnly);
    const bool ownsFiles = geteuid() != 0;
    const int status = asOrdinaryUser([&] {
        EXPECT_EQ(isReadOnly(shown), !ownsFiles);
        EXPECT_EQ(errorOf([&] { saveFileInPlace(readOnly, "new"); }), "70 The file is read-only: " + readOnly);
        EXPECT_EQ(errorOf([&] { saveFileInPlace(closed, "new"); }), "70 Permission denied: " + closed);
        EXPECT_EQ(errorOf([&] { saveFileInPlace(shown, "new"); }), ownsFiles ? "" : "70 Permission denied: " + shown);
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(directory.read("read-only"), "old");
}

TEST(AppendToFile, AddsLinesAndFollowsNoLink) {
    const ScratchDirectory directory;
    for (const char* line : {"one\n", "two\n"}) EXPECT_TRUE(appendToFile(directory / "log", line));
    EXPECT_EQ(directory.read("log"), "one\ntwo\n");
    EXPECT_EQ(fs::status(directory / "log").permissions(), fs::perms(0600));

    directory.write("victim", "x");
    fs::create_symlink("victim", directory / "link");
    mkfifo((directory / "pipe").c_str(), 0600);
    for (const char* name : {"link", "pipe", "missing/log", "."})
        EXPECT_FALSE(appendToFile(directory / name, "line\n")) << name;
    EXPECT_FALSE(appendToFile("/dev/null", "line\n"));
    EXPECT_EQ(directory.read("victim"), "x");
}

TEST(RenameFile, NeverTakesAnotherFilesPlace) {
    // Disks that know no rename of this kind, some of them no second names either.
    for (const auto& [ofRename, ofLink] :
         {std::pair(0, 0), {EINVAL, 0}, {ENOSYS, 0}, {EINVAL, EPERM}, {EINVAL, ENOSYS}, {EINVAL, EOPNOTSUPP}}) {
        const auto noRename = failing(&SystemCalls::renameToNew, ofRename);
        const auto noLink = failing(&SystemCalls::link, ofLink);
        const ScratchDirectory directory;
        const auto one = directory.write("one", "1");
        const auto two = directory.write("two", "2");
        EXPECT_EQ(errorOf([&] { renameFile(one, two); }), "58 File already exists: " + two);
        EXPECT_EQ(errorOf([&] { renameFile(directory / "none", two + "2"); }),
                  "53 File not found: " + directory / "none");
        EXPECT_EQ(directory.read("one") + directory.read("two"), "12");
        renameFile(one, directory / "three");
        EXPECT_EQ(directory.read("two") + directory.read("three"), "21");
        EXPECT_EQ(directory.entryCount(), 2U);
    }
}

TEST(RenameFile, KeepsTheNewNameWhereAnotherProgramTookTheOldOneAway) {
    const ScratchDirectory directory;
    const auto old = directory.write("old", "text");
    auto calls = kernelCalls();
    calls.renameToNew = [](auto...) { return errno = EINVAL, -1; };
    calls.unlink = [](const char* path) { return ::unlink(path), errno = ENOENT, -1; };
    const ScopedSystemCalls scope(calls);
    renameFile(old, directory / "new");
    EXPECT_EQ(directory.read("new"), "text");
}

TEST(WholeFile, ReadsAWholeFileAndEndsItsLinesBehindAnEndOfFileMark) {
    const ScratchDirectory files;
    for (const auto& [bytes, text] : {
             std::pair{"caf\xE9\n", "café\n"},
             {"a\n\x1A\rc\r\n\r\nd", "a\r\n\x1A\r\nc\r\n\r\nd\r\n"},
             {"\x1A\n", "\x1A\r\n"},
             {"a\nb\x1A", "a\nb\x1A"},
         })
        EXPECT_EQ(readWholeFile(files.write("file", bytes)), text);
    EXPECT_EQ(readWholeFile(files / "missing"), "error");
}

}  // namespace
}  // namespace kelvor
