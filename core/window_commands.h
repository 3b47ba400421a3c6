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

/// The frame's answer to a click on a tab, after each document has heard it: the commands follow the view
/// of the document in front.
void TabStrip1_Click();

}  // namespace kelvor
