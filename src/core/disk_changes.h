// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Tells in the frame's bar what has become of the file of the document in front, and hides the bar when that is
/// nothing.
void showDiskState();

/// Takes in what the file holds by now; a failure is told as that of an open.
void cmdDiskReload_Click();
void cmdDiskCompare_Click();
/// What is on the disk is known from now on, and the text is a change to it.
void cmdDiskKeep_Click();

}  // namespace kelvor
