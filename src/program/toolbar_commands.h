// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelvor {

/// Joins the buttons of the four toolbars to their procedures. Once, after the frame has been made.
void connectToolbars();

/// Whether a button of the bar of that name has one.
bool hasCommand(std::string_view bar, std::string_view key);

}  // namespace kelvor
