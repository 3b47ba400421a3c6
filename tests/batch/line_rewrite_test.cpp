// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/line_rewrite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

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
    const std::tuple<const char*, Items, bool, const char*> cases[] = {
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
    for (const auto& [text, items, matchCase, expected] : cases)
        EXPECT_EQ(rewritten(text, items, matchCase), expected) << text;
}

TEST(LineRewrite, EndsEveryLineInOneWay) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"a", "a\r\n"},
        {"\n", "\n"},
        {"a\n\nb", "a\n\nb\n"},
        {"a\r\nb\n", "a\r\nb\r\n"},
        {"a\rb", "a\r\nb\r\n"},
        {"a\r\r\nb\n\r", "a\r\n\r\nb\r\n\r\n"},
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

/// Items are combined where that is faster.
TEST(LineRewrite, GivesWithManyItemsWhatEachInTurnGives) {
    const auto seed = std::random_device()();
    std::mt19937 random(seed);
    using Letters = std::vector<std::string>;
    const Letters wide = {"a", "b", "A", "&", ";", "k", "\u212A", "é", "É", "ſ", "s", "日", "😀"};
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
        std::string expected = text;
        constexpr std::size_t most = 100'000;
        std::vector<std::size_t> counts;
        for (const auto& item : items) {
            if (expected.size() >= most) break;
            const std::string marked = rewritten(expected, {{item.text, "#"}}, matchCase);
            counts.push_back(static_cast<std::size_t>(std::count(marked.begin(), marked.end(), '#')));
            expected = rewritten(expected, {item}, matchCase);
        }
        if (expected.size() >= most) continue;
        std::string told = "seed " + std::to_string(seed) + ", round " + std::to_string(round) + " in " + text;
        for (const auto& item : items) told += "\n\"" + item.text + "\" to \"" + item.replacement + "\"";
        ASSERT_EQ(rewritten(text, items, matchCase), expected) << told;
        LineRewrite counting(items, matchCase, LineRewrite::Counting::on);
        std::string counted;
        counting.apply(
            text, [&counted](std::string_view lines) { counted += lines; }, noStep);
        ASSERT_EQ(std::pair(counted, counting.takeCounts()), std::pair(expected, counts)) << told;
        ASSERT_EQ(counting.takeCounts(), std::vector<std::size_t>(items.size()));
    }
}

TEST(FindItems, StandLongestFirstByCharacters) {
    Items items{{"a", "1"}, {"éé", "2"}, {"abc", "3"}, {"b", "4"}, {"xyz", "5"}, {"zz", "6"}};
    sortFindItems(items);
    EXPECT_EQ(items, (Items{{"abc", "3"}, {"xyz", "5"}, {"éé", "2"}, {"zz", "6"}, {"a", "1"}, {"b", "4"}}));
}

TEST(FindItems, AreDuplicatesByTheModeOfTheSearch) {
    for (const auto& [items, matchCase, isDouble] : {
             std::tuple{Items{{"Foo", "1"}, {"bar", "2"}, {"fOO", "3"}}, false, true},
             {{{"Foo", "1"}, {"fOO", "3"}}, true, false},
             {{{"É", ""}, {"é", ""}}, false, true},
             {{{"a", "1"}, {"a", "2"}}, true, true},
             {{}, false, false},
         })
        EXPECT_EQ(checkForDupes(items, matchCase), isDouble);
}

}  // namespace
}  // namespace kelvor
