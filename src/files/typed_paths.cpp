// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/typed_paths.h"

#include <pwd.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "files/places.h"

namespace kelvor {

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr char quote = '"';

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The name in quotes at the begin of `text`, which is taken off; nothing when it has no end.
std::optional<std::string> takeQuoted(std::string_view& text) {
    std::string name;
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] == quote) {
            const bool isDoubled = at + 1 < text.size() && text[at + 1] == quote;
            if (!isDoubled) {
                text.remove_prefix(at + 1);
                return name;
            }
            ++at;
        }
        name += text[at];
    }
    return std::nullopt;
}

/// The names of a text that consists of names in quotes; nothing for any other.
std::optional<std::vector<std::string>> quotedNames(std::string_view text) {
    std::vector<std::string> names;
    while (!text.empty()) {
        if (text.front() != quote) return std::nullopt;
        auto name = takeQuoted(text);
        const bool endsThere = text.empty() || blanks.find(text.front()) != std::string_view::npos;
        if (!name || name->empty() || !endsThere) return std::nullopt;
        names.push_back(std::move(*name));
        text = trimmed(text);
    }
    return names;
}

std::string homeOf(const std::string& user) {
    if (user.empty()) return directoryVariable("HOME");
    const passwd* entry = getpwnam(user.c_str());
    return entry == nullptr ? std::string() : entry->pw_dir;
}

/// The name with a home in place of "~" or "~user" at its begin, if there is such a user.
std::string withHome(const std::string& name) {
    if (!name.starts_with('~')) return name;
    const auto end = std::min(name.find('/'), name.size());
    const std::string home = homeOf(name.substr(1, end - 1));
    return home.empty() ? name : home + name.substr(end);
}

std::string resolved(const std::string& name, const std::string& directory) {
    return (std::filesystem::path(directory) / withHome(name)).lexically_normal().string();
}

/// A name as it is typed so that no home stands in it.
std::string withoutHome(const std::string& name) {
    return name.starts_with('~') ? "./" + name : name;
}

std::string quoted(const std::string& name) {
    std::string text(1, quote);
    for (const char c : withoutHome(name)) text.append(c == quote ? 2 : 1, c);
    return text + quote;
}

}  // namespace

std::vector<std::string> typedPaths(std::string_view text, const std::string& directory) {
    std::vector<std::string> paths;
    if (const auto names = quotedNames(trimmed(text))) {
        for (const std::string& name : *names) paths.push_back(resolved(name, directory));
        return paths;
    }
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of("\r\n"), text.size());
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto names = quotedNames(line);
        for (const std::string& name : names ? *names : std::vector{std::string(line)})
            paths.push_back(resolved(name, directory));
    }
    return paths;
}

std::string typedPath(std::string_view text, const std::string& directory) {
    std::string name(trimmed(text));
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return name.empty() ? name : resolved(name, directory);
}

std::string typedText(const std::vector<std::string>& names) {
    const bool isPlain = names.size() == 1 && trimmed(names[0]) == names[0] && !names[0].starts_with(quote) &&
                         names[0].find_first_of("\r\n") == std::string::npos;
    if (isPlain) return withoutHome(names[0]);
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : " ") + quoted(name);
    return text;
}

}  // namespace kelvor
