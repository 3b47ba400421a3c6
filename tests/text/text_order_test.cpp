// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_order.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(TextOrder, SortsNamesAsAPersonDoesAndKeepsDifferentOnesApart) {
    const std::vector<std::string> sorted = {"_old.htm", "a.htm", "A.htm", "Ä.htm", "B.htm",
                                             "éa",       "eb",    "Z.htm", "Ω",     "я"};
    std::vector<std::string> names(sorted.rbegin(), sorted.rend());
    sortAsText(names);
    EXPECT_EQ(names, sorted);
    for (std::size_t i = 1; i < sorted.size(); ++i) EXPECT_LT(compareText(sorted[i - 1], sorted[i]), 0) << sorted[i];
    EXPECT_NE(compareText("a\xFF", "a\xFE"), 0);
    EXPECT_EQ(compareText("e\u0301", "é") < 0, compareText("é", "e\u0301") > 0);
}

}  // namespace
}  // namespace kelvor
