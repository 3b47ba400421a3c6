// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/percent_encoding.h"

namespace kelvor {

std::string percentEncoded(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string result;
    for (const char letter : path) {
        const auto byte = static_cast<unsigned char>(letter);
        if (plain.find(letter) != std::string_view::npos)
            result += letter;
        else
            result.append({'%', digits[byte / 16], digits[byte % 16]});
    }
    return result;
}

}  // namespace kelvor
