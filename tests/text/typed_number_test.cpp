// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/typed_number.h"

#include <gtest/gtest.h>

#include "base/int16.h"

namespace kelvor {
namespace {

TEST(TypedNumber, IsRoundedToTheNearestAndToTheEvenOneOfTwo) {
    for (const auto& [text, number] : {std::pair{"2.5", 2}, {"3.5", 4}, {".51", 1}, {"-7.", -7}, {"32767.4", 32767}})
        EXPECT_EQ(toInt16(typedNumber(text)), number) << text;
    for (const char* text : {"", ".", "1.2.3", "--1", "1e3", "inf"}) EXPECT_THROW(typedNumber(text), Error) << text;
    EXPECT_THROW(toInt16(32767.5), Error);
}

}  // namespace
}  // namespace kelvor
