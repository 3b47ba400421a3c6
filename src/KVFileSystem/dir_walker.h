// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kelvor {

/// What the names of hidden directories begin with that the program makes for a time beside the user's own files. They
/// are no part of any tree that a tool works on.
inline constexpr std::string_view keptDirectoryPrefix = ".kelvor-kept-";

/// Finds files in a directory tree by their names. Names and paths are bytes as the disk holds them.
class DirWalker {
public:
    /// Raised on the caller's stack for each file found; `sPath` + `sFileName` is its path. A handler sets `fCancel` to
    /// end the walk at once.
    /// @param sPath      the file's directory, with "/" at its end
    /// @param sFileName  the name alone
    std::function<void(const std::string& sPath, const std::string& sFileName, bool& fCancel)> ItemFound;

    /// Raises ItemFound for each regular file whose name matches, and returns when the walk is over. A directory's
    /// files come in the file system's order and before those of its subdirectories. A link to a file is a file, as it
    /// is for whoever opens it; links to directories are not followed. A directory that is not there or cannot be read
    /// is passed over, and so is one in which the program keeps old files. However deep the tree, few directories are
    /// open at a time.
    /// @param filter   a pattern of characters and "*", case of ASCII letters ignored; "*.*" is every name. An
    ///                 extension of exactly three letters stands for longer ones too that begin with them.
    /// @param topOnly  1 for `searchDir` alone, 0 for all below it as well
    void Walk(const std::string& searchDir, const std::string& filter, int topOnly);
};

}  // namespace kelvor
