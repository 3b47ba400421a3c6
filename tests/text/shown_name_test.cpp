// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/shown_name.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(ShownName, ShowsEachNameOnOneLine) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"/home/Größe 日本 😀/a&b.htm", "/home/Größe 日本 😀/a&b.htm"},
        {R"(C:\new\table.htm)", R"(C:\new\table.htm)"},
        {"a\nb\r\n\tc", R"(a\nb\r\n\tc)"},
        {{"\0\x1B[2J\x7F", 6}, R"(\x00\x1B[2J\x7F)"},
        {"a\u0085b\u00A0c\u2028d", "a\\u0085b\u00A0c\\u2028d"},
        {"photo\u202Egnp.exe \u2066x", R"(photo\u202Egnp.exe \u2066x)"},
        {"caf\xE9.htm \xE6\x97", R"(caf\xE9.htm \xE6\x97)"},
    };
    for (const auto& [name, shown] : rows) EXPECT_EQ(shownName(name), shown);
}

}  // namespace
}  // namespace kelvor
