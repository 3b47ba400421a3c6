// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_search.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <random>
#include <vector>

#include "base/error.h"
#include "text/code_points.h"

namespace kelvor {
namespace {

/// "position+length", or nothing.
std::string told(const std::optional<TextMatch>& match) {
    return match ? std::to_string(match->position) + "+" + std::to_string(match->length) : "";
}

std::string matchOf(std::string_view text, std::string_view pattern, SearchOptions options = {}) {
    return told(TextSearch(pattern, options).find(text));
}

TEST(TextSearch, FindsLettersInAnyCaseAndWholeWords) {
    EXPECT_EQ(matchOf("\u212Aelvin \u017Fun", "kelvin sun"), "0+13");
    EXPECT_EQ(matchOf("größe GRÖẞE", "GRÖSSE"), "");
    EXPECT_EQ(matchOf("concat ócat cat_ cat1 Cat, cat", "cat", {.wholeWord = true}), "23+3");
    EXPECT_EQ(matchOf("abc", ""), "");
}

/// The line end or half of one that begins at `place`.
CodePoint lineEndAt(std::string_view text, std::size_t place) {
    if (text[place] == '\n') return {place > 0 && text[place - 1] == '\r' ? -1 : '\n', 1};
    return {'\n', text.substr(place, 2) == "\r\n" ? std::size_t{2} : 1};
}

/// What TextSearch must find, by comparing character with character at each place from the begin of one on.
std::optional<TextMatch> findPlainly(std::string_view text, std::string_view pattern, SearchOptions options,
                                     std::size_t from, std::size_t to) {
    const auto valueOf = [&](UChar32 value) { return options.matchCase ? value : foldedCodePoint(value); };
    const bool wholeLineEnds = options.anyLineEnd && pattern.find_first_of("\r\n") != pattern.npos;
    const auto unitAt = [&](std::string_view within, std::size_t place) {
        if (wholeLineEnds && (within[place] == '\r' || within[place] == '\n')) return lineEndAt(within, place);
        const CodePoint point = codePointAt(within, place);
        return CodePoint{valueOf(point.value), point.length};
    };
    const auto isWord = [](const CodePoint& point) { return point.value == '_' || u_isalnum(point.value); };
    const auto isInWord = [&](std::size_t place) {
        return place > 0 && place < text.size() && isWord(codePointBefore(text, place)) &&
               isWord(codePointAt(text, place));
    };
    to = std::min(to, text.size());
    for (auto start = from; start < to; start += codePointAt(text, start).length) {
        auto end = start;
        std::size_t matched = 0;
        while (matched < pattern.size() && end < to) {
            const auto wanted = unitAt(pattern, matched);
            const auto point = unitAt(text, end);
            if (point.value != wanted.value) break;
            end += point.length;
            matched += wanted.length;
        }
        if (matched < pattern.size() || end > to) continue;
        if (!options.wholeWord || (!isInWord(start) && !isInWord(end))) return TextMatch{start, end - start};
    }
    return std::nullopt;
}

TEST(TextSearch, AgreesWithThePlainSearch) {
    const std::vector<std::string> alphabets[] = {
        {"a", "b", "A", " "},
        {"s", "S", "ſ", "k", "\u212A", "_", "x"},
        {"ß", "ẞ", "é", "É", "п", "П", "Ⱥ", "ⱥ", "z", "-"},
        {"<", "P", "p", ">", "/", "\n", "\U00010400", "\U00010428", "日"},
        {"@", "`", "[", "{", "\xFF", "\u0301", "e"},
        {"\r", "\n", "\r\n", "a", "A"},
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
        const auto flags = random();
        const SearchOptions options = {(flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0};
        // A range may begin and end within a character, end before its begin or behind the text.
        const auto from = random() % 2 * random() % (text.size() + 3);
        const auto to = random() % 2 == 0 ? std::string::npos : random() % (text.size() + 3);
        const auto match = TextSearch(pattern, options).find(text, from, to);
        const auto expected = findPlainly(text, pattern, options, from, to);
        ASSERT_EQ(told(match), told(expected)) << pattern << " in " << text << " options " << flags % 8;
        found += match ? 1 : 0;
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
    EXPECT_EQ(matchOf(text, pattern), std::to_string(goal) + "+" + std::to_string(pattern.size()));
    EXPECT_EQ(matchOf(text, std::string(400, 'a') + "\u212A" + "b"), "");
    EXPECT_EQ(matchOf(std::string(200000, '\r') + "b", std::string(50000, '\n') + "bb", {.anyLineEnd = true}), "");
}

TEST(ExtractBetween, GivesWhatStandsBetweenTwoTokens) {
    EXPECT_EQ(extractBetween("name=\"é\" CONTENT=\"", "\"", "<Meta Name=\"É\" Content=\"a\" b>"), "a");
    EXPECT_EQ(extractBetween("none", "]", "a"), "");
    EXPECT_EQ(extractBetween("", "", "a]"), "a]");
    EXPECT_THROW(extractBetween("a", "[", "a]"), Error);
}

}  // namespace
}  // namespace kelvor
