// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace kelvor {

/// The kinds of internet links, in the order of linkPrompts.
enum class LinkScheme : std::size_t { http, mailto, ftp, news, gopher, newsrc, nntp, telnet, wais };

struct LinkPrompt {
    std::string_view prefix;
    std::string_view example;  ///< of what follows the prefix
};

inline constexpr auto linkPrompts = std::to_array<LinkPrompt>({
    {"http://", "www.example.com"},
    {"mailto:", "someone@example.com"},
    {"ftp://", "ftp.example.com"},
    {"news:", "news.example.com"},
    {"gopher://", "gopher.example.com"},
    {"newsrc:", "newsrcfile"},
    {"nntp://", "news.example.com"},
    {"telnet://", "192.0.2.1"},
    {"wais://", "wais.example.com"},
});

/// Asks for what follows `prefix` and makes the selection a link to it, or puts an empty link at the caret. An empty
/// answer changes nothing. What is entered is written as it stands, here and in the commands below.
void rClickLink(std::string_view prefix, std::string_view example);

/// The command of one kind of link.
template <LinkScheme scheme>
void linkToScheme() {
    constexpr LinkPrompt prompt = linkPrompts[static_cast<std::size_t>(scheme)];
    rClickLink(prompt.prefix, prompt.example);
}

/// Asks for a file and links to it.
void linkFileSys();
/// Asks for a name and makes the selection a name anchor.
void nameAnchor();
/// Asks for an address and links to it.
void blankAnchor();

/// The text to write for a file in the active document: relative when the settings ask for it and there is a way, in
/// lower case when they ask for that.
std::string linkTarget(const std::string& path);
/// The same in a document at `fromPath`.
std::string linkTarget(std::string_view fromPath, const std::string& path);

/// Whether links are written relative to the document.
bool useRelativePaths();

/// The text to write for `toPath` in the document of the selected tab, which stands at `fromPath`. Between foreign
/// paths the setting "Slash" chooses the separator; see relativePath. Without a tab an error 91.
std::string makeRelativePath(std::string_view fromPath, std::string_view toPath);

}  // namespace kelvor
