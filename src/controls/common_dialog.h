// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace kelvor {

/// Bits of CommonDialog::flags.
namespace dialog_flag {
constexpr int overwritePrompt = 0x2;
constexpr int fullOpen = 0x2;  ///< of the colour dialog
constexpr int hideReadOnly = 0x4;
constexpr int allowMultiple = 0x200;
constexpr int fileMustExist = 0x1000;
constexpr int noReadOnlyReturn = 0x8000;
constexpr int explorer = 0x80000;
}  // namespace dialog_flag

/// The frame's one file and colour dialog: filled in, shown, read.
class CommonDialog {
public:
    std::string initDir;
    std::string dialogTitle;
    std::string filter;
    int filterIndex = 1;
    int flags = 0;
    /// Before a save: the name that is offered. After a choice: the file's full path, the first one of several.
    std::string fileName;
    /// All chosen files' full paths, in the dialog's order.
    std::vector<std::string> fileNames;
    /// The chosen file's name without its directory.
    std::string fileTitle;
    /// The colour chosen last, where the next choice starts. Red in the low byte.
    int color = 0xffffff;

    /// Each of these returns after a choice and throws Error 32755 when the dialog was cancelled.
    void ShowOpen();
    void ShowSave();
    void ShowColor();

private:
    FileRequest request() const;
    void take(std::vector<std::string> paths);
};

/// Shows the dialog; false when it was cancelled.
/// @param show  ShowOpen, ShowSave or ShowColor
bool answered(CommonDialog& dialog, void (CommonDialog::*show)());

}  // namespace kelvor
