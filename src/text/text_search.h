// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/umachine.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// What counts as a match.
struct SearchOptions {
    bool wholeWord = false;
    /// Without it letters of all scripts match in any case.
    bool matchCase = false;
    /// A line end of the pattern (CR LF, CR or LF) matches each of the three; half of a CR LF is none.
    bool anyLineEnd = false;

    bool operator==(const SearchOptions&) const = default;
};

/// Where a match stands, in bytes of the text searched. Without regard to case its length may differ
/// from the pattern's.
struct TextMatch {
    std::size_t position = 0;
    std::size_t length = 0;
};

/// A pattern made ready once and searched any number of times. Texts are UTF-8; each search costs in
/// proportion to the bytes that it passes over.
class TextSearch {
public:
    explicit TextSearch(std::string_view pattern, SearchOptions options = {});
    ~TextSearch();
    TextSearch(TextSearch&&) noexcept;
    TextSearch& operator=(TextSearch&&) noexcept;
    TextSearch(const TextSearch&) = delete;
    TextSearch& operator=(const TextSearch&) = delete;

    /// The first match that lies wholly in [from, to). `text` may go on on both sides: whole words are judged by
    /// the characters around the match, also outside the range. An empty pattern matches nowhere;
    /// a `to` behind the text means its end; a `from` at or behind `to` finds nothing.
    std::optional<TextMatch> find(std::string_view text, std::size_t from = 0,
                                  std::size_t to = std::string_view::npos) const;

private:
    struct Pattern;
    std::unique_ptr<Pattern> pattern_;
};

/// What stands between the first `startToken` and the `endToken` that follows it, both found without regard to case;
/// "" without the first. All that follows when `endToken` is "". An `endToken` that is not there is an error 5.
std::string extractBetween(std::string_view startToken, std::string_view endToken, std::string_view text);

}  // namespace kelvor
