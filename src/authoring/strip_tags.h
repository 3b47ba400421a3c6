// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Deletes the tags of the active document's text, as one undo step; the document has the focus afterwards. A "<" that
/// opens again before its ">" is no tag: it stays, and the user is told. Without any "<" nothing happens. A text that
/// something else changes while waiting events run is left as it then is: error 5.
/// @param startPos  where to begin; then where the search ended in the new text, -1 behind the last "<"
/// @param endPos    a tag's ">" stands before it; lowered by the length of each tag, also of what is no proper one, so
///                  that after such a one the last tags in front of it stay
void stripTags(int& startPos, int& endPos);

/// Strips the whole text, and the selection.
void mnuTools_StripTags_Click();
void mnuEdit_StripSel_Click();

}  // namespace kelvor
