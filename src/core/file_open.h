// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/outcome.h"

namespace kelvor {

struct LeftJournal;

/// The road by which a document comes to be that is read from a file. The frame takes no input meanwhile.
/// @param isUntitled  the file's text only, as a new document with the next untitled name
/// @return failed when there is no such file, of which the user has been told then, or it cannot be read; the caller
///         tells that the file was not opened
Outcome fileOpen(const std::string& path, bool isUntitled);

/// The road for a text that was left in a journal: as a document that is changed and not saved, under its name or the
/// next untitled one, and goes on being kept in that journal. Nothing is written to its file.
/// @param journal  taken over when it succeeds
/// @return failed when there is no such text, or memory does not suffice; the caller tells it
Outcome openLeftText(LeftJournal& journal);

/// Asks for files and opens each; the directory becomes `lastDir`.
void mnuFile_Open_Click();

/// Opens the recent file at a row of the File menu, from 0.
void mnuFile_RecentFiles_Click(int index);

}  // namespace kelvor
