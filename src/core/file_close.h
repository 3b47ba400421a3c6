// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Closes the document in front, which asks first when it is not saved.
void mnuFile_Close_Click();
/// Closes all documents, the last opened first; one that the user keeps stays and the others go on.
void mnuFile_CloseAll_Click();
/// Ends the program unless a document is kept open.
void mnuFile_Exit_Click();

}  // namespace kelvor
