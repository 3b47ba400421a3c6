// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// The Window menu's commands on the frame's child windows.
void mnuWindow_Cascade_Click();
void mnuWindow_TileH_Click();
void mnuWindow_TileV_Click();
void mnuWindow_ArrangeIcons_Click();
/// Bring the next or previous window, in the order of opening, to the front.
void nextMdiWindow();
void previousMdiWindow();

/// The frame's answer to a click on a tab: its document comes to the front, from its icon too.
void TabStrip1_Click();

}  // namespace kelvor
