// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace kelvor {

/// Joins every control of the frame to its procedure. Once, after the frame has been made.
void connectCommands();

/// The names of the menu rows that have no command yet.
std::span<const char* const> menuRowsToCome();

}  // namespace kelvor
