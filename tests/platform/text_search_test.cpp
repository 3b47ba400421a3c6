#include "platform/text_search.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <random>
#include <vector>

#include "platform/code_points.h"

namespace kelvor {
namespace {

using find_option::matchCase;
using find_option::wholeWord;

/// "position+length" of all matches, each search beginning behind the last match.
std::string matchesOf(std::string_view text, std::string_view pattern, int options, std::size_t from = 0,
                      std::size_t to = std::string_view::npos) {
    const TextSearch search(pattern, options);
    std::string all;
    while (const auto match = search.find(text, from, to)) {
        all += std::to_string(match->position) + "+" + std::to_string(match->length) + " ";
        from = match->position + match->length;
    }
    return all;
}

TEST(TextSearch, FindsAllMatches) {
    const struct {
        const char* text;
        const char* pattern;
        int options;
        const char* matches;
    } rows[] = {
        {"", "a", 0, ""},
        {"abc", "", 0, ""},
        {"<BR><br><Br>", "<br>", 0, "0+4 4+4 8+4 "},
        {"<BR><br><Br>", "<br>", matchCase, "4+4 "},
        {"aaaaa", "aa", 0, "0+2 2+2 "},
        {"@[`{", "`", 0, "2+1 "},
        {"@[`{", "{", 0, "3+1 "},
        {"\u212Aelvin \u017Fun", "kelvin sun", 0, "0+13 "},
        {"\u212Aelvin", "kelvin", matchCase, ""},
        {"kK\u212A", "\u212A", 0, "0+1 1+1 2+3 "},
        {"ſsSſ", "ss", 0, "0+3 3+3 "},
        {"Maſſe MASSE", "masse", 0, "0+7 8+5 "},
        {"größe GRÖẞE", "GRÖSSE", 0, ""},
        {"größe GRÖẞE", "grÖßE", 0, "0+7 8+8 "},
        {"привет ПРИВЕТ", "Привет", 0, "0+12 13+12 "},
        {"ⱥȺ", "Ⱥ", 0, "0+3 3+2 "},
        {"x\xFF"
         "A",
         "\xFF"
         "a",
         0, "1+2 "},
        {"cat concat cat_ cat1 Cat, (cat)", "cat", wholeWord, "0+3 21+3 27+3 "},
        {"ócat cató cat", "cat", wholeWord, "12+3 "},
        {"x<b>y <b>", "<b>", wholeWord, "1+3 6+3 "},
        {"x=1 =1a =1", "=1", wholeWord, "1+2 8+2 "},
        {"a\u0301cat", "cat", wholeWord, "3+3 "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(matchesOf(row.text, row.pattern, row.options), row.matches) << row.pattern << " in " << row.text;
    }
}

TEST(TextSearch, KeepsToItsRangeAndLooksAroundItForWords) {
    const std::string text = "cats cat concat \u212Aat";
    const struct {
        const char* pattern;
        int options;
        std::size_t from;
        std::size_t to;
        const char* matches;
    } rows[] = {
        {"cat", 0, 0, 3, "0+3 "},         {"cat", 0, 0, 2, ""},         {"cat", 0, 1, 8, "5+3 "},
        {"cat", 0, 6, 99, "12+3 "},       {"cat", wholeWord, 0, 3, ""}, {"cat", wholeWord, 12, 15, ""},
        {"cat", wholeWord, 5, 8, "5+3 "}, {"kat", 0, 16, 21, "16+5 "},  {"kat", 0, 17, 21, ""},
        {"kat", 0, 16, 20, ""},           {"k", 0, 16, 18, ""},         {"cat", 0, 8, 5, ""},
        {"cat", 0, 99, 200, ""},          {"cat", matchCase, 5, 7, ""}, {"cat", matchCase, 6, 8, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(matchesOf(text, row.pattern, row.options, row.from, row.to), row.matches)
            << row.pattern << " " << row.from << " " << row.to;
    }
}

TEST(TextSearch, FindsEveryCharacterByItsFoldedForm) {
    for (UChar32 value = 1; value <= 0x10FFFF; ++value) {
        const auto folded = foldedCodePoint(value);
        if (U_IS_SURROGATE(value) || folded == value) continue;
        std::string spelled = "-";
        std::string pattern;
        appendCodePoint(spelled, value);
        appendCodePoint(pattern, folded);
        ASSERT_EQ(matchesOf(spelled, pattern, 0), "1+" + std::to_string(spelled.size() - 1) + " ") << std::hex << value;
        ASSERT_EQ(matchesOf(pattern, spelled.substr(1), 0), "0+" + std::to_string(pattern.size()) + " ")
            << std::hex << value;
    }
}

std::vector<CodePoint> charactersOf(std::string_view text) {
    std::vector<CodePoint> characters;
    for (std::size_t position = 0; position < text.size(); position += characters.back().length) {
        characters.push_back(codePointAt(text, position));
    }
    return characters;
}

bool isWord(const CodePoint& point) {
    return point.value == '_' || u_isalpha(point.value) || u_isdigit(point.value);
}

/// What TextSearch must find, by comparing character with character at each place.
std::optional<TextMatch> findPlainly(std::string_view text, std::string_view pattern, int options, std::size_t from,
                                     std::size_t to) {
    const auto characters = charactersOf(text);
    const auto wanted = charactersOf(pattern);
    std::size_t position = 0;
    for (std::size_t i = 0; i + wanted.size() <= characters.size(); position += characters[i++].length) {
        std::size_t length = 0;
        bool equal = position >= from;
        for (std::size_t j = 0; equal && j < wanted.size(); length += characters[i + j++].length) {
            const auto a = characters[i + j].value;
            const auto b = wanted[j].value;
            equal = (options & matchCase) != 0 ? a == b : foldedCodePoint(a) == foldedCodePoint(b);
        }
        const auto last = i + wanted.size() - 1;
        if (!equal || position + length > to) continue;
        if ((options & wholeWord) != 0) {
            if (i > 0 && isWord(characters[i]) && isWord(characters[i - 1])) continue;
            if (last + 1 < characters.size() && isWord(characters[last]) && isWord(characters[last + 1])) continue;
        }
        return TextMatch{position, length};
    }
    return std::nullopt;
}

TEST(TextSearch, AgreesWithThePlainSearch) {
    const std::vector<std::string> alphabets[] = {
        {"a", "b", "A", " "},
        {"s", "S", "ſ", "k", "\u212A", "_", "x"},
        {"ß", "ẞ", "é", "É", "п", "П", "Ⱥ", "ⱥ", "z", "-"},
        {"<", "P", "p", ">", "/", "\n", "\U00010400", "\U00010428", "日"},
    };
    std::mt19937 random(7);
    const auto randomText = [&](const std::vector<std::string>& alphabet, std::size_t characters) {
        std::string text;
        for (std::size_t i = 0; i < characters; ++i) text += alphabet[random() % alphabet.size()];
        return text;
    };
    int found = 0;
    for (int round = 0; round < 40000; ++round) {
        const auto& alphabet = alphabets[random() % std::size(alphabets)];
        const auto text = randomText(alphabet, random() % 120);
        const auto pattern = randomText(alphabet, 1 + random() % 4);
        const int options = static_cast<int>(random() % 4) * 2;
        std::size_t from = 0;
        std::size_t to = text.size();
        if (random() % 2 == 0 && !text.empty()) {
            from = random() % text.size();
            while (isContinuationByte(text[from])) --from;
            to = from + random() % (text.size() - from + 1);
        }
        const auto match = TextSearch(pattern, options).find(text, from, to);
        const auto expected = findPlainly(text, pattern, options, from, to);
        SCOPED_TRACE(testing::Message() << pattern << " in " << text << " options " << options);
        ASSERT_EQ(match.has_value(), expected.has_value());
        if (!match) continue;
        ++found;
        ASSERT_EQ(match->position, expected->position);
        ASSERT_EQ(match->length, expected->length);
    }
    EXPECT_GT(found, 5000);
}

TEST(TextSearch, StaysLinearWhereThePatternNearlyMatchesEverywhere) {
    // At a million places a thousand characters match: 10^9 comparisons when each is tried on its own.
    std::string text;
    for (int i = 0; i < 1000; ++i) text.append(999, 'a').append("b");
    const auto goal = text.size();
    text += std::string(1000, 'A') + "b" + std::string(600, 'A');
    const auto pattern = std::string(1000, 'a') + "b" + std::string(600, 'a');
    const auto match = TextSearch(pattern, 0).find(text);
    ASSERT_TRUE(match);
    EXPECT_EQ(match->position, goal);
    EXPECT_EQ(match->length, pattern.size());
    EXPECT_FALSE(TextSearch(pattern, matchCase).find(text));
    EXPECT_FALSE(TextSearch(std::string(400, 'a') + "\u212A" + "b", 0).find(text));

    const std::string dashes(100000, '-');
    EXPECT_FALSE(TextSearch(std::string(500, '-') + "x", 0).find(dashes));
    EXPECT_FALSE(TextSearch(std::string(50000, 'a'), wholeWord).find(std::string(200000, 'a')));
    EXPECT_FALSE(TextSearch(std::string(50000, 'a'), wholeWord | matchCase).find(std::string(200000, 'a')));
}

}  // namespace
}  // namespace kelvor
