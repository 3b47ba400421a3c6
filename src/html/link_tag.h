// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kelvor {

/// A kind of links, told by how their addresses begin.
struct LinkType {
    std::string_view name;  ///< the beginning; of the last resort the word that stands for none
    int icon;  ///< number of its picture. Of two beginnings in a text the one with the lower number counts.
};

/// In the order in which a person sorts the names.
inline constexpr auto linkTypes = std::to_array<LinkType>({
    {"ftp://", 2},
    {"gopher://", 3},
    {"http://", 1},
    {"mailto:", 4},
    {"news:", 5},
    {"newsrc:", 6},
    {"nntp://", 7},
    {"Relative", 10},
    {"telnet://", 8},
    {"wais://", 9},
});

/// Places in linkTypes: the kind that is offered first, and the kind of all addresses with no beginning of another.
inline constexpr int httpLink = 2;
inline constexpr int relativeLink = 7;

struct LinkParts {
    int type = httpLink;      ///< its place in linkTypes
    std::string address;      ///< without the beginning
    std::string description;  ///< what stands between the tags
};

/// The place in linkTypes of the kind whose beginning stands anywhere in the text, case ignored.
int linkTypeIn(std::string_view text);

/// The number of the picture of that kind.
int iconCheck(std::string_view text);

/// The whole link; the parts as they stand.
std::string linkTag(const LinkParts& parts);

/// The way back. Of the address all goes that stands before the first "//" and that itself; without it, and in a link
/// of some kind, what stands before the first ":". A tag without an end of its address or its text is an error 5.
LinkParts linkParts(std::string_view tag);

}  // namespace kelvor
