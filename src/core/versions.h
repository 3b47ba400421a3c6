// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// What files held before they were saved over, kept in the state directory once the user has asked for it.

/// How much is kept of one file. What is beyond that goes, the oldest first.
struct VersionLimits {
    std::size_t count = 100;
    std::uint64_t bytes = std::uint64_t{50} << 20;  ///< as they are stored
    std::chrono::seconds age = std::chrono::days(90);
};

/// What a file held once.
struct FileVersion {
    std::string id;
    std::time_t when = 0;    ///< when it was saved over
    std::uint64_t size = 0;  ///< in bytes
};

/// Whether versions are kept; they are not until the user has asked for it.
bool keepsVersions();
/// Throws Error when that cannot be noted. Versions that are there stay.
void setKeepsVersions(bool keeps);

/// Where they are kept.
std::string versionsDirectory();

/// Keeps what a file holds now, if there is such a file of 16 MB at most, versions are kept and the newest one of it is
/// not the same. A failure is told in the status bar and stops nobody from saving.
/// @param path  the file's; under another path it has versions of its own
void keepVersion(const std::string& path);

/// The same with the file's bytes given, whether versions are kept or not. Throws Error.
void keepVersion(const std::string& path, std::string_view bytes, const VersionLimits& limits, std::time_t now);

/// The versions of a file, the newest first. Throws Error when they cannot be listed.
std::vector<FileVersion> versionsOf(const std::string& path);

/// A version's bytes; nothing when they are damaged. Throws what readFile throws.
std::optional<std::string> readVersion(const std::string& path, const FileVersion& version);

}  // namespace kelvor
