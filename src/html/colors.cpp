// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/colors.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "base/error.h"
#include "html/no_value.h"

namespace kelvor {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

}  // namespace

int hexToLong(std::string_view text) {
    constexpr long long largest = std::numeric_limits<int>::max();
    long long value = 0;
    long long power = 1;
    for (auto character = text.rbegin(); character != text.rend(); ++character) {
        const char upper =
            *character >= 'a' && *character <= 'f' ? static_cast<char>(*character - 'a' + 'A') : *character;
        const auto digit = hexDigits.find(upper);
        if (digit == std::string_view::npos) return -1;
        value += static_cast<long long>(digit) * power;
        if (value > largest) throw overflowError();
        power = std::min(power * 16, largest + 1);
    }
    return static_cast<int>(value);
}

std::string longToHex(int& value) {
    if (value < 0 || value > 0xFFFFFF)
        throw Error(error_number::invalidProcedureCall, "Not a colour: " + std::to_string(value));
    std::string digits;
    for (int power = 0x100000; power > 1; power /= 16) {
        digits += hexDigits[static_cast<std::size_t>(value / power)];
        value %= power;
    }
    return digits + hexDigits[static_cast<std::size_t>(value)];
}

std::string colorToHtml(int value) {
    const std::string blueGreenRed = longToHex(value);
    return blueGreenRed.substr(4, 2) + blueGreenRed.substr(2, 2) + blueGreenRed.substr(0, 2);
}

int sampleColor(std::string_view text) {
    constexpr int white = 0xFFFFFF;
    if (text.empty() || text == notAvailable) return white;
    int color = 0;
    for (const std::size_t position : {5U, 3U, 1U}) {
        const int part = hexToLong(position < text.size() ? text.substr(position, 2) : std::string_view());
        if (part < 0) return white;
        color = color * 256 + part;
    }
    return color;
}

int legibleOn(int color) {
    const int brightness = 299 * (color & 0xFF) + 587 * (color >> 8 & 0xFF) + 114 * (color >> 16 & 0xFF);
    return brightness < 128000 ? 0xFFFFFF : 0;
}

}  // namespace kelvor
