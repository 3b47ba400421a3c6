// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/link_tag.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "text/text_search.h"

namespace kelvor {

namespace {

struct Beginning {
    TextSearch search;
    int type;
};

/// Those of all kinds that have one, in the order of the pictures.
std::vector<Beginning> beginnings() {
    std::vector<int> types;
    for (int type = 0; type < static_cast<int>(linkTypes.size()); ++type)
        if (type != relativeLink) types.push_back(type);
    const auto icon = [](int type) { return linkTypes[static_cast<std::size_t>(type)].icon; };
    std::sort(types.begin(), types.end(), [&](int left, int right) { return icon(left) < icon(right); });
    std::vector<Beginning> sorted;
    for (const int type : types) sorted.push_back({TextSearch(linkTypes[static_cast<std::size_t>(type)].name), type});
    return sorted;
}

}  // namespace

int linkTypeIn(std::string_view text) {
    static const auto all = beginnings();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Beginning& one) { return one.search.find(text); });
    return found == all.end() ? relativeLink : found->type;
}

int iconCheck(std::string_view text) {
    return linkTypes[static_cast<std::size_t>(linkTypeIn(text))].icon;
}

std::string linkTag(const LinkParts& parts) {
    const auto beginning =
        parts.type == relativeLink ? std::string_view() : linkTypes.at(static_cast<std::size_t>(parts.type)).name;
    return "<A HREF=\"" + std::string(beginning) + parts.address + "\">" + parts.description + "</A>";
}

LinkParts linkParts(std::string_view tag) {
    LinkParts parts{.type = linkTypeIn(tag),
                    .address = extractBetween("=\"", "\">", tag),
                    .description = extractBetween(">", "</A>", tag)};
    const std::size_t slashes = parts.address.find("//");
    if (slashes != std::string::npos) {
        parts.address.erase(0, slashes + 2);
    } else if (parts.type != relativeLink) {
        // Without a ":" the whole address stays.
        parts.address.erase(0, parts.address.find(':') + 1);
    }
    return parts;
}

}  // namespace kelvor
