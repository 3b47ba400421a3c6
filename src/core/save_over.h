// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/label.h"
#include "frame/tool_dialog.h"

namespace kelvor {

class EditControl;

/// What the user wants of a save over a file that another program has written meanwhile.
enum class SaveOverAct { cancel, overwrite, saveAs };
struct SaveOverChoice {
    SaveOverAct act = SaveOverAct::cancel;
    std::string path;  ///< the one to save under instead
};

/// The question before such a save.
class SaveOver : public ToolDialog {
public:
    SaveOver() : ToolDialog("frmSaveOver", "File Changed on the Disk") {}

    Label lblChanged{*this, "lblChanged", "This file has changed on the disk since it was opened or last saved:"};
    Label lblFile{*this, "lblFile"};
    Label lblLoss{*this, "lblLoss", "If you overwrite it, what is there now is lost."};
    Button cmdHelp{*this, "cmdHelp", "&Help", &SaveOver::showHelp};
    Button cmdOverwrite{*this, "cmdOverwrite", "&Overwrite", &SaveOver::cmdOverwrite_Click};
    Button cmdSaveAs{*this, "cmdSaveAs", "&Save As", &SaveOver::cmdSaveAs_Click};
    Button cmdCompare{*this, "cmdCompare", "&Compare", &SaveOver::cmdCompare_Click};
    Button cmdCancel{*this, "cmdCancel", "Cancel", &SaveOver::unload};

    /// Asks about a text's file, and returns when that is answered.
    SaveOverChoice ask(const EditControl& text, const std::string& path);

private:
    void cmdOverwrite_Click();
    void cmdSaveAs_Click();
    void cmdCompare_Click();

    const EditControl* text_ = nullptr;
    std::string path_;
    SaveOverChoice choice_;
};

/// Asks what is to become of a save of a text over its file.
SaveOverChoice askSaveOver(const EditControl& text, const std::string& path);

}  // namespace kelvor
