// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/step.h"
#include "files/file_bytes.h"
#include "text/text_encoding.h"
#include "text/text_search.h"

namespace kelvor {

/// Counts one text in one file after another. A file's text is what readWholeFile gives.
class FileCount {
public:
    enum class Outcome { counted, unreadable, stopped };
    struct Result {
        Outcome outcome = Outcome::counted;
        std::size_t count = 0;
    };

    /// @param text   UTF-8; an empty one stands nowhere. CR LF in it is any line end of the file
    /// @param goOn   asked at least every few milliseconds of a count; its false ends the count
    FileCount(std::string_view text, bool matchCase, std::function<bool()> goOn);

    /// How often the text stands in a file; a match that overlaps the one before does not count. A file whose text is
    /// exactly "error" is taken for one that cannot be read.
    Result in(const std::string& path);

private:
    struct Tally {
        std::size_t count = 0;
        bool longerMatch = false;  ///< some match has another length than the text looked for
    };
    Result countInFile(const std::string& path);
    std::optional<std::size_t> countAsUtf8(std::string_view bytes) const;
    std::optional<std::size_t> countByPieces(std::string_view bytes, Encoding encoding) const;
    Tally countIn(std::string_view text) const;
    void countTo(std::size_t end, std::string_view text, std::size_t& from, Tally& tally) const;

    TextSearch search_;
    Step pause_;  ///< ends the count by an exception when it is not to go on
    FileBytes file_;
    std::size_t textLength_;
    std::size_t longestMatch_;
    std::size_t pieceLength_;
    bool isAscii_;
    bool needsBeyondAscii_;  ///< no ASCII text alone has it, in whatever case
    bool hasLineEnd_;
};

}  // namespace kelvor
