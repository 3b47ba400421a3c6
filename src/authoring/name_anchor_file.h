#pragma once

#include <string>

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"

namespace kelvor {

/// The name anchors of a file of the user's choice, to one of which the selection is linked.
class NameAnchorFile : public Form {
public:
    NameAnchorFile();

    Label Label1{*this, "Label1", "Select the name anchor that you wish to link to in the file:"};
    Label lblNameLinkFile{*this, "lblNameLinkFile"};
    ListBox nameAnchors{*this, "nameAnchors"};
    Button cmdCommonD{*this, "cmdCommonD", "Select &File"};
    Button cmdMakeLink{*this, "cmdMakeLink", "&Make Link"};
    Button cmdClose{*this, "cmdClose", "&Close"};
    Button cmdHelp{*this, "cmdHelp", "&Help"};

private:
    void Form_Load();
    void cmdCommonD_Click();
    void cmdMakeLink_Click();
    void scanFile();
    void offerAnchors(bool offered);
    void askForAnotherFile();

    std::string path_;  ///< the chosen file's full path
    bool loading_ = false;
};

/// The one dialog.
NameAnchorFile& nameAnchorFile();

/// Asks for a file and shows the dialog.
void mnuRClick_Link_linkToNameFile_Click();

}  // namespace kelvor
