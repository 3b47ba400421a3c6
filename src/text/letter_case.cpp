// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/letter_case.h"

#include <unicode/casemap.h>
#include <unicode/uniset.h>

#include <cstddef>
#include <cstdint>

#include "base/error.h"
#include "text/code_points.h"
#include "text/text_encoding.h"

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

std::vector<std::string> spellingsOf(UChar32 folded) {
    std::vector<std::string> spellings(1);
    appendCodePoint(spellings.front(), folded);
    if (folded >= firstStrayByte) return spellings;
    icu::UnicodeSet set(folded, folded);
    set.closeOver(USET_CASE_INSENSITIVE);
    for (int32_t range = 0; range < set.getRangeCount(); ++range) {
        for (auto value = set.getRangeStart(range); value <= set.getRangeEnd(range); ++value) {
            if (value != folded && foldedCodePoint(value) == folded) appendCodePoint(spellings.emplace_back(), value);
        }
    }
    return spellings;
}

}  // namespace kelvor
