// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Joins every control of the frame to its procedure. Once, after the frame has been made.
void connectCommands();

}  // namespace kelvor
