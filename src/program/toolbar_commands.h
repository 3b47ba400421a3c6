// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace kelvor {

/// Joins the buttons of the four toolbars to their procedures. Once, after the frame has been made.
void connectToolbars();

/// The keys of the buttons that have no command yet.
std::span<const char* const> buttonsToCome();

/// Whether a button of the bar of that name has one.
bool hasCommand(std::string_view bar, std::string_view key);

}  // namespace kelvor
