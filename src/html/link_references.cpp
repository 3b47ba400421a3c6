// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/link_references.h"

#include "text/text_search.h"

namespace kelvor {

LinkReferences parseLinkReferences(std::string_view text, const std::string& attribute) {
    const TextSearch key(attribute);
    LinkReferences references;
    for (auto match = key.find(text); match;) {
        const std::size_t position = match->position + match->length;
        const std::size_t quote = text.find('"', position);
        if (quote == std::string_view::npos) {
            // Nor will any of the references behind this one be closed.
            references.badLinks = true;
            break;
        }
        // A "<" tells of a reference that was never closed. The one directly before the closing quote is not seen.
        if (text.substr(position - 1, quote - position).find('<') != std::string_view::npos) {
            references.badLinks = true;
        } else {
            references.links.push_back({static_cast<int>(position) - 1, static_cast<int>(quote)});
        }
        match = key.find(text, position);
    }
    return references;
}

}  // namespace kelvor
