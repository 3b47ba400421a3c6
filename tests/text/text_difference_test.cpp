// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_difference.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(TextDifference, ToldChangesAreOfWholeCharacters) {
    const struct {
        std::string before;
        std::string after;
        std::size_t position;
        std::string removed;
        std::string inserted;
    } rows[] = {
        {"", "", 0, "", ""},
        {"same", "same", 4, "", ""},
        {"aXXb", "aXb", 2, "X", ""},
        {"äé", "äè", 2, "é", "è"},
        {"\u00E9x", "\u0129x", 0, "\u00E9", "\u0129"},  // their last bytes are the same
        {"ab", "", 0, "ab", ""},
        {"one two", "ONE two!", 0, "one two", "ONE two!"},
    };
    for (const auto& row : rows) {
        const TextChange change = changeBetween(row.before, row.after);
        EXPECT_EQ(change.position, row.position) << row.before;
        EXPECT_EQ(change.removed, row.removed) << row.before;
        EXPECT_EQ(change.inserted, row.inserted) << row.before;
    }
}

}  // namespace
}  // namespace kelvor
