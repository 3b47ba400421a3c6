// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

enum class PathKind { none, folder, file };

/// A link that is looked at: what it leads to, or the link itself, which is a file then.
enum class Links { followed, kept };

/// What a look at a path has seen.
struct PathLook {
    PathKind kind = PathKind::none;
    int error = 0;  ///< errno of a look that has seen nothing

    bool isFolder() const { return kind == PathKind::folder; }
    /// Whether there is something or may be: where the user may not look, only an attempt tells.
    bool mayBeThere() const;
};

PathLook lookAt(const std::string& path, Links links = Links::followed);

}  // namespace kelvor
