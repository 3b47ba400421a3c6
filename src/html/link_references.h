// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// A quoted attribute value: positions of the opening and of the closing quote.
struct htmlLink {
    int linkStart = 0;
    int linkEnd = 0;
};

struct LinkReferences {
    std::vector<htmlLink> links;
    /// Whether a reference was refused: one without a closing quote, or with "<" in it.
    bool badLinks = false;
};

/// The values of an attribute in a text, in their order. The text is searched as it stands, with no knowledge of tags;
/// the selection stays.
/// @param attribute  with its equal sign and opening quote, such as `HREF="`; found without regard to case
LinkReferences parseLinkReferences(std::string_view text, const std::string& attribute);

}  // namespace kelvor
