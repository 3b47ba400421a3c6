// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

class CDocument;

/// Saves a document: one with a file over its file, an untitled one under the name that the user gives.
void fileSave(CDocument& document);
/// Saves a document over its own file and tells a failure.
void saveFile(CDocument& document);
/// Asks for a name and saves the current document under it. Cancel changes nothing.
void cmdSaveAs();
/// Saves under a name, enters it in the recent list, or tells the failure.
void fileSaveAs(CDocument& document, const std::string& path);

void mnuFile_Save_Click();
void mnuFile_SaveAs_Click();
/// Saves every document, asking for the names of the untitled ones. A titled one that comes after an untitled one
/// takes the name just chosen for that.
void mnuFile_SaveAll_Click();

}  // namespace kelvor
