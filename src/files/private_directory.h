// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "files/system_calls.h"

namespace kelvor {

/// A directory of the user's own in stateDirectory(), made when it is missing, that nobody else may enter (mode 0700).
/// A link of the user's own to such a directory is followed. Throws Error when there is no home, when it cannot be
/// made, and when what stands there is no directory or belongs to another user.
/// @param name  its name in the state directory; parts are separated by "/"
std::string privateDirectory(std::string_view name);

/// Makes a file for its owner alone (mode 0600), open for reading and writing. Throws Error, 58 when something stands
/// there.
OpenFile createPrivateFile(const std::string& path);

}  // namespace kelvor
