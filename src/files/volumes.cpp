// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/volumes.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "files/files.h"
#include "files/path_look.h"

namespace kelvor {

namespace {

/// The part of `text` up to the next blank or line end, which is taken off as well.
std::string_view takeWord(std::string_view& text) {
    const auto end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return word;
}

/// A path as mountinfo spells it, with "\040" and the like for blanks, tabs, line ends and backslashes.
std::string unescaped(std::string_view path) {
    std::string result;
    for (std::size_t at = 0; at < path.size(); ++at) {
        const bool escape = path[at] == '\\' && at + 3 < path.size();
        if (!escape) {
            result += path[at];
            continue;
        }
        result += static_cast<char>((path[at + 1] - '0') * 64 + (path[at + 2] - '0') * 8 + (path[at + 3] - '0'));
        at += 3;
    }
    return result;
}

/// Whether a file system of that type and source holds files of people.
bool holdsFiles(std::string_view type, std::string_view source) {
    static constexpr std::array network = {"nfs", "nfs4", "cifs", "smb3", "9p", "virtiofs", "zfs"};
    if (source.starts_with("/dev/loop") && type == "squashfs") return false;
    if (source.starts_with("/dev/")) return true;
    return type.starts_with("fuse.") ? type != "fuse.portal" && !type.ends_with("-fuse")
                                     : std::find(network.begin(), network.end(), type) != network.end();
}

}  // namespace

std::vector<std::string> volumesIn(std::string_view mountInfo) {
    std::vector<std::string> volumes = {"/"};
    while (!mountInfo.empty()) {
        const auto end = std::min(mountInfo.find('\n'), mountInfo.size());
        std::string_view line = mountInfo.substr(0, end);
        mountInfo.remove_prefix(std::min(end + 1, mountInfo.size()));
        for (int field = 0; field < 4; ++field) takeWord(line);
        const std::string path = unescaped(takeWord(line));
        const auto separator = line.find(" - ");
        if (separator == std::string_view::npos) continue;
        line.remove_prefix(separator + 3);
        const std::string_view type = takeWord(line);
        if (!holdsFiles(type, takeWord(line)) || path == "/" || !lookAt(path).isFolder()) continue;
        volumes.push_back(path);
    }
    std::sort(volumes.begin(), volumes.end());
    volumes.erase(std::unique(volumes.begin(), volumes.end()), volumes.end());
    return volumes;
}

std::vector<std::string> mountedVolumes() {
    try {
        return volumesIn(readFile("/proc/self/mountinfo"));
    } catch (const Error&) {
        return {"/"};
    }
}

std::string volumeOf(std::string_view path, const std::vector<std::string>& volumes) {
    std::string_view best;
    for (const std::string& volume : volumes) {
        const bool holds = volume == "/" || path == volume || path.starts_with(volume + "/");
        if (path.starts_with('/') && holds && volume.size() > best.size()) best = volume;
    }
    return std::string(best);
}

}  // namespace kelvor
