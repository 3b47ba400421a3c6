// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>

#include "base/step.h"
#include "files/system_calls.h"

namespace kelvor {

/// A file opened and found to be a regular one.
struct RegularFile {
    OpenFile file;
    struct stat status {};
};

/// Whether the mode lets anyone write. The kernel lets root write all the same; this program does not.
bool hasWriteBit(const struct stat& status);

/// Opens `path` with `flags`, never waiting, and without touching what is no regular file. Nothing when the path leads
/// to no file. Throws Error for all other failures, for writing also when the mode has no write bit.
std::optional<RegularFile> openRegularFile(const std::string& path, int flags);

/// Makes a file for its owner alone (mode 0600), open for reading and writing. Its descriptor is -1, and why stands in
/// errno, when it cannot be made or something stands there.
OpenFile createForOwner(const std::string& path);

/// openRegularFile for reading. Throws Error 53 when the path leads to no file.
RegularFile openToRead(const std::string& path);

/// Locks a file as long as it is open (flock); false when somebody else holds it. On a disk that knows no locks nobody
/// holds anything.
bool lockFile(int descriptor);

/// All bytes from the file's begin to its end. Files of size 0 are read too, up to a limit: those that the kernel
/// writes as they are read have no size. Throws Error.
std::string readToEnd(int descriptor, off_t size, const std::string& path, const Step& step = noStep);

/// Writes all of `bytes` into the file at `place`; false, and why in errno, when it could not.
bool writeWhole(int descriptor, std::string_view bytes, std::size_t place = 0);

/// Waits until the bytes are on the disk; false, and why in errno, when it reports an error. File systems that have no
/// such order are taken at their word.
bool flush(int descriptor);
/// The same for the bytes and their count alone, which is quicker.
bool flushData(int descriptor);

}  // namespace kelvor
