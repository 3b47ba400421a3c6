// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/step.h"
#include "batch/line_rewrite.h"

namespace kelvor {

/// Makes what one file after another is to hold.
class BytesRewrite {
public:
    explicit BytesRewrite(LineRewrite rewrite) : rewrite_(std::move(rewrite)) {}

    /// A file's new bytes, in the encoding of its old ones; good until the next call. Throws Error when that lacks a
    /// character of the new text.
    /// @param path  for the error
    std::string_view apply(std::string bytes, const std::string& path, const Step& step);

    /// As LineRewrite::takeCounts.
    std::vector<std::size_t> takeCounts() { return rewrite_.takeCounts(); }

private:
    LineRewrite rewrite_;
    std::string bytes_;  ///< the next file's are written into the same memory
};

}  // namespace kelvor
