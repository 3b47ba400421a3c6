// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_difference.h"

#include <unicode/casemap.h>
#include <unicode/coll.h>

#include <algorithm>

#include "text/code_points.h"

namespace kelvor {

TextChange changeBetween(std::string_view before, std::string_view after) {
    const auto shorter = std::min(before.size(), after.size());
    const auto front =
        std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(shorter), after.begin());
    auto start = static_cast<std::size_t>(front.first - before.begin());
    const auto room = static_cast<std::ptrdiff_t>(shorter - start);
    const auto back = std::mismatch(before.rbegin(), before.rbegin() + room, after.rbegin());
    auto behind = static_cast<std::size_t>(back.first - before.rbegin());
    while (start < before.size() && isContinuationByte(before[start])) --start;
    while (behind > 0 && isContinuationByte(before[before.size() - behind])) --behind;
    return {start, before.substr(start, before.size() - behind - start),
            after.substr(start, after.size() - behind - start)};
}

}  // namespace kelvor
