// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/filter_rows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "frame/file_dialogs.h"

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

TEST(FilterRows, OfTheDocumentsFindWhatTheyName) {
    for (const FilterRow& row : filterRows(documentFilter)) {
        const auto named = std::count(row.name.begin(), row.name.end(), '.');
        EXPECT_EQ(named, static_cast<std::ptrdiff_t>(row.patterns.size())) << row.name;
        for (const std::string& pattern : row.patterns) EXPECT_NE(row.name.find(pattern), row.name.npos) << row.name;
    }
    EXPECT_EQ(filterRows(documentFilter).size(), 8U);
}

}  // namespace
}  // namespace kelvor
