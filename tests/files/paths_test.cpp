// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/paths.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(Paths, AreTakenApartAndJoinedByTheirOwnRules) {
    for (const auto& [path, foreign, directory, name] : {
             std::tuple{"/home/a/x.htm", false, "/home/a", "x.htm"},
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
         }) {
        EXPECT_EQ(isForeignPath(path), foreign) << path;
        EXPECT_EQ(directoryPart(path), directory) << path;
        EXPECT_EQ(fileNamePart(path), name) << path;
        EXPECT_EQ(joinPath(directory, name), path);
    }
    EXPECT_EQ(directoryPart("C:/web/x.htm"), "C:/web");
    EXPECT_EQ(joinPath("/home/a/", "x.htm"), "/home/a/x.htm");
    EXPECT_EQ(joinPath("/a\\", "x"), "/a\\/x");
}

}  // namespace
}  // namespace kelvor
