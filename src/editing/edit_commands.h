// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// The Edit menu's commands on the text of the document in front.
void mnuEdit_Undo_Click();
void mnuEdit_Cut_Click();
void mnuEdit_Copy_Click();
void mnuEdit_Paste_Click();
void mnuEdit_SelectAll_Click();
/// Deletes the selection; without one nothing changes.
void mnuEdit_Delete_Click();

/// The Edit menu, and the popup over the text, open: their rows for a selection follow it.
void mnuEdit_Click();
void mnuRClick_Click();

/// The Edit menu's rows that have chords in the text.
enum class EditAction { paste, cut, copy, selectAll, undo };

/// Runs the row, which does nothing while it is disabled.
void Edit_Action(EditAction action);

}  // namespace kelvor
