// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/uchar.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kelvor {

/// One character of a UTF-8 text. A byte that belongs to none is a character of its own, above all others,
/// so that names and texts in no encoding at all can still be compared and searched.
struct CodePoint {
    UChar32 value = 0;
    std::size_t length = 0;
};

constexpr UChar32 firstStrayByte = 0x110000;

constexpr bool isContinuationByte(char byte) {
    return (static_cast<uint8_t>(byte) & 0xC0U) == 0x80U;
}

/// The character at `position`, which lies inside the text.
inline CodePoint codePointAt(std::string_view text, std::size_t position) {
    const auto first = static_cast<uint8_t>(text[position]);
    if (first < 0x80) return {first, 1};
    const CodePoint stray{firstStrayByte + first, 1};
    if (first < 0xC2 || first > 0xF4) return stray;
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (text.size() - position < length) return stray;
    UChar32 value = first & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const char next = text[position + i];
        if (!isContinuationByte(next)) return stray;
        value = value << 6 | (next & 0x3F);
    }
    constexpr UChar32 least[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    return value < least[length] || surrogate || value > 0x10FFFF ? stray : CodePoint{value, length};
}

/// The character that ends at `end`, which is not 0.
inline CodePoint codePointBefore(std::string_view text, std::size_t end) {
    auto start = end - 1;
    while (start > 0 && end - start < 4 && isContinuationByte(text[start])) --start;
    const auto point = codePointAt(text.substr(0, end), start);
    return point.length == end - start ? point : CodePoint{firstStrayByte + static_cast<uint8_t>(text[end - 1]), 1};
}

/// The one character to which all its spellings in either case fold.
inline UChar32 foldedCodePoint(UChar32 value) {
    if (value < 0x80) return value >= 'A' && value <= 'Z' ? value + ('a' - 'A') : value;
    return value < firstStrayByte ? u_foldCase(value, U_FOLD_CASE_DEFAULT) : value;
}

inline void appendCodePoint(std::string& text, UChar32 value) {
    if (value < 0x80 || value >= firstStrayByte) {
        text += static_cast<char>(value < 0x80 ? value : value - firstStrayByte);
        return;
    }
    if (value < 0x800) {
        text += static_cast<char>(0xC0 | value >> 6);
    } else {
        if (value < 0x10000) {
            text += static_cast<char>(0xE0 | value >> 12);
        } else {
            text += static_cast<char>(0xF0 | value >> 18);
            text += static_cast<char>(0x80 | (value >> 12 & 0x3F));
        }
        text += static_cast<char>(0x80 | (value >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (value & 0x3F));
}

/// A text as a message quotes it: its first 200 bytes or so, and "..." when there are more.
std::string shortened(std::string_view text);

/// The position behind the first `count` characters of a UTF-8 text; its end when it has no more.
std::size_t positionBehind(std::string_view text, std::size_t count);

/// Code points in a UTF-8 text; CR LF counts as two.
std::size_t characterCount(std::string_view text);

/// Whether nothing of the text is seen, in any script.
bool isBlank(std::string_view text);

}  // namespace kelvor
