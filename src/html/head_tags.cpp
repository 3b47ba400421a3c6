// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/head_tags.h"

#include "base/error.h"
#include "html/no_value.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

using enum BodyAttribute;

struct AttributeRow {
    BodyAttribute attribute;
    std::string_view written;
    /// Whether the blank before it is searched for as well: other attributes end like it.
    bool readWithBlank;
};

constexpr AttributeRow attributeRows[] = {
    {background, " BACKGROUND=\"", true}, {text, " TEXT=\"", false},        {link, " LINK=\"", true},
    {visitedLink, " VLINK=\"", false},    {activeLink, " ALINK=\"", false}, {backColor, " BGCOLOR=\"", false},
    {onLoad, " onLoad=\"", false},
};

/// What is not closed is told in this order.
constexpr BodyAttribute readingOrder[] = {backColor, onLoad, visitedLink, activeLink, text, link, background};

constexpr std::size_t indexOf(BodyAttribute attribute) {
    return static_cast<std::size_t>(attribute);
}

TagTokens readTokens(const AttributeRow& row) {
    return {.start = row.written.substr(row.readWithBlank ? 0 : 1), .end = "\""};
}

bool isWritten(BodyAttribute attribute, std::string_view value) {
    const bool isColor = attribute != background && attribute != onLoad;
    return isColor ? value != notAvailable : !value.empty() && value != noneNamed;
}

/// What follows the first `token`; nothing when that is not there.
std::optional<std::string_view> behind(std::string_view source, std::string_view token) {
    const auto found = TextSearch(token).find(source);
    if (!found) return std::nullopt;
    return source.substr(found->position + found->length);
}

/// What stands before the first `token`.
std::optional<std::string_view> before(std::string_view source, std::string_view token) {
    const auto found = TextSearch(token).find(source);
    if (!found) return std::nullopt;
    return source.substr(0, found->position);
}

}  // namespace

std::optional<std::string_view> extractText(const TagTokens& tag, std::string_view source) {
    const auto tail = source == "error" ? std::nullopt : behind(source, tag.start);
    if (!tail) return std::string_view();
    const auto value = before(*tail, tag.end);
    if (!value || value->find('<', 1) != std::string_view::npos) return std::nullopt;
    return value;
}

bool occursIn(std::string_view source, std::string_view token) {
    return TextSearch(token).find(source).has_value();
}

std::string tagAround(const TagTokens& tag, std::string_view value) {
    if (value.empty()) return {};
    return std::string(tag.start).append(value).append(tag.end);
}

std::string titleTag(std::string_view title) {
    return std::string(head::title.start).append(title).append(head::title.end);
}

Redirect redirectFrom(std::string_view value) {
    const auto delay = before(value, ";");
    if (!delay) throw Error(error_number::invalidProcedureCall, "A redirect has no \";\"");
    return {.delay = std::string(*delay), .target = std::string(behind(value, "URL=").value_or(""))};
}

std::string redirectTag(const Redirect& redirect) {
    if (redirect.target.empty()) return {};
    return tagAround(head::refresh, redirect.delay + "; URL=" + redirect.target);
}

bool isComplete(const Redirect& redirect) {
    return redirect.delay.empty() == redirect.target.empty();
}

BodyReading readBodyTag(std::string_view tag) {
    BodyReading reading;
    const std::string_view inside = before(behind(tag, head::body.start).value_or(""), head::body.end).value_or("");
    for (const BodyAttribute attribute : readingOrder) {
        const TagTokens tokens = readTokens(attributeRows[indexOf(attribute)]);
        const auto value = extractText(tokens, inside);
        if (!value) reading.unclosed.push_back(tokens.start);
        reading.values[indexOf(attribute)] = value.value_or("");
    }
    // A "<" in a value is told of its attribute, one elsewhere of the tag.
    if (reading.unclosed.empty() && !extractText(head::body, tag)) reading.unclosed.push_back(head::body.start);
    return reading;
}

std::string bodyTag(const BodyAttributes& values) {
    std::string tag(head::body.start);
    for (const AttributeRow& row : attributeRows) {
        const std::string& value = values[indexOf(row.attribute)];
        if (isWritten(row.attribute, value)) tag.append(row.written).append(value) += '"';
    }
    return tag.append(head::body.end);
}

}  // namespace kelvor
