// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/byte_blocks.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "text/code_points.h"
#include "text/line_ends.h"

namespace kelvor {
namespace {

TEST(ByteBlocks, CountAsALookAtEachByteDoes) {
    const std::string_view pieces[] = {"\r", "\n", "\r\n", "a", "\x7F", "é", "\uFFFF", "\U0001F600"};
    std::mt19937 random(20240229);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        std::size_t characters = 0;
        std::map<std::string_view, int> ends;
        // Now and then more than a block's counters hold.
        const auto longest = round % 100 == 0 ? 5'000 : 40;
        for (auto count = random() % longest; count > 0; --count) {
            const auto piece = pieces[random() % std::size(pieces)];
            // Pieces that join to a pair would be another line end.
            if (piece.starts_with('\n') && text.ends_with('\r')) continue;
            text += piece;
            characters += piece == "\r\n" ? 2 : 1;
            ++ends[piece];
        }
        ASSERT_EQ(characterCount(text), characters) << testing::PrintToString(text);
        const auto split = random() % (text.size() + 1);
        LineEndCounts lineEnds;
        lineEnds.add(std::string_view(text).substr(0, split));
        lineEnds.add(std::string_view(text).substr(split));
        const bool feedsLead = ends["\n"] > ends["\r\n"] && ends["\n"] >= ends["\r"];
        const auto most = feedsLead ? "\n" : ends["\r"] > ends["\r\n"] ? "\r" : "\r\n";
        ASSERT_EQ(lineEnds.mostCommon(), most) << testing::PrintToString(text) << " at " << split;
    }
}

}  // namespace
}  // namespace kelvor
