// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace kelvor {

/// A directory for temporary files of this process alone, removed at exit: this user's own, of mode 0700. It is
/// looked at at each call; where something else has come in its place, or its owner or mode is another one, a new one
/// is made. Throws Error when none can be made.
std::string temporaryDirectory();
/// The same with a separator at its end.
std::string getTempDir();

/// The temporary directories that processes of this user have left, those that were killed. A directory that a
/// living process holds, this one too, is not among them.
std::vector<std::string> abandonedTemporaryDirectories();

}  // namespace kelvor
