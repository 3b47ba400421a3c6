// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/file_rewrite.h"

#include <string_view>

#include "files/file_replace.h"

namespace kelvor {

Outcome FileRewriter::rewrite(const std::string& path, const std::string& temporary, const Step& step) {
    auto file = readForReplacement(path, step);
    const std::string_view bytes = rewrite_.apply(std::move(file.bytes), path, step);
    return kept_.replace(file, bytes, temporary, flusher_, step);
}

}  // namespace kelvor
