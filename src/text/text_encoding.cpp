#include "text/text_encoding.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

#include "text/code_points.h"

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

uint64_t wordAt(std::string_view bytes, std::size_t position) {
    uint64_t word = 0;
    std::memcpy(&word, bytes.data() + position, sizeof word);
    return word;
}

/// Where behind `position` the first byte stands that is not ASCII; most of a page is, so many are taken in one look.
std::size_t skipAscii(std::string_view bytes, std::size_t position) {
    constexpr uint64_t highBits = 0x8080808080808080;
    constexpr std::size_t size = sizeof(uint64_t);
    const auto isAscii = [](uint64_t word) { return (word & highBits) == 0; };
    while (position + 4 * size <= bytes.size() &&
           isAscii(wordAt(bytes, position) | wordAt(bytes, position + size) | wordAt(bytes, position + 2 * size) |
                   wordAt(bytes, position + 3 * size)))
        position += 4 * size;
    while (position + size <= bytes.size() && isAscii(wordAt(bytes, position))) position += size;
    while (position < bytes.size() && static_cast<uint8_t>(bytes[position]) < 0x80) ++position;
    return position;
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

std::string textFromWindows1252(std::string_view bytes) {
    static const auto spellings = spellWindows1252();
    std::size_t length = 0;
    for (const char byte : bytes) length += spellings[static_cast<uint8_t>(byte)].length;
    std::string text(length + sizeof(Spelling::bytes), '\0');
    char* end = text.data();
    for (const char byte : bytes) {
        const auto& spelling = spellings[static_cast<uint8_t>(byte)];
        std::memcpy(end, spelling.bytes.data(), sizeof spelling.bytes);
        end += spelling.length;
    }
    text.resize(length);
    return text;
}

std::optional<char> windows1252Byte(UChar32 value) {
    if (value < 0x80 || (value >= 0xA0 && value <= 0xFF)) return static_cast<char>(value);
    const auto found = std::find(windows1252Upper.begin(), windows1252Upper.end(), value);
    if (found == windows1252Upper.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - windows1252Upper.begin()));
}

std::optional<std::string> windows1252FromText(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto point = codePointAt(text, position);
        const auto byte = windows1252Byte(point.value);
        if (!byte) return std::nullopt;
        bytes += *byte;
        position += point.length;
    }
    return bytes;
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

/// The text of UTF-16 bytes without their mark; nothing when a unit is torn or a surrogate stands alone.
std::optional<std::string> textFromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    const auto beyondAscii = bitsBeyondAscii(bigEndian);
    std::string text;
    text.reserve(bytes.size() / 2 + bytes.size() / 8);
    // Characters are appended many at once. Four are the most that one step adds.
    std::array<char, 8192> characters{};
    std::size_t length = 0;
    for (std::size_t position = 0; position < bytes.size();) {
        if (length + 4 > characters.size()) text.append(characters.data(), std::exchange(length, 0));
        if (position + 8 <= bytes.size() && (wordAt(bytes, position) & beyondAscii) == 0) {
            const char* low = bytes.data() + position + (bigEndian ? 1 : 0);
            const std::array<char, 4> four = {low[0], low[2], low[4], low[6]};
            std::memcpy(characters.data() + length, four.data(), four.size());
            length += four.size();
            position += 8;
            continue;
        }
        auto value = unitAt(bytes, position, bigEndian);
        position += 2;
        if (U_IS_SURROGATE(value)) {
            if (!U_IS_LEAD(value) || position == bytes.size()) return std::nullopt;
            const auto trail = unitAt(bytes, position, bigEndian);
            position += 2;
            if (!U_IS_TRAIL(trail)) return std::nullopt;
            value = U16_GET_SUPPLEMENTARY(value, trail);
        }
        U8_APPEND_UNSAFE(characters, length, value);
    }
    return text.append(characters.data(), length);
}

void appendUnit(std::string& bytes, UChar32 unit, bool bigEndian) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
}

std::optional<std::string> utf16FromText(std::string_view text, bool bigEndian) {
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto point = codePointAt(text, position);
        if (point.value >= firstStrayByte) return std::nullopt;
        if (point.value <= 0xFFFF) {
            appendUnit(bytes, point.value, bigEndian);
        } else {
            appendUnit(bytes, U16_LEAD(point.value), bigEndian);
            appendUnit(bytes, U16_TRAIL(point.value), bigEndian);
        }
        position += point.length;
    }
    return bytes;
}

/// In bytes: about a millisecond's work.
constexpr std::size_t pieceLength = std::size_t{1} << 20;

std::optional<std::string> decodeByPieces(std::string_view bytes, Encoding encoding, const Step& step) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t start = 0; start < bytes.size(); step()) {
        const auto end = pieceEnd(bytes, start, pieceLength, encoding);
        const auto piece = decodePiece(bytes.substr(start, end - start), encoding);
        if (!piece) return std::nullopt;
        text += *piece;
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
    for (int i = 0; i < 3 && isContinuationByte(bytes[end]); ++i) --end;
    return end;
}

std::optional<std::string> decodePiece(std::string_view bytes, Encoding encoding) {
    switch (encoding) {
        case Encoding::utf16LittleEndian:
            return textFromUtf16(bytes, false);
        case Encoding::utf16BigEndian:
            return textFromUtf16(bytes, true);
        case Encoding::windows1252:
            return textFromWindows1252(bytes);
        default:
            return isValidUtf8(bytes) ? std::optional(std::string(bytes)) : std::nullopt;
    }
}

std::optional<std::string> encodePiece(std::string_view text, Encoding encoding) {
    switch (encoding) {
        case Encoding::utf16LittleEndian:
            return utf16FromText(text, false);
        case Encoding::utf16BigEndian:
            return utf16FromText(text, true);
        case Encoding::windows1252:
            return windows1252FromText(text);
        default:
            return std::string(text);
    }
}

std::optional<std::string> encode(std::string_view text, Encoding encoding) {
    auto bytes = encodePiece(text, encoding);
    if (bytes) bytes->insert(0, markOf(encoding));
    return bytes;
}

bool holdsByPieces(std::string_view bytes, bool (*isSo)(std::string_view), const Step& step) {
    for (std::size_t start = 0; start < bytes.size(); step()) {
        const auto end = pieceEnd(bytes, start, pieceLength, Encoding::utf8);
        if (!isSo(bytes.substr(start, end - start))) return false;
        start = end;
    }
    return true;
}

bool isAscii(std::string_view bytes) {
    return skipAscii(bytes, 0) == bytes.size();
}

bool isValidUtf8(std::string_view bytes) {
    for (auto position = skipAscii(bytes, 0); position < bytes.size(); position = skipAscii(bytes, position)) {
        const auto point = codePointAt(bytes, position);
        if (point.value >= firstStrayByte) return false;
        position += point.length;
    }
    return true;
}

}  // namespace kelvor
