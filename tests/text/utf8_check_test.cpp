// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/utf8_check.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(Utf8Check, TellsWellFormedUtf8WhereverItStands) {
    // Long texts are looked at in blocks, so each place in one is tried.
    for (std::size_t before = 0; before < 130; ++before) {
        const auto inside = [before](const char* bytes) {
            return (before % 2 == 0 ? "" : "x") + std::string(before / 2 * 2, 'a') + bytes + std::string(70, 'z');
        };
        for (const char* bytes : {"abcdefgh", "\xC3\xA9", "\xE0\xA0\x80", "\xE2\x82\xAC", "\xED\x9F\xBF",
                                  "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
            ASSERT_TRUE(isValidUtf8(inside(bytes))) << before << " " << testing::PrintToString(bytes);
        for (const char* bytes : {"\x80", "\xC3", "\xC3x", "\xC3\xA9\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF",
                                  "\xE2\x82", "\xE2x\x82", "\xE2\x82\xAC\x82", "\xE2\xC3\xA9", "\xED\xA0\x80",
                                  "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
            ASSERT_FALSE(isValidUtf8(inside(bytes))) << before << " " << testing::PrintToString(bytes);
            ASSERT_FALSE(isValidUtf8(std::string(before, 'a') + bytes)) << before;
        }
    }
}

}  // namespace
}  // namespace kelvor
