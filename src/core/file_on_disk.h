// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/edit_control.h"
#include "files/content_hash.h"
#include "files/file_stamp.h"

namespace kelvor {

/// What has become of a text's file since it was read, saved or accepted last; the text takes over what is known of it
/// now. A file that was not there then and is there now is `replaced`.
DiskState lookAtFile(EditControl& text, const std::string& path);

/// What stands in the place of a text's file.
struct DiskContents {
    ContentHash hash;     ///< of nothing when there is no file, and of no file's bytes when it cannot be read
    bool isNews = false;  ///< a save over it would take away what the text has not seen
};
/// Looks as lookAtFile does.
DiskContents contentsOnDisk(EditControl& text, const std::string& path);
/// What is there now, taken for news whatever is known. What cannot be read is none: it cannot be written over either.
DiskContents newsOnDisk(const std::string& path);

/// Shows what a file holds beside a text. A file that cannot be read is told.
void compareWithDisk(const EditControl& text, const std::string& path);

}  // namespace kelvor
