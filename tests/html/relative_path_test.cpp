// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/relative_path.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace kelvor {
namespace {

TEST(RelativePath, LeadsFromTheDocumentToTheTarget) {
    for (const auto& [from, to, way] : {
             std::tuple{"C:\\A\\B\\x.htm", "c:\\a\\b\\Y.htm", "Y.htm"},
             {"C:\\Été\\x.htm", "c:\\éTÉ\\y.htm", "y.htm"},
             {"C:\\a\\b\\x.htm", "C:\\a\\y.htm", "../y.htm"},
             {"C:\\x.htm", "C:\\A\\b\\y.htm", "A/b/y.htm"},
             {"\\\\Server\\one\\x.htm", "\\\\server\\two\\y.htm", "../two/y.htm"},
             {"\\\\one\\share\\x.htm", "\\\\two\\share\\y.htm", "\\\\two\\share\\y.htm"},
             {"C:\\a\\x.htm", "\\\\server\\share\\y.htm", "\\\\server\\share\\y.htm"},
             {"/web/a/x.htm", "/Web/a/y.htm", "../../Web/a/y.htm"},
             {"/x.htm", "/a/b\\c/y.htm", "a/b\\c/y.htm"},
             {"/web/x.htm", "C:\\web\\y.htm", "C:\\web\\y.htm"},
         }) {
        EXPECT_EQ(relativePath(from, to, false, '/'), way) << from;
        EXPECT_EQ(relativePath(from, to, true, '/'), to);
    }
    EXPECT_EQ(relativePath("C:\\a\\b\\x.htm", "C:\\c\\y.htm", false, '\\'), "..\\..\\c\\y.htm");
    EXPECT_EQ(relativePath("/a/x.htm", "/b/y.htm", false, '\\'), "../b/y.htm");
    EXPECT_THROW(relativePath("page.htm", "/b/y.htm", false, '/'), Error);
    EXPECT_THROW(relativePath("C:\\a\\x.htm", "page.htm", false, '/'), Error);
}

}  // namespace
}  // namespace kelvor
