// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// Whether a listing of `path` names something; see listingFinds. An error is reported and counts as no.
bool fileExists(const std::string& path);

/// What readWholeFile gives for a file that cannot be read.
constexpr std::string_view unreadableText = "error";

/// A file's text, UTF-8, as asReadWhole gives it; unreadableText when it cannot be read.
std::string readWholeFile(const std::string& path);

/// The text of a file; one with an end-of-file mark (character 26) before its last character gets CR LF behind each of
/// its lines, the last one too.
std::string asReadWhole(std::string text);

}  // namespace kelvor
