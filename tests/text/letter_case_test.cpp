#include "text/letter_case.h"
#include "text/code_points.h"
#include "text/text_difference.h"
#include "text/text_order.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "text/shown_name.h"

namespace kelvor {
namespace {

TEST(Text, MapsAndComparesLettersOfAllScripts) {
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

TEST(Text, ToldChangesAreOfWholeCharacters) {
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

TEST(Text, SortsNamesAsAPersonDoesAndKeepsDifferentOnesApart) {
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

TEST(Text, ShowsEachNameOnOneLine) {
    const struct {
        std::string_view name;
        std::string_view shown;
    } rows[] = {
        {"/home/Größe 日本 😀/a&b.htm", "/home/Größe 日本 😀/a&b.htm"},
        {R"(C:\new\table.htm)", R"(C:\new\table.htm)"},
        {"a\nb\r\n\tc", R"(a\nb\r\n\tc)"},
        {{"\0\x1B[2J\x7F", 6}, R"(\x00\x1B[2J\x7F)"},
        {"a\u0085b\u00A0c\u2028d", "a\\u0085b\u00A0c\\u2028d"},
        {"photo\u202Egnp.exe \u2066x", R"(photo\u202Egnp.exe \u2066x)"},
        {"caf\xE9.htm \xE6\x97", R"(caf\xE9.htm \xE6\x97)"},
    };
    for (const auto& row : rows) EXPECT_EQ(shownName(row.name), row.shown);
}

}  // namespace
}  // namespace kelvor
