// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_search.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <vector>

#include "base/error.h"
#include "text/byte_filter.h"
#include "text/code_points.h"
#include "text/letter_case.h"

namespace kelvor {

namespace {

/// Rare bytes are looked for among so many of a pattern's units; more would not find rarer ones. Units are bytes where
/// the case counts, otherwise characters.
constexpr std::size_t unitsWeighed = 256;

/// One byte of the pattern as a text may spell it.
struct PatternByte {
    ByteClass bytes;
    /// Bytes of the same run stand at fixed distances in every spelling of the pattern.
    std::size_t run = 0;
    /// The character boundary that lies behind the byte: how many bytes on, and after how many units.
    std::size_t toBoundary = 0;
    std::size_t unitsToBoundary = 0;
    /// The character of the pattern that it belongs to. Its bytes come together, so two of them are no rarer than one.
    std::size_t character = 0;
    int frequency = 0;
};

/// Where in the pattern the first byte of the pair lies; see PatternByte.
struct Anchor {
    BytePair pair;
    std::size_t toBoundary = 0;
    std::size_t unitsToBoundary = 0;
};

/// Where line ends are compared as wholes: stands for any of them.
constexpr UChar32 lineEnd = '\n';
/// Stands for half of a CR LF there, which is never one.
constexpr UChar32 halfLineEnd = -1;

std::vector<PatternByte> exactBytes(std::string_view pattern) {
    std::vector<PatternByte> bytes;
    std::size_t character = 0;
    for (const char byte : pattern.substr(0, unitsWeighed)) {
        if (!isContinuationByte(byte)) ++character;
        const ByteClass exact{0, static_cast<uint8_t>(byte)};
        bytes.push_back({exact, 0, 1, bytes.size() + 1, character, frequencyOf(exact)});
    }
    return bytes;
}

/// @param spellingsOfUnit  how a text may spell a character of the pattern
template <typename Spellings>
std::vector<PatternByte> spelledBytes(const std::vector<UChar32>& pattern, Spellings spellingsOfUnit) {
    std::vector<PatternByte> bytes;
    std::size_t run = 0;
    for (std::size_t i = 0; i < std::min(pattern.size(), unitsWeighed); ++i) {
        const std::vector<std::string> spellings = spellingsOfUnit(pattern[i]);
        const auto length = spellings.front().size();
        const bool fixed = std::all_of(spellings.begin(), spellings.end(),
                                       [&](const auto& spelling) { return spelling.size() == length; });
        if (!fixed) ++run;
        // Where the length differs only the last byte is at a fixed distance from what follows.
        for (auto toBoundary = fixed ? length : 1; toBoundary > 0; --toBoundary) {
            const auto byteOf = [&](const std::string& spelling) { return spelling[spelling.size() - toBoundary]; };
            ByteClass spelled{0, static_cast<uint8_t>(byteOf(spellings.front()))};
            for (const auto& spelling : spellings) spelled.add(byteOf(spelling));
            bytes.push_back({spelled, run, toBoundary, i + 1, i, frequencyOf(spelled)});
        }
    }
    return bytes;
}

using ByteIterator = std::vector<PatternByte>::const_iterator;
/// The rarest of some bytes that stand in other characters than `but`; their end when there is none.
ByteIterator rarestByte(ByteIterator begin, ByteIterator end, std::optional<std::size_t> but = std::nullopt) {
    auto rarest = end;
    for (auto byte = begin; byte != end; ++byte) {
        if (byte->character == but) continue;
        if (rarest == end || byte->frequency < rarest->frequency) rarest = byte;
    }
    return rarest;
}

/// The two rarest bytes of one run, of all runs the best two. A pattern has at least one byte.
Anchor rarestPair(const std::vector<PatternByte>& bytes) {
    double least = std::numeric_limits<double>::infinity();
    Anchor best;
    for (auto begin = bytes.begin(); begin != bytes.end();) {
        const auto end = std::find_if(begin, bytes.end(), [&](const auto& byte) { return byte.run != begin->run; });
        const auto rarest = rarestByte(begin, end);
        const auto other = rarestByte(begin, end, rarest->character);
        const int share = other == end ? frequencyOf({0xFF, 0xFF}) : other->frequency;
        if (const auto score = static_cast<double>(rarest->frequency) * share; score < least) {
            least = score;
            // In a character alone, its begin and its end.
            const auto last = std::prev(end);
            const auto second = other != end ? other : rarest == last ? begin : last;
            const auto [left, right] = std::minmax(rarest, second);
            best = {{left->bytes, right->bytes, static_cast<std::size_t>(right - left)},
                    left->toBoundary,
                    left->unitsToBoundary};
        }
        begin = end;
    }
    return best;
}

bool isWordCharacter(UChar32 value) {
    return value == '_' || (value < firstStrayByte && u_isalnum(value));
}

bool standsAsWord(std::string_view text, const TextMatch& match) {
    const auto end = match.position + match.length;
    const bool joinedBefore = match.position > 0 && isWordCharacter(codePointAt(text, match.position).value) &&
                              isWordCharacter(codePointBefore(text, match.position).value);
    const bool joinedAfter = end < text.size() && isWordCharacter(codePointBefore(text, end).value) &&
                             isWordCharacter(codePointAt(text, end).value);
    return !joinedBefore && !joinedAfter;
}

/// For each begin of the pattern the length of its longest proper begin that is also its end.
std::vector<std::size_t> bordersOf(const std::vector<UChar32>& pattern) {
    std::vector<std::size_t> borders(pattern.size() + 1, 0);
    for (std::size_t i = 1, matched = 0; i < pattern.size(); ++i) {
        while (matched > 0 && pattern[i] != pattern[matched]) matched = borders[matched];
        if (pattern[i] == pattern[matched]) ++matched;
        borders[i + 1] = matched;
    }
    return borders;
}

}  // namespace

struct TextSearch::Pattern {
    Pattern(std::string_view pattern, SearchOptions options)
        : wholeWord(options.wholeWord),
          matchCase(options.matchCase),
          anyLineEnd(options.anyLineEnd && pattern.find_first_of("\r\n") != pattern.npos) {
        if (matchCase && !anyLineEnd) exact = pattern;
        for (std::size_t position = 0; position < pattern.size();) {
            const auto unit = unitAt(pattern, position, pattern.size());
            characters.push_back(unit.value);
            position += unit.length;
        }
        anchor = rarestPair(exact.empty() ? spelledBytes(characters, [this](UChar32 unit) { return spellings(unit); })
                                          : exactBytes(exact));
    }

