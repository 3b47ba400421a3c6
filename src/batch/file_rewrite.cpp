// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/file_rewrite.h"

#include "base/error.h"
#include "files/file_error.h"
#include "files/file_replace.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// In bytes: more than most pages need, and little to keep during a run.
constexpr std::size_t mostKept = std::size_t{4} << 20;

}  // namespace

void FileRewriter::rewrite(const std::string& path, const std::string& temporary, const Step& step) {
    auto file = readForReplacement(path, step);
    const auto [text, encoding] = decode(std::move(file.bytes), step);
    if (bytes_.capacity() > mostKept) std::string().swap(bytes_);
    bytes_ = markOf(encoding);
    // Room alone costs nothing, and to move what is there already would take long.
    bytes_.reserve(2 * text.size() + bytes_.size());
    const auto take = [&, encoding = encoding](std::string_view lines) {
        if (!appendEncoded(bytes_, lines, encoding)) {
            throw pathError(error_number::invalidProcedureCall, "The file's encoding lacks a character of the new text",
                            path);
        }
    };
    rewrite_.apply(text, take, step);
    replaceFile(file, bytes_, temporary, flusher_, step);
}

}  // namespace kelvor
