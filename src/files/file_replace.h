// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/outcome.h"
#include "files/content_hash.h"
#include "files/flusher.h"
#include "files/regular_file.h"

namespace kelvor {

/// A file that is to get other bytes as a whole: what it holds, and what tells it from any other until then.
struct ReplaceableFile {
    std::string path;
    RegularFile opened;
    std::string bytes;
    ContentHash hash;  ///< of the bytes, which may be moved away
};

/// Reads a regular file that may be written; links are followed. Throws Error as readFile does, 70 also when the file
/// may not be written; a mode without any write bit binds root as well.
ReplaceableFile readForReplacement(const std::string& path, const Step& step = noStep);

/// Gives the file other bytes through a temporary one, which takes its place in one step, with its mode (less the
/// bits that lend the owner's rights), owner and extended attributes. Where that cannot be (another disk, a
/// directory that may not be written, a link, a file of several names, attributes that do not go over) the file is
/// written in place from the same bytes, as saveFileInPlace does; the temporary file goes after that.
/// At every moment the path leads to a file with all old or all new bytes, or, when written in place, to one that the
/// temporary file can mend.
/// Throws Error when it failed, also when another program has changed the file since it was read. The file
/// then has its old bytes, and the temporary file may be left.
/// @param temporary  a path at which nothing stands, in a directory of this program's own
/// @param step       called while the temporary file is written
/// @param keepAs     the path in a directory of this program's own at which the old bytes are to be found afterwards:
///                   the old file itself, when another takes its place, or else a copy; "" when they go
/// @return that the file has its new bytes; failed: they were not to be lost and could not be kept, so the file has
///         its old ones
Outcome replaceFile(const ReplaceableFile& target, std::string_view bytes, const std::string& temporary,
                    Flusher& flusher, const Step& step = noStep, const std::string& keepAs = {});

/// Removes what an earlier replacement has left at that path. Throws Error 58 when something stands there that is not
/// such a file.
void clearTemporary(const std::string& temporary);

/// The files of that name that replacements have left in temporary directories of processes that were killed.
std::vector<std::string> abandonedTemporaries(const std::string& name);

/// Removes such a file, and its directory when nothing else is in it. Throws Error; one that has gone is none.
void removeAbandonedTemporary(const std::string& temporary);

}  // namespace kelvor
