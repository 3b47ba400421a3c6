// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// Tells in the status bar what goes on failing and stops nobody.
/// @param cause  why, as Error::cause
void showNotice(std::string_view what, const std::string& cause);

/// Takes that away, unless something else is told by now.
void clearNotice(std::string_view what);

}  // namespace kelvor
