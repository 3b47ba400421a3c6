// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_difference.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(TextDifference, ToldChangesAreOfWholeCharacters) {
    for (const auto& [before, after, position, removed, inserted] : {
             std::tuple{"", "", 0U, "", ""},
             {"same", "same", 4, "", ""},
             {"aXXb", "aXb", 2, "X", ""},
             {"äé", "äè", 2, "é", "è"},
             {"\u00E9x", "\u0129x", 0, "\u00E9", "\u0129"},  // their last bytes are the same
             {"ab", "", 0, "ab", ""},
             {"one two", "ONE two!", 0, "one two", "ONE two!"},
         }) {
        const TextChange change = changeBetween(before, after);
        EXPECT_EQ(change.position, position) << before;
        EXPECT_EQ(change.removed, removed) << before;
        EXPECT_EQ(change.inserted, inserted) << before;
    }
}

}  // namespace
}  // namespace kelvor
