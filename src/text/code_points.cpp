// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/code_points.h"

#include <algorithm>

#include "text/byte_blocks.h"

namespace kelvor {

std::string shortened(std::string_view text) {
    constexpr std::size_t longest = 200;
    if (text.size() <= longest) return std::string(text);
    std::size_t length = longest;
    while (length > 0 && isContinuationByte(text[length])) --length;
    return std::string(text.substr(0, length)) + "...";
}

std::size_t characterCount(std::string_view text) {
    // A character has one byte that is no continuation (10xxxxxx), and these are the lowest of a signed byte.
    constexpr signed char leastOther = -0x40;
    BlockCount continuations;
    std::size_t at = 0;
    for (; at + sizeof(ByteBlock) <= text.size(); at += sizeof(ByteBlock))
        continuations.add(blockAt(text.data() + at) < leastOther);
    std::size_t count = at - continuations.total();
    for (; at < text.size(); ++at) count += isContinuationByte(text[at]) ? 0 : 1;
    return count;
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
