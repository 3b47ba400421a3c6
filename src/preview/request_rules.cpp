// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/request_rules.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <system_error>

namespace kelvor {

namespace {

namespace fs = std::filesystem;

bool isWeb(const std::string& scheme) {
    return scheme == "http" || scheme == "https";
}

bool isNetwork(const std::string& scheme) {
    return isWeb(scheme) || scheme == "ws" || scheme == "wss";
}

/// Made by the page itself, out of what it has already.
bool isOwnMaking(const std::string& scheme) {
    return scheme == "data" || scheme == "blob" || scheme == "about";
}

/// Whether a web page may be made of such a file, going by its name. Other texts in the page's folder, and the
/// listing of the folder itself, are none of a script's business.
bool isWebFile(const fs::path& file) {
    constexpr std::string_view endings[] = {".htm", ".html", ".xhtml", ".shtml", ".svg", ".xml",  ".js",  ".mjs",
                                            ".css", ".vtt",  ".gif",   ".png",   ".jpg", ".jpeg", ".webp"};
    std::string ending = file.extension().string();
    for (char& letter : ending)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return std::ranges::find(endings, ending) != std::end(endings);
}

/// With links followed and dots resolved as far as the path exists; "" when it cannot be.
fs::path resolved(const std::string& path) {
    std::error_code failure;
    fs::path result = fs::weakly_canonical(path, failure);
    return failure ? fs::path() : result;
}

/// The innermost directory above both.
fs::path commonFolder(const fs::path& one, const fs::path& other) {
    fs::path common;
    const auto end = std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first;
    for (auto step = one.begin(); step != end; ++step) common /= *step;
    return common;
}

bool isInside(const fs::path& file, const fs::path& folder) {
    return !folder.empty() && commonFolder(file, folder) == folder;
}

}  // namespace

bool isLocalPage(const std::string& scheme) {
    return !isWeb(scheme);
}

RequestRules::RequestRules(const PageAddress& document, const std::string& home, bool remoteContent)
    : local_(isLocalPage(document.scheme)),
      host_(document.host),
      document_(document.path),
      remoteContent_(remoteContent) {
    if (!local_) return;
    folder_ = resolved(fs::path(document_).parent_path().string());
    home_ = resolved(home);
}

bool RequestRules::allows(const PageAddress& target, ResourceKind kind, bool redirected) {
    return local_ ? localPageGets(target, kind) : webPageGets(target, kind, redirected);
}

bool RequestRules::waitsForUser(const PageAddress& target, ResourceKind kind) const {
    return local_ && !remoteContent_ && isNetwork(target.scheme) && kind != ResourceKind::page;
}

bool RequestRules::localPageGets(const PageAddress& target, ResourceKind kind) const {
    if (target.scheme == "file") return target.host.empty() && localPageGetsFile(target.path, kind);
    if (kind == ResourceKind::page) return false;
    return isOwnMaking(target.scheme) || (remoteContent_ && isNetwork(target.scheme));
}

bool RequestRules::localPageGetsFile(const std::string& path, ResourceKind kind) const {
    if (kind == ResourceKind::exchange) return false;
    if (kind == ResourceKind::page && path == document_) return true;
    const fs::path file = resolved(path);
    const bool own = isInside(file, folder_);
    if (kind == ResourceKind::readable) return own && isWebFile(file);
    return own || (kind == ResourceKind::part && isNeighbour(file));
}

/// Whether it lies beside the page's folder on what looks like one site: pages of a subfolder commonly take their
/// style sheets and pictures from "../". The home directory, those above it and those right below the root are no
/// site; what has only them in common belongs to somebody else.
bool RequestRules::isNeighbour(const fs::path& file) const {
    const fs::path common = commonFolder(file, folder_);
    return common.has_parent_path() && common.parent_path() != common.root_path() && !isInside(home_, common);
}

bool RequestRules::webPageGets(const PageAddress& target, ResourceKind kind, bool redirected) {
    if (kind != ResourceKind::page) return isNetwork(target.scheme) || isOwnMaking(target.scheme);
    if (!isWeb(target.scheme)) return false;
    if (redirected) host_ = target.host;
    return target.host == host_;
}

}  // namespace kelvor
