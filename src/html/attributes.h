// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// Appends ` NAME="value"`, with the blank before it. The value is written as it stands; nothing is escaped.
inline void appendAttribute(std::string& text, std::string_view name, std::string_view value) {
    text.append(" ").append(name).append("=\"").append(value).append("\"");
}

/// The same as a text of its own.
inline std::string attribute(std::string_view name, std::string_view value) {
    std::string text;
    appendAttribute(text, name, value);
    return text;
}

/// The same, and nothing for an empty value.
inline std::string optionalAttribute(std::string_view name, std::string_view value) {
    return value.empty() ? std::string() : attribute(name, value);
}

/// The same, and nothing for exactly "0". An empty value is written.
inline std::string numberAttribute(std::string_view name, std::string_view value) {
    return value == "0" ? std::string() : attribute(name, value);
}

}  // namespace kelvor
