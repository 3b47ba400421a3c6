// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/letter_case.h"

#include <gtest/gtest.h>

#include "text/code_points.h"

namespace kelvor {
namespace {

TEST(LetterCase, MapsAndComparesLettersOfAllScripts) {
    const struct {
        const char* text;
        const char* upper;
        const char* lower;
        const char* folded;
    } rows[] = {
        {"Ab-9 <BR>", "AB-9 <BR>", "ab-9 <br>", "ab-9 <br>"},
        {"Größe", "GRÖSSE", "größe", "größe"},
        {"ΟΔΟΣ", "ΟΔΟΣ", "οδος", "οδοσ"},
        {"iIıİ", "IIIİ", "iiıi̇", "iiıİ"},
        {"\u212Aſ日", "\u212AS日", "kſ日", "ks日"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(toUpper(row.text), row.upper) << row.text;
        EXPECT_EQ(toLower(row.text), row.lower) << row.text;
        EXPECT_EQ(foldCase(row.text), row.folded) << row.text;
        EXPECT_TRUE(equalIgnoringCase(row.text, row.folded)) << row.text;
    }
    EXPECT_EQ(foldCase("A\xFF\xE9 \xC3"), "a\xFF\xE9 \xC3");
    EXPECT_EQ(characterCount("e\u0301日本語日本語日本語\U0001F600"), 12U);
    const char* different[][2] = {{"", "a"}, {"href", "hre"}, {"straße", "STRASSE"}, {"\xE9", "\xC9"}, {"[", "{"}};
    for (const auto& [left, right] : different) EXPECT_FALSE(equalIgnoringCase(left, right)) << left << " " << right;
}

}  // namespace
}  // namespace kelvor
