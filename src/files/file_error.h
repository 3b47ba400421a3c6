// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/error.h"

namespace kelvor {

/// A failure on `path`: the words with the path behind them for the log, and as a sentence of their own for the user.
/// @param words  a sentence without its full stop
Error pathError(int number, const std::string& words, const std::string& path);

/// The same for an errno value, with the number and the words that belong to it.
Error fileError(int code, const std::string& path);

/// The refusal of what is no regular file; `mode` is its st_mode.
Error notRegularError(unsigned mode, const std::string& path);

}  // namespace kelvor
