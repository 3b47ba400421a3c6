// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// The way from the document at `fromPath` to `toPath`. It is `toPath` unchanged for a document without a file, and
/// where there is none: between drives or servers, and between a native and a foreign path.
/// Names of foreign paths match in any case and the way is written with `separator`; names of native paths match
/// exactly and the way is written with "/". A path that has no separator is an error 9.
std::string relativePath(std::string_view fromPath, std::string_view toPath, bool isUntitled, char separator);

/// The parts of `text` between the places of `delimiter`, found without regard to case; the last one is empty when the
/// text ends with it. None at all when the delimiter is not there.
std::vector<std::string> splitToCollection(std::string_view text, std::string_view delimiter);

}  // namespace kelvor
