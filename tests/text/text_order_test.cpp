// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_order.h"

#include <gtest/gtest.h>
#include <algorithm>

namespace kelvor {
namespace {

TEST(TextOrder, SortsNamesAsAPersonDoesAndKeepsDifferentOnesApart) {
    const std::vector<std::string> sorted = {"_old.htm", "a.htm", "A.htm", "Ä.htm", "B.htm",
                                             "éa",       "eb",    "Z.htm", "Ω",     "я"};
    auto names = sorted;
    std::reverse(names.begin(), names.end());
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) { return compareText(a, b) < 0; });
    EXPECT_EQ(names, sorted);
    std::reverse(names.begin(), names.end());
    sortAsText(names);
    EXPECT_EQ(names, sorted);
    EXPECT_NE(compareText("a\xFF", "a\xFE"), 0);
    EXPECT_EQ(compareText("e\u0301", "é") < 0, compareText("é", "e\u0301") > 0);
}

}  // namespace
}  // namespace kelvor
