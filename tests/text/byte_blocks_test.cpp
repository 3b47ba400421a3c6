// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/byte_blocks.h"

#include <gtest/gtest.h>

#include <random>

#include "text/code_points.h"
#include "text/line_ends.h"

namespace kelvor {
namespace {

/// By a look at each byte.
std::string plainMostCommon(std::string_view text) {
    int pairs = 0;
    int feeds = 0;
    int returns = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text.substr(i, 2) == "\r\n";
        if (isPair)
            ++pairs;
        else if (text[i] == '\r')
            ++returns;
        else if (text[i] == '\n')
            ++feeds;
        if (isPair) ++i;
    }
    if (feeds > pairs && feeds >= returns) return "\n";
    return returns > pairs ? "\r" : "\r\n";
}

TEST(ByteBlocks, CountAsALookAtEachByteDoes) {
    const std::string_view pieces[] = {"\r", "\n", "\r\n", "a", "\x7F", "é", "\uFFFF", "\U0001F600"};
    std::mt19937 random(20240229);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        std::size_t characters = 0;
        // Now and then more than a block's counters hold.
        const auto most = round % 100 == 0 ? 5'000 : 40;
        for (auto count = random() % most; count > 0; --count) {
            const auto piece = pieces[random() % std::size(pieces)];
            text += piece;
            characters += piece == "\r\n" ? 2 : 1;
        }
        ASSERT_EQ(characterCount(text), characters) << testing::PrintToString(text);
        const auto split = random() % (text.size() + 1);
        LineEndCounts lineEnds;
        lineEnds.add(std::string_view(text).substr(0, split));
        lineEnds.add(std::string_view(text).substr(split));
        ASSERT_EQ(lineEnds.mostCommon(), plainMostCommon(text)) << testing::PrintToString(text) << " at " << split;
    }
}

}  // namespace
}  // namespace kelvor
