// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// "1 line", "2 lines".
template <typename Number>
std::string counted(Number number, std::string_view noun) {
    return std::to_string(number).append(" ").append(noun).append(number == 1 ? "" : "s");
}

}  // namespace kelvor
