// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/paths.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(Paths, AreTakenApartAndJoinedByTheirOwnRules) {
    const struct {
        const char* path;
        bool foreign;
        const char* directory;
        const char* name;
    } rows[] = {
        {"/home/a/x.htm", false, "/home/a", "x.htm"},
        {"/x.htm", false, "/", "x.htm"},
        {"x.htm", false, "", "x.htm"},
        {"/home/a/", false, "/home/a", ""},
        {"/home/a\\b.htm", false, "/home", "a\\b.htm"},
        {"c:x.htm", false, "", "c:x.htm"},
        {"1:\\x.htm", false, "", "1:\\x.htm"},
        {"C:", true, "", "C:"},
        {"c:\\x.htm", true, "c:", "x.htm"},
        {"\\\\server\\share\\x.htm", true, "\\\\server\\share", "x.htm"},
        {"\\\\server", true, "\\\\", "server"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isForeignPath(row.path), row.foreign) << row.path;
        EXPECT_EQ(directoryPart(row.path), row.directory) << row.path;
        EXPECT_EQ(fileNamePart(row.path), row.name) << row.path;
        EXPECT_EQ(joinPath(row.directory, row.name), row.path);
    }
    EXPECT_EQ(directoryPart("C:/web/x.htm"), "C:/web");
    EXPECT_EQ(joinPath("/home/a/", "x.htm"), "/home/a/x.htm");
    EXPECT_EQ(joinPath("/a\\", "x"), "/a\\/x");
}

}  // namespace
}  // namespace kelvor
