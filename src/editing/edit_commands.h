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

/// Runs the Edit menu's row by number: 0 paste, 1 cut, 2 copy, 3 select all, 4 undo; any other does nothing.
void Edit_Action(int action);

}  // namespace kelvor
