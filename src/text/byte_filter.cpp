// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/byte_filter.h"

#include <array>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kelvor {

namespace {

/// Bytes of page text from frequent to rare; what is not here is rarer still. Tags in capitals are common.
constexpr std::string_view frequentFirst =
    " etaoinsrlhdcmup\n\t<>/=\"f.gbywv-TEAORINDLSFHP0:1;2kCMBU#x,35\r4'98q6_7jzWG&()VKYX?{}QJZ!";

std::array<int, 256> countFrequencies() {
    std::array<int, 256> frequency{};
    frequency.fill(1);
    for (std::size_t rank = 0; rank < frequentFirst.size(); ++rank) {
        const auto places = static_cast<int>(frequentFirst.size() - rank);
        frequency[static_cast<uint8_t>(frequentFirst[rank])] = 1 + places * places / 8;
    }
    // Texts in other scripts are full of continuation bytes and of a few lead bytes.
    for (unsigned byte = 0x80; byte < 0xC0; ++byte) frequency[byte] = 20;
    for (unsigned byte = 0xC3; byte < 0xF0; ++byte) frequency[byte] = 60;
    return frequency;
}

#ifdef __SSE2__

constexpr std::size_t blockSize = sizeof(__m128i);

__m128i broadcast(uint8_t byte) {
    return _mm_set1_epi8(static_cast<char>(byte));
}

__m128i holdsEach(const char* block, __m128i mask, __m128i value) {
    const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block));
    return _mm_cmpeq_epi8(_mm_or_si128(bytes, mask), value);
}

/// Passes over whole blocks from `place` on. True when it stopped at a hit; `place` is then the hit, otherwise
/// the begin of the last, incomplete block.
bool skipBlocks(const char*& place, const char* end, const BytePair& pair) {
    const auto firstMask = broadcast(pair.first.mask);
    const auto firstValue = broadcast(pair.first.value);
    const auto secondMask = broadcast(pair.second.mask);
    const auto secondValue = broadcast(pair.second.value);
    const auto hitsAt = [&](const char* block) {
        return _mm_and_si128(holdsEach(block, firstMask, firstValue),
                             holdsEach(block + pair.distance, secondMask, secondValue));
    };
    for (; static_cast<std::size_t>(end - place) >= 2 * blockSize; place += 2 * blockSize) {
        const auto low = hitsAt(place);
        const auto high = hitsAt(place + blockSize);
        if (_mm_movemask_epi8(_mm_or_si128(low, high)) == 0) continue;
        const auto hits = static_cast<unsigned>(_mm_movemask_epi8(low)) | static_cast<unsigned>(_mm_movemask_epi8(high))
                                                                              << blockSize;
        place += std::countr_zero(hits);
        return true;
    }
    return false;
}

#else

bool skipBlocks(const char*&, const char*, const BytePair&) {
    return false;
}

#endif

}  // namespace

void ByteClass::add(char byte) {
    mask = static_cast<uint8_t>(mask | (value ^ (static_cast<uint8_t>(byte) | mask)));
    value = static_cast<uint8_t>(value | mask);
}

int frequencyOf(const ByteClass& bytes) {
    static const auto frequency = countFrequencies();
    int sum = 0;
    for (std::size_t byte = 0; byte < frequency.size(); ++byte) {
        if (bytes.holds(static_cast<char>(byte))) sum += frequency[byte];
    }
    return sum;
}

std::size_t findPair(std::string_view text, std::size_t from, std::size_t to, const BytePair& pair) {
    if (to < pair.distance || from >= to - pair.distance) return std::string_view::npos;
    const char* place = text.data() + from;
    const char* const end = text.data() + (to - pair.distance);
    if (skipBlocks(place, end, pair)) return static_cast<std::size_t>(place - text.data());
    for (; place != end; ++place) {
        if (pair.first.holds(place[0]) && pair.second.holds(place[pair.distance])) {
            return static_cast<std::size_t>(place - text.data());
        }
    }
    return std::string_view::npos;
}

}  // namespace kelvor
