// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/filter_rows.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

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
        const auto open = row.name.find('(');
        std::multiset<std::string> named;
        std::istringstream list(row.name.substr(open + 1, row.name.size() - open - 2));
        for (std::string pattern; std::getline(list >> std::ws, pattern, ',');) named.insert(pattern);
        EXPECT_EQ(std::multiset<std::string>(row.patterns.begin(), row.patterns.end()), named) << row.name;
    }
    EXPECT_EQ(filterRows(documentFilter).size(), 8U);
}

}  // namespace
}  // namespace kelvor
