// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/letter_case.h"

#include <gtest/gtest.h>

#include "text/code_points.h"

namespace kelvor {
namespace {

TEST(LetterCase, MapsAndComparesLettersOfAllScripts) {
    for (const auto& [text, upper, lower, folded] : {
             std::tuple{"Ab-9 <BR>", "AB-9 <BR>", "ab-9 <br>", "ab-9 <br>"},
             {"Größe", "GRÖSSE", "größe", "größe"},
             {"ΟΔΟΣ", "ΟΔΟΣ", "οδος", "οδοσ"},
             {"iIıİ", "IIIİ", "iiıi̇", "iiıİ"},
             {"\u212Aſ日", "\u212AS日", "kſ日", "ks日"},
         }) {
        EXPECT_EQ(toUpper(text), upper) << text;
        EXPECT_EQ(toLower(text), lower) << text;
        EXPECT_EQ(foldCase(text), folded) << text;
        EXPECT_TRUE(equalIgnoringCase(text, folded)) << text;
    }
    EXPECT_EQ(foldCase("A\xFF\xE9 \xC3"), "a\xFF\xE9 \xC3");
    EXPECT_EQ(characterCount("e\u0301日本語日本語日本語\U0001F600"), 12U);
    const char* different[][2] = {{"", "a"}, {"href", "hre"}, {"straße", "STRASSE"}, {"\xE9", "\xC9"}, {"[", "{"}};
    for (const auto& [left, right] : different) EXPECT_FALSE(equalIgnoringCase(left, right)) << left << " " << right;
}

}  // namespace
}  // namespace kelvor
