// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/name_anchors.h"

#include "base/error.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

/// What the names may take beyond the text's own size, in bytes. Names overlap only where anchors stand in them.
constexpr std::size_t overlapAllowed = std::size_t{64} << 20;

std::string_view withoutQuotes(std::string_view name) {
    if (name.starts_with('"')) name.remove_prefix(1);
    if (name.ends_with('"')) name.remove_suffix(1);
    return name;
}

struct Scan {
    std::vector<std::string> names;
    std::optional<Error> failure;  ///< what ended the scan early
};

Scan scan(std::string_view startToken, std::string_view endToken, std::string_view text) {
    const TextSearch start(startToken);
    const TextSearch end(endToken);
    Scan result;
    std::size_t size = 0;
    std::optional<TextMatch> closing;
    for (auto hit = start.find(text, 1); hit; hit = start.find(text, hit->position + 1)) {
        const std::size_t begin = hit->position + hit->length;
        if (!closing || closing->position < begin) closing = end.find(text, begin);
        if (!closing) {
            result.failure.emplace(error_number::invalidProcedureCall, "A name anchor has no closing \">\"");
            break;
        }
        const std::string_view name = withoutQuotes(text.substr(begin, closing->position - begin));
        size += name.size();
        if (size > text.size() + overlapAllowed) {
            result.failure.emplace(error_number::outOfMemory, "Too many name anchors stand inside other ones");
            break;
        }
        result.names.emplace_back(name);
    }
    return result;
}

const Message noneSelected = {
    .text = "Make a selection first.", .title = "No name anchor selected", .icon = MessageIcon::exclamation};

}  // namespace

bool hasNameAnchor(std::string_view text) {
    return TextSearch(nameAnchorStart).find(text).has_value();
}

void scanNameAnchors(std::string_view startToken, std::string_view endToken, std::string_view text, ListBox& listBox) {
    const Hourglass hourglass;
    Scan result = scan(startToken, endToken, text);
    listBox.addRows(std::move(result.names));
    if (result.failure) throw Error(*result.failure);
    if (listBox.count() > 0) listBox.setSelectedRow(0);
}

std::optional<std::string> selectedAnchor(const ListBox& listBox) {
    if (auto selected = listBox.selectedText()) return selected;
    beepAndShow(noneSelected);
    return std::nullopt;
}

}  // namespace kelvor
