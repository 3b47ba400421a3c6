// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// How a tag is spelled. Tags are found by these texts alone, in any letter case: one that is spaced or ordered in
/// another way is not seen.
struct TagTokens {
    std::string_view start;  ///< in front of the value
    std::string_view end;    ///< behind it
    /// Where the tag begins and ends that a new one takes the place of.
    std::string_view replacedStart = start;
    std::string_view replacedEnd = end;
};

constexpr TagTokens metaTokens(std::string_view start) {
    return {.start = start, .end = "\">", .replacedStart = start, .replacedEnd = ">"};
}

/// The tags of a page that are read and written as fields.
namespace head {
inline constexpr TagTokens title{.start = "<TITLE>", .end = "</TITLE>"};
inline constexpr TagTokens body{.start = "<BODY", .end = ">"};
inline constexpr TagTokens author = metaTokens("<META NAME=\"Author\" CONTENT=\"");
inline constexpr TagTokens generator = metaTokens("<META NAME=\"Generator\" CONTENT=\"");
inline constexpr TagTokens description = metaTokens("<META HTTP-EQUIV=\"Description\" CONTENT=\"");
inline constexpr TagTokens keywords = metaTokens("<META HTTP-EQUIV=\"Keywords\" CONTENT=\"");
inline constexpr TagTokens refresh = metaTokens("<META HTTP-EQUIV=\"Refresh\" CONTENT=\"");
inline constexpr TagTokens baseFont{
    .start = "<BASEFONT FACE=\"", .end = "\">", .replacedStart = "<BASEFONT", .replacedEnd = ">"};
inline constexpr std::string_view noCache = "<META HTTP-EQUIV=\"Pragma\" CONTENT=\"no-cache\">";
inline constexpr std::string_view start = "<HEAD>";
}  // namespace head

/// What stands between the first start of the tag and the end that follows it; "" when it does not start, and for the
/// source "error". Nothing when the tag is not closed: there is no end, or a "<" before it, other than as the value's
/// first character.
std::optional<std::string_view> extractText(const TagTokens& tag, std::string_view source);

bool occursIn(std::string_view source, std::string_view token);

/// The tag around a value, which is written as it stands; "" for none.
std::string tagAround(const TagTokens& tag, std::string_view value);

/// The tag around a title, an empty one too.
std::string titleTag(std::string_view title);

/// Where a page sends its reader.
struct Redirect {
    std::string delay;  ///< seconds
    std::string target;
};

/// The parts of the value of a redirecting tag: what stands before the first ";", and what stands behind the first
/// "URL=" in any letter case, "" without that. Without a ";" an error 5.
Redirect redirectFrom(std::string_view value);

/// The tag; "" without a target.
std::string redirectTag(const Redirect& redirect);

/// Whether both parts are there or none is.
bool isComplete(const Redirect& redirect);

/// The attributes of the BODY tag that are known, in the order in which they are written.
enum class BodyAttribute : std::size_t { background, text, link, visitedLink, activeLink, backColor, onLoad };
inline constexpr std::size_t bodyAttributeCount = 7;
using BodyAttributes = std::array<std::string, bodyAttributeCount>;

/// What a field shows for a picture or a script that the tag does not name.
inline constexpr std::string_view noneNamed = "(none)";

struct BodyReading {
    BodyAttributes values;  ///< "" for an attribute that is not there, or not in quotes
    /// What the tag, or an attribute in it, starts with that is not closed; then there is no such value.
    std::vector<std::string_view> unclosed;
};

/// @param tag  from "<BODY" to its ">"
BodyReading readBodyTag(std::string_view tag);

/// The tag with these attributes and no others. Colours are left out when they are "(n/a)", the other two when they are
/// "(none)" or "".
std::string bodyTag(const BodyAttributes& values);

}  // namespace kelvor
