// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/step.h"
#include "batch/line_rewrite.h"
#include "files/flusher.h"

namespace kelvor {

/// Rewrites one file on the disk after another.
class FileRewriter {
public:
    explicit FileRewriter(LineRewrite rewrite) : rewrite_(std::move(rewrite)) {}

    /// Rewrites a file, also one in which nothing is found; it keeps its encoding. Throws Error when it failed, also
    /// when the file's encoding lacks a character of the new text; the file then stays as it was.
    /// @param temporary  as replaceFile takes it
    void rewrite(const std::string& path, const std::string& temporary, const Step& step);

private:
    LineRewrite rewrite_;
    std::string bytes_;  ///< what the last file has got; the next one's are written into the same memory
    Flusher flusher_;
};

}  // namespace kelvor
