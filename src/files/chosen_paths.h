// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelvor {

/// Why the path is no file to open; nothing when it is one.
std::optional<std::string> obstacleToFile(const std::string& path);
/// Why the path is no folder to choose; nothing when it is one.
std::optional<std::string> obstacleToFolder(const std::string& path);
/// Why no file can come to the path, whose folder is missing or which cannot be looked at; nothing when one can, or
/// something is there.
std::optional<std::string> obstacleToSaving(const std::string& path);

/// Why these are no files to open: the first of the obstacles, each in a line, and how many more there are; "" when
/// there are none. Lines end in CR LF.
std::string obstaclesTo(const std::vector<std::string>& paths);

/// The folders that a person goes to from this one: those it is in, the home, the disks. The first is itself.
std::vector<std::string> placesFrom(std::string folder);

/// The path without the separator at its end; the root stays.
std::string withoutSeparator(std::string path);

}  // namespace kelvor
