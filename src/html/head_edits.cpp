// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/head_edits.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "text/code_points.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

constexpr std::string_view lineEnd = "\r\n";

HeadEdit atTop(std::string newTag) {
    return {.text = std::move(newTag.append(lineEnd))};
}

/// A line of its own behind "<HEAD>", or at the top without that.
HeadEdit behindHead(std::string_view page, std::string newTag) {
    const auto head = TextSearch(head::start).find(page);
    if (!head) return atTop(std::move(newTag));
    return {.position = head->position + head->length, .text = std::move(newTag.insert(0, lineEnd))};
}

/// How many bytes of `rest` a tag that is taken away takes with it.
std::size_t lineEndLength(std::string_view rest) {
    const bool single = (rest.starts_with('\r') || rest.starts_with('\n')) && !rest.starts_with(lineEnd);
    return positionBehind(rest, single ? 1 : lineEnd.size());
}

/// From the first start of the tag to the end of the end that follows it.
struct TagPlace {
    std::size_t position = 0;
    std::optional<std::size_t> end;
};

std::optional<TagPlace> placeOf(std::string_view page, const TagTokens& tag) {
    const auto start = TextSearch(tag.replacedStart).find(page);
    if (!start) return std::nullopt;
    const auto end = TextSearch(tag.replacedEnd).find(page, start->position);
    return TagPlace{start->position, end ? std::optional(end->position + end->length) : std::nullopt};
}

}  // namespace

HeadEdit tagEdit(std::string_view page, const TagTokens& tag, std::string newTag) {
    const auto place = placeOf(page, tag);
    if (!place || !place->end) return atTop(std::move(newTag));
    return {place->position, *place->end - place->position, std::move(newTag)};
}

std::optional<HeadEdit> metaEdit(std::string_view page, const TagTokens& tag, std::string newTag) {
    const auto place = placeOf(page, tag);
    if (!place) return newTag.empty() ? std::nullopt : std::optional(behindHead(page, std::move(newTag)));
    if (!place->end) throw Error(error_number::invalidPropertyValue, "A META tag is not closed");
    const std::size_t lineEnds = newTag.empty() ? lineEndLength(page.substr(*place->end)) : 0;
    return HeadEdit{place->position, *place->end - place->position + lineEnds, std::move(newTag)};
}

HeadEdit baseFontEdit(std::string_view page, std::string_view face) {
    std::string newTag = std::string(head::baseFont.start).append(face).append(head::baseFont.end);
    if (occursIn(page, head::baseFont.replacedStart)) return tagEdit(page, head::baseFont, std::move(newTag));
    const auto body = placeOf(page, head::body);
    if (!body) throw Error(error_number::invalidProcedureCall, "There is no BODY tag");
    return {.position = body->end.value_or(0), .text = std::move(newTag.insert(0, lineEnd))};
}

std::optional<HeadEdit> noCacheEdit(std::string_view page, bool wanted) {
    const auto tag = TextSearch(head::noCache).find(page);
    if (tag.has_value() == wanted) return std::nullopt;
    if (wanted) return behindHead(page, std::string(head::noCache));
    return HeadEdit{tag->position, tag->length, ""};
}

}  // namespace kelvor
