#include "platform/text.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <vector>

#include "platform/code_points.h"

namespace kelvor {
namespace {

TEST(TextCase, MapsLettersOfAllScripts) {
    const struct {
        const char* text;
        const char* upper;
        const char* lower;
        const char* folded;
    } rows[] = {
        {"", "", "", ""},
        {"Ab-9 <BR>", "AB-9 <BR>", "ab-9 <br>", "ab-9 <br>"},
        {"Größe", "GRÖSSE", "größe", "größe"},
        {"ΟΔΟΣ", "ΟΔΟΣ", "οδος", "οδοσ"},
        {"Привет", "ПРИВЕТ", "привет", "привет"},
        {"iIıİ", "IIIİ", "iiıi̇", "iiıİ"},
        {"\u212Aſ", "\u212AS", "kſ", "ks"},
        {"\U00010400", "\U00010400", "\U00010428", "\U00010428"},
        {"日本\r\n", "日本\r\n", "日本\r\n", "日本\r\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(toUpper(row.text), row.upper) << row.text;
        EXPECT_EQ(toLower(row.text), row.lower) << row.text;
        EXPECT_EQ(foldCase(row.text), row.folded) << row.text;
    }
}

TEST(TextCase, FoldingKeepsTheNumberOfCharactersAndBytesThatAreNoText) {
    std::string all;
    for (UChar32 value = 1; value <= 0x10FFFF; ++value) {
        if (!U_IS_SURROGATE(value)) appendCodePoint(all, value);
    }
    const auto folded = foldCase(all);
    EXPECT_EQ(characterCount(folded), characterCount(all));
    EXPECT_EQ(foldCase(folded), folded);

    EXPECT_EQ(foldCase("A\xFF\xE9 \xC3"), "a\xFF\xE9 \xC3");
}

TEST(TextCase, EqualIgnoringCaseComparesWholeTexts) {
    const struct {
        const char* left;
        const char* right;
        bool equal;
    } rows[] = {
        {"", "", true},          {"", "a", false},           {"Href", "hREF", true},
        {"href", "hre", false},  {"É.html", "é.HTML", true}, {"straße", "STRASSE", false},
        {"ß", "ẞ", true},        {"k", "\u212A", true},      {"a\xFF", "A\xFF", true},
        {"\xE9", "\xC9", false}, {"@", "`", false},          {"[", "{", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(equalIgnoringCase(row.left, row.right), row.equal) << row.left << " " << row.right;
        EXPECT_EQ(equalIgnoringCase(row.right, row.left), row.equal) << row.right << " " << row.left;
    }
}

TEST(TextOrder, SortsNamesAsAPersonDoes) {
    const std::vector<std::string> sorted = {"_old.htm", "a.htm", "A.htm", "Ä.htm", "B.htm",
                                             "éa",       "eb",    "Z.htm", "Ω",     "я"};
    auto names = sorted;
    std::reverse(names.begin(), names.end());
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) { return compareText(a, b) < 0; });
    EXPECT_EQ(names, sorted);
}

TEST(TextOrder, PutsDifferentNamesNeverInOnePlace) {
    EXPECT_EQ(compareText("same", "same"), 0);
    EXPECT_NE(compareText("a\xFF", "a\xFE"), 0);
    EXPECT_NE(compareText("e\u0301", "é"), 0);
    EXPECT_EQ(compareText("e\u0301", "é") < 0, compareText("é", "e\u0301") > 0);
}

TEST(TextCount, CountsCodePoints) {
    const struct {
        const char* text;
        std::size_t count;
    } rows[] = {{"", 0},       {"a\r\n", 3}, {"é", 1}, {"日本語日本語日本語", 9}, {"abcdefg\U0001F600hijklmnop", 17},
                {"e\u0301", 2}};
    for (const auto& row : rows) EXPECT_EQ(characterCount(row.text), row.count) << row.text;
    EXPECT_EQ(characterCount(std::string(1000, '\x7F')), 1000U);
}

}  // namespace
}  // namespace kelvor
