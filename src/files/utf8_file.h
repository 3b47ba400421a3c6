// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "files/content_hash.h"
#include "files/file_stamp.h"
#include "files/regular_file.h"
#include "text/line_ends.h"
#include "text/text_encoding.h"

namespace kelvor {

/// The text of a file, taken for UTF-8 until other bytes show, part by part in the same memory: fresh memory for all of
/// a large file costs more than reading it.
class Utf8File {
public:
    /// Throws what readFile throws.
    explicit Utf8File(const std::string& path);

    /// In bytes, as the disk names it: 0 for what has no size, and what is written meanwhile comes too.
    std::size_t size() const { return static_cast<std::size_t>(opened_.status.st_size); }

    /// The next characters, good until the next call; an empty part at the end. std::nullopt when the file is not UTF-8
    /// or has no size: then it is decode() that tells its text. Throws what readFile throws.
    std::optional<std::string_view> next();

    /// Of what has been read.
    Encoding encoding() const { return encoding_; }
    std::string lineEnd() const { return lineEnds_.mostCommon(); }
    FileStamp stamp() const;

private:
    std::string_view read();

    std::string path_;
    RegularFile opened_;
    std::unique_ptr<char[]> memory_;
    std::size_t length_ = 0;  ///< of the bytes in the memory
    std::size_t given_ = 0;   ///< of them; the rest may be a part of a character
    std::size_t place_ = 0;   ///< in the file, behind them
    bool atEnd_ = false;
    Encoding encoding_ = Encoding::utf8;
    LineEndCounts lineEnds_;
    ContentHasher hasher_;
};

}  // namespace kelvor
