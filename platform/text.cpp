#include "platform/text.h"

#include <unicode/casemap.h>
#include <unicode/coll.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>

#include "platform/code_points.h"
#include "platform/error.h"

namespace kelvor {

namespace {

/// ICU counts bytes in 32 bits and a case mapping may triple them, so long texts are mapped in pieces.
constexpr std::size_t largestPiece = std::size_t{256} << 20;

/// Where a piece that begins at `start` ends: behind a line, or at least behind a whole character.
std::size_t pieceEnd(std::string_view text, std::size_t start) {
    if (text.size() - start <= largestPiece) return text.size();
    const auto limit = start + largestPiece;
    const auto lineEnd = text.substr(start, largestPiece).rfind('\n');
    if (lineEnd != std::string_view::npos) return start + lineEnd + 1;
    auto end = limit;
    while (limit - end < 3 && isContinuationByte(text[end])) --end;
    return end;
}

using CaseMapping = void (*)(const char*, uint32_t, icu::StringPiece, icu::ByteSink&, icu::Edits*, UErrorCode&);

std::string mapped(std::string_view text, CaseMapping mapping) {
    std::string result;
    result.reserve(text.size());
    icu::StringByteSink<std::string> sink(&result);
    for (std::size_t start = 0; start < text.size();) {
        const auto end = pieceEnd(text, start);
        const icu::StringPiece piece(text.data() + start, static_cast<int32_t>(end - start));
        UErrorCode status = U_ZERO_ERROR;
        mapping("", 0, piece, sink, nullptr, status);
        if (U_FAILURE(status)) throw Error(error_number::invalidProcedureCall, u_errorName(status));
        start = end;
    }
    return result;
}

/// The order of the root collation; null when ICU's data are not there.
const icu::Collator* rootCollator() {
    static const std::unique_ptr<icu::Collator> collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }();
    return collator.get();
}

icu::StringPiece pieceOf(std::string_view text) {
    return {text.data(), static_cast<int32_t>(text.size())};
}

}  // namespace

std::string toUpper(std::string_view text) {
    return mapped(text, icu::CaseMap::utf8ToUpper);
}

std::string toLower(std::string_view text) {
    return mapped(text, icu::CaseMap::utf8ToLower);
}

std::string foldCase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto point = codePointAt(text, position);
        appendCodePoint(result, foldedCodePoint(point.value));
        position += point.length;
    }
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        const auto a = codePointAt(left, i);
        const auto b = codePointAt(right, j);
        if (a.value != b.value && foldedCodePoint(a.value) != foldedCodePoint(b.value)) return false;
        i += a.length;
        j += b.length;
    }
    return i == left.size() && j == right.size();
}

int compareText(std::string_view left, std::string_view right) {
    if (const auto* collator = rootCollator()) {
        UErrorCode status = U_ZERO_ERROR;
        const auto order = collator->compareUTF8(pieceOf(left), pieceOf(right), status);
        if (U_SUCCESS(status) && order != UCOL_EQUAL) return order;
    }
    // The collation takes some different texts for equal; a sorted list needs one order for them all the same.
    return left.compare(right);
}

std::string textSortKey(std::string_view text) {
    const auto* collator = rootCollator();
    if (!collator) return std::string(text);  // ICU's data are not there
    const auto wide = icu::UnicodeString::fromUTF8(pieceOf(text));
    std::string key(static_cast<std::size_t>(wide.length()) * 3 + 16, '\0');
    const auto fill = [&] {
        return collator->getSortKey(wide, reinterpret_cast<uint8_t*>(key.data()), static_cast<int32_t>(key.size()));
    };
    const auto needed = static_cast<std::size_t>(fill());
    const bool fitted = needed <= key.size();
    key.resize(needed);
    if (!fitted) fill();
    return key;
}

void sortAsText(std::vector<std::string>& texts) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(texts.size());
    for (std::string& text : texts) {
        std::string key = textSortKey(text);
        keyed.emplace_back(std::move(key), std::move(text));
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), texts.begin(), [](auto& entry) { return std::move(entry.second); });
}

std::string withLineEnd(std::string_view text, std::string_view lineEnd) {
    std::string result;
    result.reserve(text.size() + text.size() / 32);
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(0, end);
        const bool ended = end < text.size();
        text.remove_prefix(ended ? end + 1 : end);
        if (ended && line.ends_with('\r')) line.remove_suffix(1);
        for (auto carriage = line.find('\r'); carriage != std::string_view::npos; carriage = line.find('\r')) {
            result.append(line.substr(0, carriage)).append(lineEnd);
            line.remove_prefix(carriage + 1);
        }
        result.append(line);
        if (ended) result.append(lineEnd);
    }
    return result;
}

std::string withLineEnds(std::string_view text) {
    auto result = withLineEnd(text, "\r\n");
    if (!text.empty() && text.back() != '\r' && text.back() != '\n') result += "\r\n";
    return result;
}

TextChange changeBetween(std::string_view before, std::string_view after) {
    const auto shorter = std::min(before.size(), after.size());
    const auto front =
        std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(shorter), after.begin());
    auto start = static_cast<std::size_t>(front.first - before.begin());
    const auto room = static_cast<std::ptrdiff_t>(shorter - start);
    const auto back = std::mismatch(before.rbegin(), before.rbegin() + room, after.rbegin());
    auto behind = static_cast<std::size_t>(back.first - before.rbegin());
    while (start < before.size() && isContinuationByte(before[start])) --start;
    while (behind > 0 && isContinuationByte(before[before.size() - behind])) --behind;
    return {start, before.substr(start, before.size() - behind - start),
            after.substr(start, after.size() - behind - start)};
}

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

}  // namespace kelvor
