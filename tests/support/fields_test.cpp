// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/fields.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace kelvor {
namespace {

TEST(SampleColor, IsTheOneWrittenOrWhite) {
    for (const auto& [text, sample] :
         {std::pair{"#FF8001 and more", 0x0180FF}, {"#ff", 0xFF}, {"#", 0}, {"", 0xFFFFFF}, {"(n/a)", 0xFFFFFF}})
        EXPECT_EQ(sampleColor(text), sample) << text;
    EXPECT_THROW(sampleColor("silver"), Error);
}

}  // namespace
}  // namespace kelvor
