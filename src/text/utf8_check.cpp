// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/utf8_check.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "text/byte_blocks.h"
#include "text/code_points.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kelvor {

namespace {

#ifdef __SSE2__

/// Bytes that are looked at together, each a bit of a word.
constexpr std::size_t blockSize = 64;

/// The kinds of byte in a block, the first byte in the lowest bit.
struct ByteKinds {
    uint64_t beyondAscii = 0;
    uint64_t continuations = 0;  ///< 0x80 to 0xBF
    uint64_t below0xC2 = 0;      ///< the continuations, 0xC0 and 0xC1
    uint64_t above0xDF = 0;      ///< begin three bytes or more
    uint64_t peculiar = 0;       ///< 0xE0, 0xED and those above 0xEF, not all of whose continuations are valid
};

ByteKinds kindsIn(const char* block) {
    ByteKinds kinds;
    const auto limit = [](unsigned byte) { return _mm_set1_epi8(static_cast<char>(byte)); };
    for (std::size_t place = 0; place < blockSize; place += sizeof(__m128i)) {
        // Signed: those beyond ASCII are below zero, in their order.
        const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + place));
        const auto bits = [place](__m128i marked) {
            return static_cast<uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(marked))) << place;
        };
        const auto high = bits(bytes);
        kinds.beyondAscii |= high;
        if (high == 0) continue;
        kinds.continuations |= bits(_mm_cmplt_epi8(bytes, limit(0xC0)));
        kinds.below0xC2 |= bits(_mm_cmplt_epi8(bytes, limit(0xC2)));
        kinds.above0xDF |= bits(_mm_cmpgt_epi8(bytes, limit(0xDF))) & high;
        kinds.peculiar |= (bits(_mm_cmpgt_epi8(bytes, limit(0xEF))) & high) |
                          bits(_mm_or_si128(_mm_cmpeq_epi8(bytes, limit(0xE0)), _mm_cmpeq_epi8(bytes, limit(0xED))));
    }
    return kinds;
}

/// Passes over blocks, the first of which begins a character, as long as their characters are valid and not of the
/// peculiar ones. Gives where the next character begins.
std::size_t skipPlainBlocks(std::string_view bytes, std::size_t position) {
    while (position + blockSize <= bytes.size()) {
        const auto kinds = kindsIn(bytes.data() + position);
        position += blockSize;
        if (kinds.beyondAscii == 0) continue;
        const auto leads = kinds.beyondAscii & ~kinds.below0xC2;
        const bool isValid =
            kinds.below0xC2 == kinds.continuations && kinds.continuations == (leads << 1 | kinds.above0xDF << 2);
        if (!isValid || kinds.peculiar != 0) return position - blockSize;
        // A character that the block's end cuts begins the next block.
        if ((leads >> 63) != 0) {
            position -= 1;
        } else if ((kinds.above0xDF >> 62) != 0) {
            position -= 2;
        }
    }
    return position;
}

#else

std::size_t skipPlainBlocks(std::string_view bytes, std::size_t position) {
    return skipAscii(bytes, position);
}

#endif

}  // namespace

std::size_t skipAscii(std::string_view bytes, std::size_t position) {
    constexpr uint64_t highBits = 0x8080808080808080;
    constexpr std::size_t size = sizeof(uint64_t);
    const auto isAsciiWord = [](uint64_t word) { return (word & highBits) == 0; };
    while (position + 4 * size <= bytes.size() &&
           isAsciiWord(wordAt(bytes, position) | wordAt(bytes, position + size) | wordAt(bytes, position + 2 * size) |
                       wordAt(bytes, position + 3 * size)))
        position += 4 * size;
    while (position + size <= bytes.size() && isAsciiWord(wordAt(bytes, position))) position += size;
    while (position < bytes.size() && static_cast<uint8_t>(bytes[position]) < 0x80) ++position;
    return position;
}

bool isAscii(std::string_view bytes) {
    return skipAscii(bytes, 0) == bytes.size();
}

bool isValidUtf8(std::string_view bytes) {
    constexpr std::size_t atALook = 64;
    for (std::size_t position = 0; position < bytes.size();) {
        position = skipPlainBlocks(bytes, position);
        for (const auto end = std::min(position + atALook, bytes.size()); position < end;) {
            const auto point = codePointAt(bytes, position);
            if (point.value >= firstStrayByte) return false;
            position += point.length;
        }
    }
    return true;
}

}  // namespace kelvor
