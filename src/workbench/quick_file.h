// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Fills Quick File's filter list and shows the directory of `lastDir`; the last step of the start.
void initQuickView();
/// Shows the volume and the directory of `lastDir`; nothing when that is empty or on a network path.
void SetQuickView();
/// Opens the selected files of Quick File.
void QuickOpenFiles();

/// What the lists do when one of them changes.
void Drive1_Change();
void Dir1_Change();
void Combo5_Change();
/// Offers to open the selected files; nothing when the list is empty.
void File1_RightPress();

/// Shows or hides Quick File. The choice is not stored.
void mnuView_QuickFile_Click();
/// Shows Quick File, with its menu row and button.
void showQuickFile(bool show);

}  // namespace kelvor
