// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "controls/list_box.h"

namespace kelvor {

/// Around the name of a name anchor, which may be in double quotes.
inline constexpr std::string_view nameAnchorStart = "<A NAME=";
inline constexpr std::string_view nameAnchorEnd = ">";

/// Whether `text` has a name anchor; unlike scanNameAnchors it sees one at the very start.
bool hasNameAnchor(std::string_view text);

/// Adds to the list, in the order of `text`, what stands behind each `startToken` up to the next `endToken`, both found
/// without regard to case, without a double quote at either end, and selects the list's first row. A `startToken` at
/// the very start is passed over. One without an `endToken` behind it is an error 5, and names that fill the memory
/// since anchors stand in them are an error 7; the names before stay in the list then.
void scanNameAnchors(std::string_view startToken, std::string_view endToken, std::string_view text, ListBox& listBox);

/// The name in the selected row; none when there is no such row, which the user has been told then.
std::optional<std::string> selectedAnchor(const ListBox& listBox);

}  // namespace kelvor
