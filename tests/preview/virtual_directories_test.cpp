#include "preview/virtual_directories.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/error.h"
#include "tests/fake_platform.h"

namespace kelvor {
namespace {

class VirtualDirs : public testing::Test {
protected:
    VirtualDirs() { manager.setVDirFilePath(files.path("VDirs.txt")); }

    std::vector<std::string> table() {
        std::vector<std::string> rows;
        for (const auto& mapping : manager.VirtualDirectories().items())
            rows.push_back(mapping->FileSystemPath() + "=" + mapping->URL());
        return rows;
    }

    TestDirectory files;
    FakePlatform platform;
    CVirtualDirManager manager;
};

TEST_F(VirtualDirs, MapsByPlainReplacementAndTheFirstChangeWins) {
    struct Case {
        const char* path;
        const char* url;
    };
    VirtualDirectories& directories = manager.VirtualDirectories();
    directories.Add("C:\\web", "http://localhost", "1");
    directories.Add("/srv/www/shop", "http://shop", "2");
    directories.Add("/srv/www", "http://site", "3");
    directories.Add("\xC3\x89t\xC3\xA9", "http://summer", "4");
    for (const Case& row : {
             Case{"c:\\WEB\\a\\b.html", "http://localhost\\a\\b.html"},
             {"/srv/www/shop/x.htm", "http://shop/x.htm"},
             {"/srv/www/x.htm", "http://site/x.htm"},
             {"/mirror/srv/www/srv/www/x", "/mirrorhttp://sitehttp://site/x"},
             {"/home/\xC3\xA9T\xC3\x89/x.htm", "/home/http://summer/x.htm"},
             {"/elsewhere/x.htm", "/elsewhere/x.htm"},
             {"", ""},
         }) {
        EXPECT_EQ(manager.GetVDirForPath(row.path), row.url) << row.path;
    }
}

TEST_F(VirtualDirs, ReadsItsFileUpToTheFirstFault) {
    struct Case {
        const char* bytes;
        bool good;
        std::vector<std::string> rows;
    };
    for (const Case& row : {
             Case{"/a|http://a\r\n/b|http://b", true, {"/a=http://a", "/b=http://b"}},
             {"/a|http://a|dropped|too\n", true, {"/a=http://a"}},
             {"/caf\xE9|http://cafe\n", true, {"/caf\xC3\xA9=http://cafe"}},
             {"/a|\n|http://b\n", true, {"/a=", "=http://b"}},
             {"/a|http://a\n\n/b|http://b\n", false, {"/a=http://a"}},
             {"/a|http://a\nno bar\n/b|http://b\n", false, {"/a=http://a"}},
             {"/a|http://a\n/A|http://again\n", false, {"/a=http://a"}},
         }) {
        files.write("VDirs.txt", row.bytes);
        manager.setVirtualDirectories({});
        EXPECT_EQ(manager.ReadVDirs(), row.good) << row.bytes;
        EXPECT_EQ(table(), row.rows) << row.bytes;
    }
}

TEST_F(VirtualDirs, AMissingFileIsMadeAndAnUnreadableOneFails) {
    EXPECT_TRUE(manager.ReadVDirs());
    EXPECT_TRUE(std::filesystem::exists(files.path("VDirs.txt")));
    std::filesystem::remove(files.path("VDirs.txt"));
    std::filesystem::create_directory(files.path("VDirs.txt"));
    EXPECT_FALSE(manager.ReadVDirs());
    EXPECT_TRUE(files.read("program/errorlog.txt").starts_with("long 2026-11-21 75 "));
}

TEST_F(VirtualDirs, WritesItsFileInOrderAndDeletesAnEmptyOne) {
    manager.VirtualDirectories().Add("/b", "http://b", "/b");
    manager.VirtualDirectories().Add("/a", "http://a", "/a");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/b|http://b\n/a|http://a\n");
    manager.VirtualDirectories().Remove("/B");
    manager.VirtualDirectories().Remove("/a");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_FALSE(std::filesystem::exists(files.path("VDirs.txt")));
}

TEST_F(VirtualDirs, KeepsTheEncodingOfItsFileUnlessItLacksACharacter) {
    files.write("VDirs.txt", "/caf\xE9|http://cafe\n");
    ASSERT_TRUE(manager.ReadVDirs());
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/caf\xE9|http://cafe\n");
    manager.VirtualDirectories().Add("/\xE4\xB8\xAD", "http://zh", "zh");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/caf\xC3\xA9|http://cafe\n/\xE4\xB8\xAD|http://zh\n");
}

TEST_F(VirtualDirs, AReadOnlyFileFailsToBeWrittenAndStays) {
    files.write("VDirs.txt", "/a|http://a\n");
    chmod(files.path("VDirs.txt").c_str(), 0444);
    manager.VirtualDirectories().Add("/b", "http://b", "/b");
    EXPECT_FALSE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/a|http://a\n");
}

TEST_F(VirtualDirs, ADuplicateKeyReachesTheCaller) {
    manager.VirtualDirectories().Add("/web/", "http://a/", "/web/");
    try {
        manager.VirtualDirectories().Add("/WEB/", "http://b/", "/WEB/");
        FAIL() << "the key is taken";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), error_number::duplicateKey);
    }
    EXPECT_EQ(manager.VirtualDirectories().Count(), 1U);
}

}  // namespace
}  // namespace kelvor
