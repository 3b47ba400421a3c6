// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "html/head_tags.h"

namespace kelvor {

/// One change of a page: `text` for `length` bytes from `position`. What is put in a line of its own ends, or begins,
/// with CR LF.
struct HeadEdit {
    std::size_t position = 0;
    std::size_t length = 0;
    std::string text;
};

/// Puts a tag in the place of the first of its kind, or at the very top where there is none or it does not end.
HeadEdit tagEdit(std::string_view page, const TagTokens& tag, std::string newTag);

/// The same for a META tag, but a new one goes directly behind "<HEAD>" where there is one. "" takes the tag away, and
/// the line end behind it or, where none is, two characters. Nothing when there is nothing to take away. A tag
/// that does not end is an error 380.
std::optional<HeadEdit> metaEdit(std::string_view page, const TagTokens& tag, std::string newTag);

/// Puts a BASEFONT tag in the place of the one there is, or behind the BODY tag; without either an error 5.
HeadEdit baseFontEdit(std::string_view page, std::string_view face);

/// Puts the tag that forbids caching in, or takes it away and leaves its line end; nothing when it is as wanted.
std::optional<HeadEdit> noCacheEdit(std::string_view page, bool wanted);

}  // namespace kelvor
