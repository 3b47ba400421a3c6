// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_encoding.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

#include "text/byte_blocks.h"
#include "text/code_points.h"
#include "text/utf8_check.h"

namespace kelvor {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view utf16BigEndianMark = "\xFE\xFF";

/// What the bytes 0x80 to 0x9F stand for in Windows-1252; all others stand for the character of their number.
constexpr std::array<char16_t, 32> windows1252Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

/// How many units of a word come before the first one that is not ASCII.
/// @param beyond  the bits of the word that no ASCII unit has
/// @param unit    in bits
std::size_t asciiUnits(uint64_t beyond, int unit) {
    const int zeros = std::endian::native == std::endian::little ? std::countr_zero(beyond) : std::countl_zero(beyond);
    return static_cast<std::size_t>(zeros / unit);
}

/// The same for the eight bytes at `position`.
std::size_t asciiBytes(std::string_view text, std::size_t position) {
    return asciiUnits(wordAt(text, position) & 0x8080808080808080, 8);
}

/// A byte's character in UTF-8, with room for a copy of fixed size.
struct Spelling {
    std::array<char, 4> bytes{};
    std::size_t length = 0;
};

std::array<Spelling, 256> spellWindows1252() {
    std::array<Spelling, 256> spellings;
    for (std::size_t byte = 0; byte < spellings.size(); ++byte) {
        std::string character;
        appendCodePoint(character,
                        byte >= 0x80 && byte < 0xA0 ? windows1252Upper[byte - 0x80] : static_cast<int>(byte));
        std::copy(character.begin(), character.end(), spellings[byte].bytes.begin());
        spellings[byte].length = character.size();
    }
    return spellings;
}

void appendFromWindows1252(std::string& text, std::string_view bytes) {
    static const auto spellings = spellWindows1252();
    constexpr std::size_t atATime = 2048;
    std::array<char, atATime * sizeof(Spelling::bytes)> characters{};
    for (; !bytes.empty(); bytes.remove_prefix(std::min(atATime, bytes.size()))) {
        char* end = characters.data();
        for (const char byte : bytes.substr(0, atATime)) {
            const auto& spelling = spellings[static_cast<uint8_t>(byte)];
            std::memcpy(end, spelling.bytes.data(), sizeof spelling.bytes);
            end += spelling.length;
        }
        text.append(characters.data(), end);
    }
}

std::optional<char> windows1252Byte(UChar32 value) {
    if (value < 0x80 || (value >= 0xA0 && value <= 0xFF)) return static_cast<char>(value);
    const auto found = std::find(windows1252Upper.begin(), windows1252Upper.end(), value);
    if (found == windows1252Upper.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - windows1252Upper.begin()));
}

/// Makes `bytes` longer by what `write` puts behind them, `most` bytes at most: it gets the place and gives the end,
/// null when it fails.
template <typename Write>
bool appendWritten(std::string& bytes, std::size_t most, Write write) {
    const auto before = bytes.size();
    bytes.resize(before + most);
    const char* const end = write(bytes.data() + before);
    bytes.resize(end == nullptr ? before : static_cast<std::size_t>(end - bytes.data()));
    return end != nullptr;
}

char* writeWindows1252(std::string_view text, char* end) {
    for (std::size_t position = 0; position < text.size();) {
        // Eight bytes are copied whatever they are, and those taken that are ASCII.
        if (position + 8 <= text.size()) {
            std::memcpy(end, text.data() + position, 8);
            const auto count = asciiBytes(text, position);
            end += count;
            position += count;
            if (count == 8) continue;
        }
        const auto point = codePointAt(text, position);
        const auto byte = windows1252Byte(point.value);
        if (!byte) return nullptr;
        *end++ = *byte;
        position += point.length;
    }
    return end;
}

UChar32 unitAt(std::string_view bytes, std::size_t position, bool bigEndian) {
    const auto first = static_cast<uint8_t>(bytes[position]);
    const auto second = static_cast<uint8_t>(bytes[position + 1]);
    return bigEndian ? first << 8 | second : second << 8 | first;
}

