// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvor {

/// The line ends of a text that is looked at part by part.
class LineEndCounts {
public:
    void add(std::string_view part);
    /// The one that the text has most often; CR LF when it has none.
    std::string mostCommon() const;

private:
    std::size_t feeds_ = 0;    ///< those of pairs too
    std::size_t returns_ = 0;  ///< those of pairs too
    std::size_t pairs_ = 0;
    bool endsWithReturn_ = false;
};

/// The text with `lineEnd` for each of its line ends: CR LF, a lone CR, a lone LF.
std::string withLineEnd(std::string_view text, std::string_view lineEnd);

/// The lines of a text, whatever ends them (CR LF, a lone CR, a lone LF), each ended by CR LF, the last one too.
std::string withLineEnds(std::string_view text);

}  // namespace kelvor
