// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/chosen_paths.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include "base/error.h"
#include "files/file_error.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/volumes.h"

namespace kelvor {

namespace {

/// So many paths that cannot be had are told.
constexpr std::size_t mostPathsTold = 10;

/// What `fault` finds wrong with the kind of what stands at the path, or why that cannot be seen.
template <typename Fault>
std::optional<std::string> obstacleTo(const std::string& path, const Fault& fault) {
    const PathLook look = lookAt(path);
    if (look.error != 0 && look.error != ENOENT) return fileError(look.error, path).description();
    return fault(look.kind);
}

}  // namespace

std::optional<std::string> obstacleToFile(const std::string& path) {
    return obstacleTo(path, [&](PathKind kind) -> std::optional<std::string> {
        if (kind == PathKind::file) return std::nullopt;
        return fileError(kind == PathKind::folder ? EISDIR : ENOENT, path).description();
    });
}

std::optional<std::string> obstacleToFolder(const std::string& path) {
    return obstacleTo(path, [&](PathKind kind) -> std::optional<std::string> {
        if (kind == PathKind::folder) return std::nullopt;
        if (kind == PathKind::none) return fileError(ENOTDIR, path).description();
        return pathError(error_number::pathAccess, "This is a file, not a folder", path).description();
    });
}

std::optional<std::string> obstacleToSaving(const std::string& path) {
    return obstacleTo(path, [&](PathKind kind) -> std::optional<std::string> {
        if (kind != PathKind::none) return std::nullopt;
        return obstacleToFolder(directoryPart(path));
    });
}

std::string obstaclesTo(const std::vector<std::string>& paths) {
    std::string text;
    std::size_t count = 0;
    for (const std::string& path : paths) {
        const auto obstacle = obstacleToFile(path);
        if (obstacle && ++count <= mostPathsTold) text += (count > 1 ? "\r\n" : "") + *obstacle;
    }
    if (count > mostPathsTold) text += "\r\nand " + std::to_string(count - mostPathsTold) + " more.";
    return text;
}

std::vector<std::string> placesFrom(std::string folder) {
    std::vector<std::string> places = {folder};
    while (folder != "/") places.push_back(folder = directoryPart(folder));
    std::vector<std::string> others = mountedVolumes();
    others.insert(others.begin(), directoryVariable("HOME"));
    for (const std::string& other : others)
        if (!other.empty() && std::find(places.begin(), places.end(), other) == places.end()) places.push_back(other);
    return places;
}

std::string withoutSeparator(std::string path) {
    if (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

}  // namespace kelvor
