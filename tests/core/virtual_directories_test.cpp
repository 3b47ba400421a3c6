// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/virtual_directories.h"

#include <sys/stat.h>

#include <filesystem>

#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

class VirtualDirs : public testing::Test {
protected:
    VirtualDirs() { manager.setVDirFilePath(path); }

    std::string table() {
        std::string rows;
        for (const auto& mapping : manager.VirtualDirectories().items())
            rows += mapping->FileSystemPath() + "=" + mapping->URL() + " ";
        return rows;
    }

    TestDirectory files;
    const std::string path = files.path("VDirs.txt");
    FakePlatform platform;
    CVirtualDirManager manager;
};

TEST_F(VirtualDirs, MapsByPlainReplacementAndTheFirstChangeWins) {
    VirtualDirectories& directories = manager.VirtualDirectories();
    directories.Add("C:\\web", "http://localhost", "1");
    directories.Add("/srv/www/shop", "http://shop", "2");
    directories.Add("/srv/www", "http://site", "3");
    directories.Add("\xC3\x89t\xC3\xA9", "http://summer", "4");
    directories.Add("/q#1", "http://q/?a=%41&file=", "5");
    for (const auto& [local, url, encoded] : {
             std::tuple{"c:\\WEB\\a\\b.html", "http://localhost\\a\\b.html", "http://localhost%5Ca%5Cb.html"},
             {"/srv/www/shop/x.htm", "http://shop/x.htm", "http://shop/x.htm"},
             {"/mirror/srv/www/srv/www/x", "/mirrorhttp://sitehttp://site/x", "/mirrorhttp://sitehttp://site/x"},
             {"/home/\xC3\xA9T\xC3\x89/x.htm", "/home/http://summer/x.htm", "/home/http://summer/x.htm"},
             {"/srv/www/a b#1?%41\xC3\xA9.htm", "http://site/a b#1?%41\xC3\xA9.htm",
              "http://site/a%20b%231%3F%2541%C3%A9.htm"},
             {"/q#1/n#1&.htm", "http://q/?a=%41&file=/n#1&.htm", "http://q/?a=%41&file=/n%231%26.htm"},
             {"/elsewhere/x.htm", "/elsewhere/x.htm", ""},
         }) {
        EXPECT_EQ(manager.GetVDirForPath(local), url) << local;
        EXPECT_EQ(manager.encodedURLForPath(local), encoded) << local;
    }
}

TEST_F(VirtualDirs, ReadsItsFileUpToTheFirstFault) {
    for (const auto& [bytes, cause, rows] : {
             std::tuple{"/a|http://a\r\n/b|http://b", "", "/a=http://a /b=http://b "},
             {"/a|http://a|dropped|too\n", "", "/a=http://a "},
             {"/a|\n|http://b\n", "", "/a= =http://b "},
             {"/a|http://a\n\n/b|http://b\n", "Line 2 has no \"|\".", "/a=http://a "},
             {"/a|http://a\nno bar\n/b|http://b\n", "Line 2 has no \"|\".", "/a=http://a "},
             {"/a|http://a\n/A|http://again\n", "Line 2 maps a path that is mapped already.", "/a=http://a "},
         }) {
        files.write("VDirs.txt", bytes);
        manager.setVirtualDirectories({});
        EXPECT_EQ(manager.ReadVDirs().cause(), cause) << bytes;
        EXPECT_EQ(table(), rows) << bytes;
    }
}

TEST_F(VirtualDirs, MakesAMissingFileWritesItInOrderAndDeletesAnEmptyOne) {
    EXPECT_TRUE(manager.ReadVDirs());
    EXPECT_TRUE(std::filesystem::exists(path));
    manager.VirtualDirectories().Add("/b", "http://b", "/b");
    manager.VirtualDirectories().Add("/a", "http://a", "/a");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/b|http://b\n/a|http://a\n");
    manager.VirtualDirectories().Remove("/B");
    chmod(path.c_str(), 0444);
    EXPECT_EQ(manager.WriteVDirs().cause(), "The file is read-only.");
    EXPECT_EQ(files.read("VDirs.txt"), "/b|http://b\n/a|http://a\n") << "it must not be written";
    manager.VirtualDirectories().Remove("/a");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_FALSE(std::filesystem::exists(path));
    std::filesystem::create_directory(path);
    EXPECT_FALSE(manager.ReadVDirs());
    EXPECT_NE(files.read("program/errorlog.txt").find(" 75 "), std::string::npos);
}

TEST_F(VirtualDirs, KeepsTheEncodingOfItsFileUnlessItLacksACharacter) {
    files.write("VDirs.txt", "/caf\xE9|http://cafe\n");
    ASSERT_TRUE(manager.ReadVDirs());
    EXPECT_EQ(table(), "/caf\xC3\xA9=http://cafe ");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/caf\xE9|http://cafe\n");
    manager.VirtualDirectories().Add("/\xE4\xB8\xAD", "http://zh", "zh");
    EXPECT_TRUE(manager.WriteVDirs());
    EXPECT_EQ(files.read("VDirs.txt"), "/caf\xC3\xA9|http://cafe\n/\xE4\xB8\xAD|http://zh\n");
}

}  // namespace
}  // namespace kelvor
