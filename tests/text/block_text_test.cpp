// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/block_text.h"

#include <gtest/gtest.h>

#include <random>

namespace kelvor {
namespace {

/// Long changes and short ones, near and far, so that blocks are split, emptied and left out.
TEST(BlockText, ReplacesAsAStringDoes) {
    std::mt19937 random(7);
    std::string model(300'000, '-');
    BlockText text(model);
    for (int step = 0; step < 3'000; ++step) {
        const auto start = random() % (model.size() + 1);
        const auto most = step % 50 == 0 ? model.size() : 40;
        const auto removed = random() % (std::min(most, model.size() - start) + 1);
        const std::string inserted(random() % (step % 60 == 0 ? 200'000 : 30), static_cast<char>('a' + step % 26));
        model.replace(start, removed, inserted);
        text.replace(start, removed, inserted);
        ASSERT_EQ(text.size(), model.size()) << step;
    }
    EXPECT_EQ(text.take(), model);
    EXPECT_EQ(text.take(), "") << "it is taken once";
}

}  // namespace
}  // namespace kelvor
