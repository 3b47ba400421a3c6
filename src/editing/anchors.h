// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// Ask for the address of a free anchor and for the name of a name anchor. What the user enters is given as it stands;
/// "" when nothing was entered or the box was cancelled.
std::string askAnchorUrl();
std::string askAnchorName();

/// What stands before the text of a link and of a name anchor; the values as they stand. Both end in closingAnchor.
std::string openingAnchor(std::string_view target);
std::string openingNameAnchor(std::string_view name);
inline constexpr std::string_view closingAnchor = "</A>";

}  // namespace kelvor
