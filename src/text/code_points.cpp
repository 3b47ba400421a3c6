#include "text/code_points.h"

#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <algorithm>
#include <bit>
#include <cstring>

namespace kelvor {

std::string shortened(std::string_view text) {
    constexpr std::size_t longest = 200;
    if (text.size() <= longest) return std::string(text);
    std::size_t length = longest;
    while (length > 0 && isContinuationByte(text[length])) --length;
    return std::string(text.substr(0, length)) + "...";
}

std::size_t characterCount(std::string_view text) {
    // A character has one byte that is no continuation (10xxxxxx); eight bytes are looked at together.
    constexpr uint64_t lowBits = 0x0101010101010101;
    std::size_t continuations = 0;
    std::size_t position = 0;
    for (; position + sizeof(uint64_t) <= text.size(); position += sizeof(uint64_t)) {
        uint64_t word = 0;
        std::memcpy(&word, text.data() + position, sizeof word);
        continuations += static_cast<std::size_t>(std::popcount((word >> 7) & (~word >> 6) & lowBits));
    }
    for (; position < text.size(); ++position) continuations += isContinuationByte(text[position]) ? 1 : 0;
    return text.size() - continuations;
}

std::size_t positionBehind(std::string_view text, std::size_t count) {
    constexpr std::size_t piece = 4096;
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t characters = characterCount(text.substr(position, piece));
        if (characters > count) break;
        count -= characters;
        position += std::min(piece, text.size() - position);
    }
    // A piece may end within a character, whose rest counts for nothing.
    for (; position < text.size(); ++position) {
        if (!isContinuationByte(text[position]) && count-- == 0) break;
    }
    return position;
}

bool isBlank(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto [value, length] = codePointAt(text, at);
        if (!u_isUWhiteSpace(value)) return false;
        at += length;
    }
    return true;
}

}  // namespace kelvor
