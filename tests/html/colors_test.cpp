// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/colors.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace kelvor {
namespace {

TEST(Colors, TurnIntoHexadecimalTextAndBack) {
    for (const auto& [text, value] :
         {std::pair{"", 0}, {"fF", 255}, {"1G", -1}, {"é", -1}, {"7FFFFFFF", 0x7FFFFFFF}, {"000000000000", 0}})
        EXPECT_EQ(hexToLong(text), value) << text;
    for (const auto* text : {"80000000", "10000000000000000"}) EXPECT_THROW(hexToLong(text), Error) << text;
    int color = 0xABCDEF;
    EXPECT_EQ(longToHex(color), "ABCDEF");
    EXPECT_EQ(color, 0xF);
    EXPECT_EQ(colorToHtml(0x00CDEF), "EFCD00");
    for (const auto& [text, sample] : {std::pair{"#FF8001 and more", 0x0180FF},
                                       {"#ff", 0xFF},
                                       {"#", 0},
                                       {"", 0xFFFFFF},
                                       {"(n/a)", 0xFFFFFF},
                                       {"silver", 0xFFFFFF}})
        EXPECT_EQ(sampleColor(text), sample) << text;
    for (const int dark : {0, 0x800000, 0x0000FF}) EXPECT_EQ(legibleOn(dark), 0xFFFFFF) << dark;
    for (const int bright : {0xFFFFFF, 0xC0FFFF, 0x00FF00}) EXPECT_EQ(legibleOn(bright), 0) << bright;
    for (const int none : {-1, 0x1000000}) EXPECT_THROW(colorToHtml(none), Error) << none;
}

}  // namespace
}  // namespace kelvor
