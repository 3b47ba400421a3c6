#include "authoring/relative_path.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/error.h"

namespace kelvor {
namespace {

TEST(RelativePath, LeadsFromTheDocumentToTheTarget) {
    const std::array<const char*, 3> rows[] = {
        {"C:\\web\\a\\page.html", "C:\\web\\b\\pic.gif", "../b/pic.gif"},
        {"C:\\A\\B\\x.htm", "c:\\a\\b\\Y.htm", "Y.htm"},
        {"C:\\\xC3\x89t\xC3\xA9\\x.htm", "c:\\\xC3\xA9T\xC3\x89\\y.htm", "y.htm"},
        {"C:\\a\\b\\x.htm", "C:\\a\\y.htm", "../y.htm"},
        {"C:\\x.htm", "C:\\A\\b\\y.htm", "A/b/y.htm"},
        {"C:\\a\\x.htm", "D:\\a\\y.htm", "D:\\a\\y.htm"},
        {"\\\\Server\\share\\a\\x.htm", "\\\\server\\Share\\b\\y.htm", "../b/y.htm"},
        {"\\\\server\\one\\x.htm", "\\\\server\\two\\y.htm", "../two/y.htm"},
        {"\\\\one\\share\\x.htm", "\\\\two\\share\\y.htm", "\\\\two\\share\\y.htm"},
        {"C:\\a\\x.htm", "\\\\server\\share\\y.htm", "\\\\server\\share\\y.htm"},
        {"/web/a/page.html", "/web/b/pic.gif", "../b/pic.gif"},
        {"/web/a/x.htm", "/Web/a/y.htm", "../../Web/a/y.htm"},
        {"/x.htm", "/a/b\\c/y.htm", "a/b\\c/y.htm"},
        {"/web/x.htm", "C:\\web\\y.htm", "C:\\web\\y.htm"},
    };
    for (const auto& [from, to, way] : rows) {
        EXPECT_EQ(relativePath(from, to, false, '/'), way) << from;
        EXPECT_EQ(relativePath(from, to, true, '/'), to);
    }
    EXPECT_EQ(relativePath("C:\\a\\b\\x.htm", "C:\\c\\y.htm", false, '\\'), "..\\..\\c\\y.htm");
    EXPECT_EQ(relativePath("/a/x.htm", "/b/y.htm", false, '\\'), "../b/y.htm");
    EXPECT_THROW(relativePath("page.htm", "/b/y.htm", false, '/'), Error);
    EXPECT_THROW(relativePath("C:\\a\\x.htm", "page.htm", false, '/'), Error);
}

TEST(SplitToCollection, KeepsEmptyPartsAndIgnoresCase) {
    using Parts = std::vector<std::string>;
    EXPECT_EQ(splitToCollection("\\\\a\\b\\", "\\"), (Parts{"", "", "a", "b", ""}));
    EXPECT_EQ(splitToCollection("1\xC3\x89 2\xC3\xA9", "\xC3\xA9"), (Parts{"1", " 2", ""}));
    EXPECT_EQ(splitToCollection("page.htm", "/"), Parts());
}

}  // namespace
}  // namespace kelvor
