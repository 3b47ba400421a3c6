// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_stamp.h"

namespace kelvor {

/// The bytes of a regular file, read whole. Throws Error: 53 when there is none, 75 when it is a directory,
/// a pipe, a device or may not be read, 57 on a failing device, 7 when memory does not suffice.
/// Never waits on a pipe.
std::string readFile(const std::string& path);

/// The same; nothing when the file cannot be read. Throws Error 7 and std::bad_alloc when memory does not suffice.
std::optional<std::string> readFileIfPossible(const std::string& path);

/// The same with the file's stamp.
struct StampedBytes {
    std::string bytes;
    FileStamp stamp;
};
StampedBytes readStamped(const std::string& path);

/// Writes `bytes` over the file in place: same inode, mode, owner and links, and never truncated first.
/// A new file is made with the mode of the umask. When it throws (61 disk or quota full, 70 or 75 not writable,
/// 57 device) the file holds its old bytes, and a file that did not exist is gone again. Should the way back
/// fail too, the description says that the file is damaged.
/// A file whose mode has no write bit is refused, for root as well.
/// @param expected  what the file is to hold, should it be there; nothing: whatever it holds goes
/// @return the file's stamp; nothing when it holds something else than expected, and then nothing was written
std::optional<FileStamp> saveFileInPlace(const std::string& path, std::string_view bytes,
                                         const std::optional<ContentHash>& expected = {});

/// Whether a save over the file would be refused: its mode has no write bit (root too), or the user or the disk
/// does not let it be written. False when there is no such file.
bool isReadOnly(const std::string& path);

/// Appends `line`, which brings its own line end, in one write, never following a link, never waiting; false when it
/// could not. A missing file is made, for its owner alone.
bool appendToFile(const std::string& path, std::string_view line);

/// Whether a directory listing of `path` names something. A plain path may lead to anything, and where nobody may look
/// something is taken to be there, so that the attempt to use it tells more; links that lead nowhere do not count. With
/// "*" or "?" in its last part it names the files that match too, case ignored, and "*.*" is every file. Throws Error
/// when their directory cannot be read.
bool listingFinds(const std::string& path);

/// The names (no directory) of the files in `directory` that match `pattern`, sorted as a person reads them. Names are
/// bytes as the disk holds them, also when they are not UTF-8. Throws Error when the directory cannot be read, 76 when
/// there is none.
std::vector<std::string> filesMatching(const std::string& directory, const std::string& pattern);

/// The names of the directories in `directory`, links to directories too, sorted as a person reads them.
/// Those whose name begins with a point are left out. Throws as filesMatching does.
std::vector<std::string> directoriesIn(const std::string& directory);

/// Whether a file name matches a pattern of "*" and "?", case ignored; "*.*" matches every name.
bool nameMatches(std::string_view name, std::string_view pattern);

/// Throws Error when the file is not there or does not go.
void removeFile(const std::string& path);
/// Gives a file another name. Throws Error, 58 when that name is taken, also when the two are on different disks; the
/// file then has its old name.
void renameFile(const std::string& from, const std::string& to);

}  // namespace kelvor
