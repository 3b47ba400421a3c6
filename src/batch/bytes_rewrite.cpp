// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/bytes_rewrite.h"

#include "base/error.h"
#include "files/file_error.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// In bytes: more than most pages need, and little to keep during a run.
constexpr std::size_t mostKept = std::size_t{4} << 20;

}  // namespace

std::string_view BytesRewrite::apply(std::string bytes, const std::string& path, const Step& step) {
    const auto [text, encoding] = decode(std::move(bytes), step);
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
    return bytes_;
}

}  // namespace kelvor
