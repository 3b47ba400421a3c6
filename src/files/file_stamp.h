// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "files/content_hash.h"

namespace kelvor {

/// What a file was like when its bytes were read or written.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;  ///< in bytes
    timespec modified{};
    timespec changed{};  ///< when its state changed
    ContentHash hash;    ///< of its bytes

    /// Whether nothing has happened to a file of this status since. The time of the last change of its state cannot be
    /// set back, so a write that leaves size and time as they were shows too.
    bool isOf(const struct stat& status) const;
};

FileStamp stampOf(const struct stat& status, const ContentHash& hash);

/// What has become of a file since its stamp was taken. `replaced`: another file with other bytes stands at its path.
enum class DiskState { same, changed, replaced, gone };

/// Looks at the path. The bytes are read only where size and times leave it open; a file that has the same bytes is the
/// same, whatever its times and whichever file it is, and `known` then takes its status over. One that cannot be read
/// is `changed`.
DiskState lookAgain(FileStamp& known, const std::string& path);

/// The stamp of what stands at a path now. Throws what readFile throws.
FileStamp readStamp(const std::string& path);

/// The same of what cannot be read too, with a hash that no bytes have. Nothing when nothing is there, or nobody may
/// look.
std::optional<FileStamp> stampNow(const std::string& path);

}  // namespace kelvor
