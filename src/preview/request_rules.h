// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace kelvor {

/// An address, taken apart.
struct PageAddress {
    std::string scheme;  ///< lower case, without the colon
    std::string host;
    std::string path;  ///< of a file: its name on the disk
};

/// Whether a page at an address of that scheme is held by the rules for pages from the disk: all are but those that a
/// web server sends, also what is no address at all.
bool isLocalPage(const std::string& scheme);

/// What a page in preview asks for, as far as the rules tell it apart.
enum class ResourceKind {
    page,      ///< another page in its place
    part,      ///< a picture, style sheet, script, font, sound or film: shown or run, and not to be read as text
    readable,  ///< a frame, a worker, a text track: a script of the page can get at its text
    exchange   ///< what goes out and brings an answer back to a script: fetch, beacon, socket
};

/// What the page in preview may load. A local page is work in progress, or somebody's file out of a mail: it gets
/// files of its own ground, and nothing from the network until the user lets it, since an address alone can carry
/// away what lies beside the page. A page from a server is held by the browser's own rules, and gets no local file
/// whatever.
class RequestRules {
public:
    /// @param document       what the preview was sent to; its folder and all below is the page's own ground
    /// @param home           the user's home directory; "" when there is none
    /// @param remoteContent  whether the user lets a local page use the network
    RequestRules(const PageAddress& document, const std::string& home, bool remoteContent);

    /// Whether the page gets it.
    /// @param redirected  a server has sent the request on to `target`
    bool allows(const PageAddress& target, ResourceKind kind, bool redirected = false);
    /// Whether the page would get it if the user let it use the network.
    bool waitsForUser(const PageAddress& target, ResourceKind kind) const;

private:
    bool localPageGets(const PageAddress& target, ResourceKind kind) const;
    bool localPageGetsFile(const std::string& path, ResourceKind kind) const;
    bool webPageGets(const PageAddress& target, ResourceKind kind, bool redirected);
    bool isNeighbour(const std::filesystem::path& file) const;

    bool local_;
    std::string host_;      ///< of the page shown, when it is a server's
    std::string document_;  ///< the local page's path, as it was spelled
    std::filesystem::path folder_;
    std::filesystem::path home_;
    bool remoteContent_;
};

}  // namespace kelvor
