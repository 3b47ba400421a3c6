// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "base/step.h"
#include "batch/bytes_rewrite.h"
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
    BytesRewrite rewrite_;
    Flusher flusher_;
};

}  // namespace kelvor
