// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/outcome.h"

namespace kelvor {

/// The one road by which a document comes to be. The frame takes no input meanwhile.
/// @param isUntitled  the file's text only, as a new document with the next untitled name
/// @return failed when there is no such file, of which the user has been told then, or it cannot be read; the caller
///         tells that the file was not opened
Outcome fileOpen(const std::string& path, bool isUntitled);

/// Asks for files and opens each; the directory becomes `lastDir`.
void mnuFile_Open_Click();

/// Opens the recent file at a row of the File menu, from 0.
void mnuFile_RecentFiles_Click(int index);

}  // namespace kelvor
