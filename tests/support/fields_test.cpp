// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/fields.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(SampleColor, IsTheOneWrittenOrWhite) {
    for (const auto& [text, sample] : {std::pair{"#FF8001 and more", 0x0180FF},
                                       {"#ff", 0xFF},
                                       {"#", 0},
                                       {"", 0xFFFFFF},
                                       {"(n/a)", 0xFFFFFF},
                                       {"silver", 0xFFFFFF}})
        EXPECT_EQ(sampleColor(text), sample) << text;
}

}  // namespace
}  // namespace kelvor
