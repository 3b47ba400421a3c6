// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// How many lines one text has that the other has not. A line that is another now counts in both.
struct LineCounts {
    int added = 0;
    int removed = 0;

    bool operator==(const LineCounts&) const = default;
};

/// Lines end in CR LF, LF or a lone CR; the end of a line, and whether the last one has any, counts.
LineCounts countDifferences(std::string_view before, std::string_view after);

/// A line of a text.
struct TextLine {
    int number = 0;         ///< from 1; 0 where there is no line
    std::string_view text;  ///< without its end
    std::string_view end;   ///< "" in a last line that has none

    bool operator==(const TextLine&) const = default;
};

/// What stands side by side: a line of each text, or of one of them.
struct DifferenceRow {
    enum class Kind {
        same,
        lineEnd,  ///< the lines have the same text and end differently
        changed,
        added,   ///< of the right text alone
        removed  ///< of the left text alone
    };

    Kind kind = Kind::same;
    TextLine left;
    TextLine right;

    bool operator==(const DifferenceRow&) const = default;
};

/// All lines of two texts side by side: the lines on either side, one behind the other, are that text. Where some gave
/// way to others these are paired in their order. The rows point into the texts. Time and memory grow with the texts;
/// where nearly all differs the same lines may be fewer than there could be. Throws Error 7 when memory does not
/// suffice.
std::vector<DifferenceRow> compareLines(std::string_view left, std::string_view right);

/// Of the library that compares.
std::string libgit2Version();

}  // namespace kelvor