    bool empty() const { return characters.empty(); }
    /// The character at `position` in front of `to`, or the line end, with what of it counts in a comparison.
    CodePoint unitAt(std::string_view text, std::size_t position, std::size_t to) const;
    /// The one that ends at `end`, which is not 0.
    CodePoint unitBefore(std::string_view text, std::size_t end) const;
    std::vector<std::string> spellings(UChar32 unit) const;
    bool accepts(std::string_view text, const TextMatch& match) const {
        return !wholeWord || standsAsWord(text, match);
    }
    std::optional<TextMatch> matchAt(std::string_view text, std::size_t from, std::size_t to, std::size_t place,
                                     std::size_t& effort) const;
    std::optional<TextMatch> findSteadily(std::string_view text, std::size_t from, std::size_t to) const;

    bool wholeWord;
    bool matchCase;
    bool anyLineEnd;
    /// The pattern's bytes where only they match, otherwise empty.
    std::string exact;
    std::vector<UChar32> characters;
    Anchor anchor;

private:
    UChar32 compared(UChar32 value) const { return matchCase ? value : foldedCodePoint(value); }
};

CodePoint TextSearch::Pattern::unitAt(std::string_view text, std::size_t position, std::size_t to) const {
    const auto point = codePointAt(text.substr(0, to), position);
    if (!anyLineEnd || (point.value != '\r' && point.value != '\n')) return {compared(point.value), point.length};
    if (point.value == '\n') return {position > 0 && text[position - 1] == '\r' ? halfLineEnd : lineEnd, 1};
    if (position + 1 == text.size() || text[position + 1] != '\n') return {lineEnd, 1};
    return position + 1 < to ? CodePoint{lineEnd, 2} : CodePoint{halfLineEnd, 1};
}

CodePoint TextSearch::Pattern::unitBefore(std::string_view text, std::size_t end) const {
    const auto point = codePointBefore(text, end);
    if (!anyLineEnd || (point.value != '\r' && point.value != '\n')) return {compared(point.value), point.length};
    if (point.value == '\n') return {lineEnd, end > 1 && text[end - 2] == '\r' ? std::size_t{2} : 1};
    return {end < text.size() && text[end] == '\n' ? halfLineEnd : lineEnd, 1};
}

std::vector<std::string> TextSearch::Pattern::spellings(UChar32 unit) const {
    if (anyLineEnd && unit == lineEnd) return {"\r\n", "\r", "\n"};
    if (!matchCase) return spellingsOf(unit);
    std::vector<std::string> spelling(1);
    appendCodePoint(spelling.front(), unit);
    return spelling;
}

/// The match in [from, to) whose anchor stands at `place`; adds to `effort` what it looked at.
std::optional<TextMatch> TextSearch::Pattern::matchAt(std::string_view text, std::size_t from, std::size_t to,
                                                      std::size_t place, std::size_t& effort) const {
    const auto boundary = place + anchor.toBoundary;
    if (!exact.empty()) {
        const auto before = anchor.unitsToBoundary;
        if (boundary - from < before || to - boundary < exact.size() - before) return std::nullopt;
        effort += exact.size() / 8;
        if (std::memcmp(text.data() + (boundary - before), exact.data(), exact.size()) != 0) return std::nullopt;
        return TextMatch{boundary - before, exact.size()};
    }
    auto end = boundary;
    for (auto i = anchor.unitsToBoundary; i < characters.size(); ++i, ++effort) {
        if (end >= to) return std::nullopt;
        const auto unit = unitAt(text, end, to);
        if (unit.value != characters[i]) return std::nullopt;
        end += unit.length;
    }
    auto start = boundary;
    for (auto i = anchor.unitsToBoundary; i > 0; --i, ++effort) {
        if (start <= from || start > to) return std::nullopt;
        const auto unit = unitBefore(text, start);
        if (unit.value != characters[i - 1] || start - from < unit.length) return std::nullopt;
        start -= unit.length;
    }
    return TextMatch{start, end - start};
}

/// For texts in which the rare bytes are common and the pattern nearly matches everywhere: looks at each
/// character of the text once, whatever the pattern.
std::optional<TextMatch> TextSearch::Pattern::findSteadily(std::string_view text, std::size_t from,
                                                           std::size_t to) const {
    const auto borders = bordersOf(characters);
    // Where the last characters of the text began, as many as the pattern has: the oldest is a match's begin.
    std::vector<std::size_t> begins(characters.size());
    std::size_t oldest = 0;
    std::size_t matched = 0;
    for (auto position = from; position < to;) {
        const auto unit = unitAt(text, position, to);
        begins[oldest] = position;
        oldest = oldest + 1 == begins.size() ? 0 : oldest + 1;
        position += unit.length;
        while (matched > 0 && unit.value != characters[matched]) matched = borders[matched];
        if (unit.value == characters[matched]) ++matched;
        if (matched < characters.size()) continue;
        const TextMatch match{begins[oldest], position - begins[oldest]};
        if (accepts(text, match)) return match;
        matched = borders[matched];
    }
    return std::nullopt;
}

TextSearch::TextSearch(std::string_view pattern, SearchOptions options)
    : pattern_(std::make_unique<Pattern>(pattern, options)) {
}

TextSearch::~TextSearch() = default;

TextSearch::TextSearch(TextSearch&&) noexcept = default;

TextSearch& TextSearch::operator=(TextSearch&&) noexcept = default;

std::optional<TextMatch> TextSearch::find(std::string_view text, std::size_t from, std::size_t to) const {
    to = std::min(to, text.size());
    if (pattern_->empty() || from >= to) return std::nullopt;
    std::size_t effort = 0;
    for (auto place = from;; ++place) {
        place = findPair(text, place, to, pattern_->anchor.pair);
        if (place == std::string_view::npos) return std::nullopt;
        const auto match = pattern_->matchAt(text, from, to, place, effort);
        if (match && pattern_->accepts(text, *match)) return match;
        constexpr std::size_t patience = 4096;
        if (effort > patience + 16 * (place - from)) {
            return pattern_->findSteadily(text, from, to);
        }
    }
}

std::string extractBetween(std::string_view startToken, std::string_view endToken, std::string_view text) {
    // An empty token stands at the very start.
    const auto start = startToken.empty() ? TextMatch{} : TextSearch(startToken).find(text);
    if (!start) return {};
    const std::string_view tail = text.substr(start->position + start->length);
    if (endToken.empty()) return std::string(tail);
    const auto end = TextSearch(endToken).find(tail);
    if (!end) throw Error(error_number::invalidProcedureCall, "\"" + std::string(endToken) + "\" was not found");
    return std::string(tail.substr(0, end->position));
}

}  // namespace kelvor
