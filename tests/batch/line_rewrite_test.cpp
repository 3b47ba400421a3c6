#include "batch/line_rewrite.h"

#include <gtest/gtest.h>

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
    const std::pair<const char*, const char*> cases[] = {
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
}

/// Line after line and item after item, as it is told to a person; lines end in "\n".
std::string rewrittenByTheBook(const std::string& text, const Items& items) {
    std::string result;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find('\n', start);
        auto line = text.substr(start, end - start);
        for (const auto& item : items) {
            for (auto at = line.find(item.text); at != std::string::npos;
                 at = line.find(item.text, at + item.replacement.size()))
                line.replace(at, item.text.size(), item.replacement);
        }
        result += line + "\n";
        start = end + 1;
    }
    return result;
}

TEST(LineRewrite, IsWhatGoingByLinesAndItemsGives) {
    std::mt19937 random(20240611);
    const auto textOf = [&random](std::size_t most, const std::string& letters) {
        std::string text(random() % (most + 1), ' ');
        for (char& letter : text) letter = letters[random() % letters.size()];
        return text;
    };
    for (int round = 0; round < 300; ++round) {
        Items items(1 + random() % 5);
        for (auto& item : items) item = {textOf(2, "abc") + "abc"[random() % 3], textOf(3, "abcd")};
        const auto text = textOf(60, round % 2 == 0 ? "abcd\n" : "aaab\n") + "\n";
        ASSERT_EQ(rewritten(text, items), rewrittenByTheBook(text, items)) << "round " << round;
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
