// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>

namespace kelvor {

/// What makes one text of another, in one piece from the first character that differs to the last.
struct TextChange {
    std::size_t position = 0;
    std::string_view removed;
    std::string_view inserted;
};

/// Both texts are UTF-8 and outlive the change; texts that are equal have an empty one.
TextChange changeBetween(std::string_view before, std::string_view after);

}  // namespace kelvor