/// The bits that no ASCII character has in four units of UTF-16.
uint64_t bitsBeyondAscii(bool bigEndian) {
    using Units = std::array<uint8_t, 8>;
    return std::bit_cast<uint64_t>(bigEndian ? Units{0xFF, 0x80, 0xFF, 0x80, 0xFF, 0x80, 0xFF, 0x80}
                                             : Units{0x80, 0xFF, 0x80, 0xFF, 0x80, 0xFF, 0x80, 0xFF});
}

/// False when a unit is torn or a surrogate stands alone.
bool appendFromUtf16(std::string& text, std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) return false;
    const auto beyondAscii = bitsBeyondAscii(bigEndian);
    // Characters are appended many at once. Eight are the most that one step adds.
    std::array<char, 8192> characters{};
    std::size_t length = 0;
    for (std::size_t position = 0; position < bytes.size();) {
        if (length + 8 > characters.size()) text.append(characters.data(), std::exchange(length, 0));
        if (position + 8 <= bytes.size()) {
            const char* low = bytes.data() + position + (bigEndian ? 1 : 0);
            const std::array<char, 4> four = {low[0], low[2], low[4], low[6]};
            std::memcpy(characters.data() + length, four.data(), four.size());
            const auto count = asciiUnits(wordAt(bytes, position) & beyondAscii, 16);
            length += count;
            position += 2 * count;
            if (count == four.size()) continue;
        }
        auto value = unitAt(bytes, position, bigEndian);
        position += 2;
        if (U_IS_SURROGATE(value)) {
            if (!U_IS_LEAD(value) || position == bytes.size()) return false;
            const auto trail = unitAt(bytes, position, bigEndian);
            position += 2;
            if (!U_IS_TRAIL(trail)) return false;
            value = U16_GET_SUPPLEMENTARY(value, trail);
        }
        U8_APPEND_UNSAFE(characters, length, value);
    }
    text.append(characters.data(), length);
    return true;
}

char* writeUnit(char* end, UChar32 unit, bool bigEndian) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    *end++ = bigEndian ? high : low;
    *end++ = bigEndian ? low : high;
    return end;
}

/// Each of four bytes as a unit.
void writeUnits(std::string_view four, char* end, bool bigEndian) {
    constexpr bool isLittle = std::endian::native == std::endian::little;
    uint64_t units = 0;
    for (std::size_t i = 0; i < 4; ++i) units |= uint64_t{static_cast<uint8_t>(four[isLittle ? i : 3 - i])} << 16 * i;
    if (bigEndian == isLittle) units <<= 8;
    std::memcpy(end, &units, sizeof units);
}

char* writeUtf16(std::string_view text, char* end, bool bigEndian) {
    for (std::size_t position = 0; position < text.size();) {
        // Eight bytes become units whatever they are, and those are taken that are ASCII.
        if (position + 8 <= text.size()) {
            for (const std::size_t half : {0, 4})
                writeUnits(text.substr(position + half, 4), end + 2 * half, bigEndian);
            const auto count = asciiBytes(text, position);
            end += 2 * count;
            position += count;
            if (count == 8) continue;
        }
        const auto point = codePointAt(text, position);
        if (point.value >= firstStrayByte) return nullptr;
        if (point.value <= 0xFFFF) {
            end = writeUnit(end, point.value, bigEndian);
        } else {
            end = writeUnit(end, U16_LEAD(point.value), bigEndian);
            end = writeUnit(end, U16_TRAIL(point.value), bigEndian);
        }
        position += point.length;
    }
    return end;
}

/// In bytes: about a millisecond's work.
constexpr std::size_t pieceLength = std::size_t{1} << 20;

