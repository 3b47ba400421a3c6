// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "base/outcome.h"
#include "base/step.h"
#include "batch/bytes_rewrite.h"
#include "batch/kept_files.h"
#include "batch/line_rewrite.h"
#include "files/flusher.h"

namespace kelvor {

/// Rewrites one file on the disk after another.
class FileRewriter {
public:
    /// @param kept  keeps the old files; it must live as long as this
    FileRewriter(LineRewrite rewrite, KeptFiles& kept) : rewrite_(std::move(rewrite)), kept_(kept) {}

    /// Rewrites a file, also one in which nothing is found; it keeps its encoding. Throws Error when it failed, also
    /// when the file's encoding lacks a character of the new text; the file then stays as it was.
    /// @param temporary  as replaceFile takes it
    /// @return as KeptFiles::replace
    Outcome rewrite(const std::string& path, const std::string& temporary, const Step& step);

private:
    BytesRewrite rewrite_;
    KeptFiles& kept_;
    Flusher flusher_;
};

}  // namespace kelvor
