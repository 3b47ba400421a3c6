// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/typed_paths.h"

#include <gtest/gtest.h>
#include <pwd.h>

#include <cstdlib>

namespace kelvor {
namespace {

using Paths = std::vector<std::string>;

TEST(TypedPaths, AreTheNamesThatAPersonMeans) {
    setenv("HOME", "/home/me", 1);
    const std::string rootsHome = getpwuid(0)->pw_dir;
    const std::pair<const char*, Paths> rows[] = {
        {"", {}},
        {" a b.htm ", {"/web/a b.htm"}},
        {"/a/b.htm", {"/a/b.htm"}},
        {"sub/a.htm", {"/web/sub/a.htm"}},
        {"../../../a.htm", {"/a.htm"}},
        {".//..", {"/"}},
        {"/a/", {"/a/"}},
        {"~/a b.htm", {"/home/me/a b.htm"}},
        {"~root/a", {rootsHome + "/a"}},
        {"~no such user", {"/web/~no such user"}},
        {"./~", {"/web/~"}},
        {" \"a\"  \"/b/c\"\t\"~/d\" ", {"/web/a", "/b/c", "/home/me/d"}},
        {"\"say \"\"hi\"\".htm\"", {"/web/say \"hi\".htm"}},
        {"\"\"\"a\"\"\" \"b\"", {"/web/\"a\"", "/web/b"}},
        // What is no row of names in quotes is one name.
        {"a\"b.htm", {"/web/a\"b.htm"}},
        {"\"a.htm", {"/web/\"a.htm"}},
        {"\"a\".htm", {"/web/\"a\".htm"}},
        {"\"a\"\"b\".htm", {"/web/\"a\"\"b\".htm"}},
        {"a \"b\"", {"/web/a \"b\""}},
        {"\"\"", {"/web/\"\""}},
        {"a.htm\r\n\n /b c.htm\n\"d\" \"e\"\n", {"/web/a.htm", "/b c.htm", "/web/d", "/web/e"}},
        {"\"a\"\n\"b\nc\"", {"/web/a", "/web/b\nc"}},
    };
    for (const auto& [text, paths] : rows) EXPECT_EQ(typedPaths(text, "/web"), paths) << text;
}

TEST(TypedPaths, OfASaveAreOneNameAsItStands) {
    for (const char* name : {"a\"b.htm", "\"a\" \"b\"", "\"a\"", "\"\"", "a\\b", "%41#?"})
        EXPECT_EQ(typedPath(" " + std::string(name) + " ", "/web"), "/web/" + std::string(name));
    EXPECT_EQ(typedPath("../a/./b", "/web/x"), "/web/a/b");
    EXPECT_EQ(typedPath("a\nb\n", "/web"), "/web/a b");
    EXPECT_EQ(typedPath(" \n", "/web"), "");
}

TEST(TypedPaths, ComeBackFromTheTextOfAnyNames) {
    const Paths names = {" a",   "a ",   "a b", "~",           "~root", "\"",   "\"\"", "\"a\"",
                         "a\"b", "a\nb", "\ta", "\"a\" \"b\"", "-rf",   "ä\"😀", "\\",   "a\rb"};
    Paths all;
    for (const std::string& name : names) {
        EXPECT_EQ(typedPaths(typedText({name}), "/web"), Paths{"/web/" + name}) << typedText({name});
        all.push_back("/web/" + name);
    }
    EXPECT_EQ(typedPaths(typedText(names), "/web"), all);
    EXPECT_EQ(typedText({"a b.htm"}), "a b.htm");
}

}  // namespace
}  // namespace kelvor
