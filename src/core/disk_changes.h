// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/content_hash.h"
#include "files/file_stamp.h"

namespace kelvor {

class CDocument;

/// What has become of a document's file since it was read, saved or accepted last. One that was not there then and is
/// there now is `replaced`; a document without a file is the `same`.
DiskState lookAtDisk(const CDocument& document);

/// What stands in the place of a document's file.
struct DiskContents {
    ContentHash hash;     ///< of nothing when there is no file, and of no file's bytes when it cannot be read
    bool isNews = false;  ///< a save over it would take away what the document has not seen
};
/// Looks as lookAtDisk does.
DiskContents contentsOnDisk(const CDocument& document);
/// What is there now, taken for news whatever the document knows. What cannot be read is none: it cannot be written
/// over either.
DiskContents newsOnDisk(const CDocument& document);

/// Shows what a document's file holds beside its text. A file that cannot be read is told.
void compareWithDisk(const CDocument& document);

/// Tells in the frame's bar what has become of the file of the document in front, and hides the bar when that is
/// nothing.
void showDiskState();

/// Takes in what the file holds by now; a failure is told as that of an open.
void cmdDiskReload_Click();
void cmdDiskCompare_Click();
/// What is on the disk is known from now on, and the text is a change to it.
void cmdDiskKeep_Click();

}  // namespace kelvor
