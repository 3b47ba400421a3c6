// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/line_rewrite.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "text/code_points.h"

namespace kelvor {
namespace {

using Items = std::vector<FindItem>;

std::string rewritten(const std::string& text, const Items& items, bool matchCase = true) {
    std::size_t steps = 0;
    std::string result;
    LineRewrite(items, matchCase)
        .apply(
            text, [&result](std::string_view lines) { result += lines; }, [&steps] { ++steps; });
    // Waiting events are let run inside a long text as well.
    EXPECT_GE(steps, text.size() / 300'000);
    return result;
}

TEST(LineRewrite, AppliesEachItemToEachLineInTurn) {
    struct {
        const char* text;
        Items items;
        bool matchCase;
        const char* expected;
    } const cases[] = {
        {"abc a\r\n", {{"abc", "x"}, {"a", "b"}}, true, "x b\r\n"},
        {"a\r\n", {{"a", "aa"}}, true, "aa\r\n"},
        {"xay\r\n", {{"a", "b"}, {"xby", "done"}}, true, "done\r\n"},
        {"aaa\r\n", {{"aa", "b"}, {"ba", "c"}}, true, "c\r\n"},
        {"Foo FOO foo\r\n", {{"foo", ""}}, false, "  \r\n"},
        {"Foo FOO foo\r\n", {{"foo", ""}}, true, "Foo FOO \r\n"},
        {"CAFÉ café\r\n", {{"é", "&eacute;"}}, false, "CAF&eacute; caf&eacute;\r\n"},
        {"kelvin \u212A\r\n", {{"K", "k"}}, false, "kelvin k\r\n"},
        {"a\r\nb", {{"a\r\nb", "x"}, {"\n", "x"}}, true, "a\r\nb\r\n"},
    };
    for (const auto& row : cases) EXPECT_EQ(rewritten(row.text, row.items, row.matchCase), row.expected) << row.text;
}

TEST(LineRewrite, EndsEveryLineInOneWay) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"", ""},
        {"a", "a\r\n"},
        {"a\n", "a\n"},
        {"a\n\nb", "a\n\nb\n"},
        {"a\r\nb\n", "a\r\nb\r\n"},
        {"a\rb", "a\r\nb\r\n"},
        {"a\r\r\nb\n\r", "a\r\n\r\nb\r\n\r\n"},
        {"\n", "\n"},
        {"\r\n\r\n", "\r\n\r\n"},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(rewritten(text, {{"z", "y"}}), expected);
}

TEST(LineRewrite, TakesALineOfAnyLengthAsOne) {
    EXPECT_EQ(rewritten(std::string(1'200'000, 'a'), {{"aaa", "b"}}), std::string(400'000, 'b') + "\r\n");
    // A character on the border between two steps.
    const std::string stretch((std::size_t{1} << 18) - 1, 'x');
    EXPECT_EQ(rewritten(stretch + "éabc" + stretch, {{"a", "1"}, {"b", "2"}, {"c", "3"}, {"é", "e"}}),
              stretch + "e123" + stretch + "\r\n");
}

using Characters = std::u32string;

Characters charactersOf(std::string_view text) {
    Characters characters;
    for (std::size_t position = 0; position < text.size();) {
        const auto point = codePointAt(text, position);
        characters += static_cast<char32_t>(point.value);
        position += point.length;
    }
    return characters;
}

/// One item on one line, the plain way.
Characters rewrittenByTheBook(const Characters& line, const FindItem& item, bool matchCase) {
    const auto compared = [matchCase](Characters characters) {
        for (char32_t& each : characters)
            if (!matchCase) each = static_cast<char32_t>(u_foldCase(static_cast<UChar32>(each), U_FOLD_CASE_DEFAULT));
        return characters;
    };
    const auto find = compared(charactersOf(item.text));
    const auto searched = compared(line);
    Characters result;
    for (std::size_t at = 0; at < line.size();) {
        if (searched.compare(at, find.size(), find) == 0) {
            result += charactersOf(item.replacement);
            at += find.size();
        } else {
            result += line[at++];
        }
    }
    return result;
}

/// Line after line and item after item; lines end in "\n". Nothing when a line becomes very long.
std::optional<std::string> rewrittenByTheBook(const std::string& text, const Items& items, bool matchCase) {
    std::string result;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find('\n', start);
        auto line = charactersOf(text.substr(start, end - start));
        for (const auto& item : items) {
            line = rewrittenByTheBook(line, item, matchCase);
            if (line.size() > 100'000) return std::nullopt;
        }
        for (const char32_t each : line) appendCodePoint(result, static_cast<UChar32>(each));
        result += "\n";
        start = end + 1;
    }
    return result;
}

TEST(LineRewrite, IsWhatGoingByLinesAndItemsGives) {
    const auto seed = std::random_device()();
    std::mt19937 random(seed);
    using Letters = std::vector<std::string>;
    const Letters wide = {"a",      "b",      "A",      "&", ";",      "k",         "\u212A",
                          "\u00E9", "\u00C9", "\u017F", "s", "\u65E5", "\U0001F600"};
    const Letters narrow = {"a", "a", "b"};
    const auto textOf = [&random](std::size_t least, std::size_t most, const Letters& letters) {
        std::string text;
        for (auto count = least + random() % (most - least + 1); count > 0; --count)
            text += letters[random() % letters.size()];
        return text;
    };
    for (int round = 0; round < 3000; ++round) {
        const auto& letters = round % 4 == 0 ? narrow : wide;
        // Items of one character in a row, as most are, are a case of their own.
        const std::size_t longest = round % 3 == 0 ? 3 : 1;
        Items items(1 + random() % 12);
        for (auto& item : items) item = {textOf(1, longest, letters), textOf(0, random() % 8 == 0 ? 9 : 2, letters)};
        std::string text;
        for (int line = 0; line < 5; ++line) text += textOf(0, 30, letters) + "\n";
        const bool matchCase = round % 2 == 0;
        const auto expected = rewrittenByTheBook(text, items, matchCase);
        if (!expected) continue;
        std::string told = "seed " + std::to_string(seed) + ", round " + std::to_string(round) + " in " + text;
        for (const auto& item : items) told += "\n\"" + item.text + "\" to \"" + item.replacement + "\"";
        ASSERT_EQ(rewritten(text, items, matchCase), *expected) << told;
    }
}

TEST(FindItems, StandLongestFirstByCharacters) {
    Items items{{"a", "1"}, {"éé", "2"}, {"abc", "3"}, {"b", "4"}, {"xyz", "5"}, {"zz", "6"}};
    sortFindItems(items);
    EXPECT_EQ(items, (Items{{"abc", "3"}, {"xyz", "5"}, {"éé", "2"}, {"zz", "6"}, {"a", "1"}, {"b", "4"}}));
}

TEST(FindItems, AreDuplicatesByTheModeOfTheSearch) {
    const Items cased{{"Foo", "1"}, {"bar", "2"}, {"fOO", "3"}};
    EXPECT_TRUE(checkForDupes(cased, false));
    EXPECT_FALSE(checkForDupes(cased, true));
    EXPECT_TRUE(checkForDupes({{"É", ""}, {"é", ""}}, false));
    EXPECT_TRUE(checkForDupes({{"a", "1"}, {"a", "2"}}, true));
    EXPECT_FALSE(checkForDupes({}, false));
}

}  // namespace
}  // namespace kelvor