std::optional<std::string> decodeByPieces(std::string_view bytes, Encoding encoding, const Step& step) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t start = 0; start < bytes.size(); step()) {
        const auto end = pieceEnd(bytes, start, pieceLength, encoding);
        if (!appendDecoded(text, bytes.substr(start, end - start), encoding)) return std::nullopt;
        start = end;
    }
    return text;
}

}  // namespace

DecodedText decode(std::string bytes, const Step& step) {
    const auto marked = encodingOfMark(bytes);
    const auto mark = markOf(marked);
    if (isUtf16(marked)) {
        if (auto text = decodeByPieces(std::string_view(bytes).substr(mark.size()), marked, step))
            return {std::move(*text), marked};
    }
    if (!holdsByPieces(bytes, isValidUtf8, step))
        return {decodeByPieces(bytes, Encoding::windows1252, step).value(), Encoding::windows1252};
    return {std::move(bytes.erase(0, mark.size())), marked};
}

Encoding encodingOfMark(std::string_view bytes) {
    if (bytes.starts_with(utf16LittleEndianMark)) return Encoding::utf16LittleEndian;
    if (bytes.starts_with(utf16BigEndianMark)) return Encoding::utf16BigEndian;
    return bytes.starts_with(utf8Mark) ? Encoding::utf8WithMark : Encoding::utf8;
}

std::string_view markOf(Encoding encoding) {
    switch (encoding) {
        case Encoding::utf8WithMark:
            return utf8Mark;
        case Encoding::utf16LittleEndian:
            return utf16LittleEndianMark;
        case Encoding::utf16BigEndian:
            return utf16BigEndianMark;
        default:
            return {};
    }
}

bool isUtf16(Encoding encoding) {
    return encoding == Encoding::utf16LittleEndian || encoding == Encoding::utf16BigEndian;
}

std::size_t pieceEnd(std::string_view bytes, std::size_t start, std::size_t length, Encoding encoding) {
    auto end = start + std::min(length, bytes.size() - start);
    if (end == bytes.size() || encoding == Encoding::windows1252) return end;
    if (isUtf16(encoding)) {
        const char high = bytes[end - (encoding == Encoding::utf16BigEndian ? 2 : 1)];
        return (high & 0xFC) == 0xD8 ? end - 2 : end;
    }
    // A character has three continuation bytes at most.
    for (int i = 0; i < 3 && end > start && isContinuationByte(bytes[end]); ++i) --end;
    return end;
}

bool appendDecoded(std::string& text, std::string_view bytes, Encoding encoding) {
    if (isUtf16(encoding)) return appendFromUtf16(text, bytes, encoding == Encoding::utf16BigEndian);
    if (encoding == Encoding::windows1252) {
        appendFromWindows1252(text, bytes);
        return true;
    }
    if (!isValidUtf8(bytes)) return false;
    text += bytes;
    return true;
}

bool appendEncoded(std::string& bytes, std::string_view text, Encoding encoding) {
    if (isUtf16(encoding)) {
        const bool bigEndian = encoding == Encoding::utf16BigEndian;
        return appendWritten(bytes, 2 * text.size(), [&](char* end) { return writeUtf16(text, end, bigEndian); });
    }
    if (encoding == Encoding::windows1252)
        return appendWritten(bytes, text.size(), [&](char* end) { return writeWindows1252(text, end); });
    bytes += text;
    return true;
}

std::optional<std::string> encode(std::string_view text, Encoding encoding) {
    std::string bytes(markOf(encoding));
    return appendEncoded(bytes, text, encoding) ? std::optional(std::move(bytes)) : std::nullopt;
}

bool holdsByPieces(std::string_view bytes, bool (*isSo)(std::string_view), const Step& step) {
    for (std::size_t start = 0; start < bytes.size(); step()) {
        const auto end = pieceEnd(bytes, start, pieceLength, Encoding::utf8);
        if (!isSo(bytes.substr(start, end - start))) return false;
        start = end;
    }
    return true;
}

}  // namespace kelvor
