// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/filter_rows.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(FilterRows, AreNamesWithTheirPatterns) {
    const auto told = [](const char* filter) {
        std::string text;
        for (const FilterRow& row : filterRows(filter)) {
            text += row.name + ":";
            for (const std::string& pattern : row.patterns) text += pattern + ",";
        }
        return text;
    };
    EXPECT_EQ(told("All Files (*.*)|*.*|Pages (*.asp)|*.asp;"), "All Files (*.*):*.*,Pages (*.asp):*.asp,");
    EXPECT_EQ(told(" A| *.a ; *.b |Empty||rest"), "A:*.a,*.b,Empty:*.*,");
    EXPECT_EQ(told("No pattern"), "All Files:*.*,");
    const FilterRow row{"", {"*.a", "*.b"}};
    EXPECT_TRUE(matches("X.B", row));
    EXPECT_FALSE(matches("x.c", row));
}

}  // namespace
}  // namespace kelvor
