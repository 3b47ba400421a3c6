// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/label.h"
#include "controls/list_box.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The name anchors of a file of the user's choice, to one of which the selection is linked.
class NameAnchorFile : public ToolDialog {
public:
    NameAnchorFile() : ToolDialog("nameAnchorFile", "Link to named anchor in a file") {}

    Label Label1{*this, "Label1", "Select the name anchor that you wish to link to in the file:"};
    Label lblNameLinkFile{*this, "lblNameLinkFile"};
    ListBox nameAnchors{*this, "nameAnchors", {.doubleClicked = &NameAnchorFile::cmdMakeLink_Click}};
    Button cmdCommonD{*this, "cmdCommonD", "Select &File", &NameAnchorFile::cmdCommonD_Click};
    Button cmdMakeLink{*this, "cmdMakeLink", "&Make Link", &NameAnchorFile::cmdMakeLink_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &NameAnchorFile::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &NameAnchorFile::showHelp};

private:
    void Form_Load() override;
    void Form_Unload() override;
    void cmdCommonD_Click();
    void cmdMakeLink_Click();
    void scanFile();
    void offerAnchors(bool offered);
    void askForAnotherFile();

    std::string path_;  ///< the chosen file's full path
    bool loading_ = false;
};

/// Asks for a file and shows the dialog.
void mnuRClick_Link_linkToNameFile_Click();

}  // namespace kelvor
