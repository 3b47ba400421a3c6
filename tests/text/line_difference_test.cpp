// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/line_difference.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace kelvor {
namespace {

/// "=" same, "~" another end, "*" changed, "+" added, "-" removed, each with the numbers of its lines.
std::string shown(const std::vector<DifferenceRow>& rows) {
    const auto number = [](const TextLine& line) { return line.number > 0 ? std::to_string(line.number) : ""; };
    std::string text;
    for (const DifferenceRow& row : rows)
        text += "=~*+-"[static_cast<int>(row.kind)] + number(row.left) + "|" + number(row.right) + " ";
    return text;
}

TEST(LineDifference, LinesStandSideBySide) {
    using namespace std::string_literals;
    for (const auto& [left, right, rows, counts] : {
             std::tuple{""s, ""s, "", LineCounts{0, 0}},
             {"", "a\nb", "+|1 +|2 ", {2, 0}},
             {"a\nb\n", "", "-1| -2| ", {0, 2}},
             {"a\nb\nc\n", "a\nx\nc\n", "=1|1 *2|2 =3|3 ", {1, 1}},
             {"a\nb\nc\nd\n", "a\nx\nd\n", "=1|1 *2|2 -3| =4|3 ", {1, 2}},
             {"a\nd\n", "0\na\nx\ny\nd\nz\n", "+|1 =1|2 +|3 +|4 =2|5 +|6 ", {4, 0}},
             // Every line end, and the last line's; alone they are no other text.
             {"a\r\nb\nc\rd", "a\nb\nc\r\nd\n", "~1|1 =2|2 ~3|3 ~4|4 ", {3, 3}},
             {"a\rb\rc\r", "a\rx\rc\r", "=1|1 *2|2 =3|3 ", {1, 1}},
             {"\n\r\r\n", "\n\r", "=1|1 =2|2 -3| ", {0, 1}},
             {"a", "a\n\n", "~1|1 +|2 ", {2, 1}},
             // Bytes that a comparison of files would take for those of no text.
             {"a\0b\nc\n"s, "a\0c\nc\n"s, "*1|1 =2|2 ", {1, 1}},
             {"\xE9\n", "\u00E9\n", "*1|1 ", {1, 1}},
         }) {
        const auto difference = compareLines(left, right);
        EXPECT_EQ(shown(difference), rows) << left << "->" << right;
        EXPECT_EQ(countDifferences(left, right), counts) << left << "->" << right;
    }
}

TEST(LineDifference, TheRowsHoldBothTextsAfterEditsAtRandom) {
    std::mt19937 random(14);
    const std::string_view pieces[] = {"<p>", "\n", "\r\n", "\r", "", "\u00E9", "x", "\n\n"};
    const auto piece = [&] { return pieces[random() % std::size(pieces)]; };
    for (int round = 0; round < 500; ++round) {
        std::string left;
        for (auto count = random() % 60; count > 0; --count) left += piece();
        std::string right = left;
        for (auto edits = random() % 8; edits > 0; --edits)
            right.replace(random() % (right.size() + 1), random() % 5, piece());
        std::string leftOfRows;
        std::string rightOfRows;
        for (const DifferenceRow& row : compareLines(left, right)) {
            leftOfRows.append(row.left.text).append(row.left.end);
            rightOfRows.append(row.right.text).append(row.right.end);
            ASSERT_EQ(row.kind == DifferenceRow::Kind::same,
                      row.left.text == row.right.text && row.left.end == row.right.end)
                << left << "->" << right;
        }
        ASSERT_EQ(leftOfRows, left);
        ASSERT_EQ(rightOfRows, right);
    }
}

}  // namespace
}  // namespace kelvor
