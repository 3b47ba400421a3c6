#include "platform/text_encoding.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "platform/code_points.h"

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

std::string textFromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char character : bytes) {
        const auto byte = static_cast<uint8_t>(character);
        appendCodePoint(text, byte >= 0x80 && byte < 0xA0 ? windows1252Upper[byte - 0x80U] : byte);
    }
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

/// The text of UTF-16 bytes without their mark; nothing when a unit is torn or a surrogate stands alone.
std::optional<std::string> textFromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    std::string text;
    text.reserve(bytes.size() / 2 + bytes.size() / 8);
    for (std::size_t position = 0; position < bytes.size(); position += 2) {
        auto value = unitAt(bytes, position, bigEndian);
        if (U_IS_SURROGATE(value)) {
            if (!U_IS_LEAD(value) || position + 2 == bytes.size()) return std::nullopt;
            position += 2;
            const auto trail = unitAt(bytes, position, bigEndian);
            if (!U_IS_TRAIL(trail)) return std::nullopt;
            value = U16_GET_SUPPLEMENTARY(value, trail);
        }
        appendCodePoint(text, value);
    }
    return text;
}

void appendUnit(std::string& bytes, UChar32 unit, bool bigEndian) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
}

std::optional<std::string> utf16FromText(std::string_view text, bool bigEndian) {
    std::string bytes(bigEndian ? utf16BigEndianMark : utf16LittleEndianMark);
    bytes.reserve(2 + 2 * text.size());
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

/// What `bytes` hold when their text is not the bytes themselves, mark aside.
std::optional<DecodedText> decodeByConversion(std::string_view bytes) {
    const bool bigEndian = bytes.starts_with(utf16BigEndianMark);
    if (bigEndian || bytes.starts_with(utf16LittleEndianMark)) {
        if (auto text = textFromUtf16(bytes.substr(2), bigEndian)) {
            return DecodedText{std::move(*text), bigEndian ? Encoding::utf16BigEndian : Encoding::utf16LittleEndian};
        }
    }
    if (!isValidUtf8(bytes)) return DecodedText{textFromWindows1252(bytes), Encoding::windows1252};
    return std::nullopt;
}

}  // namespace

DecodedText decode(std::string_view bytes) {
    if (auto converted = decodeByConversion(bytes)) return std::move(*converted);
    if (!bytes.starts_with(utf8Mark)) return {std::string(bytes), Encoding::utf8};
    return {std::string(bytes.substr(utf8Mark.size())), Encoding::utf8WithMark};
}

DecodedText decode(std::string&& bytes) {
    if (auto converted = decodeByConversion(bytes)) return std::move(*converted);
    if (!bytes.starts_with(utf8Mark)) return {std::move(bytes), Encoding::utf8};
    bytes.erase(0, utf8Mark.size());
    return {std::move(bytes), Encoding::utf8WithMark};
}

std::optional<std::string> encode(std::string_view text, Encoding encoding) {
    switch (encoding) {
        case Encoding::utf8:
            return std::string(text);
        case Encoding::utf8WithMark:
            return std::string(utf8Mark).append(text);
        case Encoding::utf16LittleEndian:
            return utf16FromText(text, false);
        case Encoding::utf16BigEndian:
            return utf16FromText(text, true);
        case Encoding::windows1252:
            return windows1252FromText(text);
    }
    return std::nullopt;
}

bool isValidUtf8(std::string_view bytes) {
    constexpr uint64_t highBits = 0x8080808080808080;
    std::size_t position = 0;
    while (position < bytes.size()) {
        // Most of a page is ASCII: eight bytes in one look.
        while (position + sizeof(uint64_t) <= bytes.size()) {
            uint64_t word = 0;
            std::memcpy(&word, bytes.data() + position, sizeof word);
            if ((word & highBits) != 0) break;
            position += sizeof word;
        }
        if (position == bytes.size()) break;
        const auto point = codePointAt(bytes, position);
        if (point.value >= firstStrayByte) return false;
        position += point.length;
    }
    return true;
}

}  // namespace kelvor
