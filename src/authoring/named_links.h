// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/label.h"
#include "controls/list_box.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The name anchors of the active document, to one of which the selection is linked.
class NamedLinks : public ToolDialog {
public:
    NamedLinks() : ToolDialog("namedLinks", "Line to named anchor") {}

    Label Label1{*this, "Label1", "Select the name anchor that you wish to link to."};
    ListBox nameAnchors{*this, "nameAnchors", {.doubleClicked = &NamedLinks::cmdMakeLink_Click}};
    Button cmdMakeLink{*this, "cmdMakeLink", "&Make Link", &NamedLinks::cmdMakeLink_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &NamedLinks::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &NamedLinks::showHelp};

private:
    void Form_Load() override;
    void cmdMakeLink_Click();
    void scanCurrentFile();
};

/// Shows the dialog, or says that the active document has no name anchor.
void mnuRClick_Link_linkToName_Click();

}  // namespace kelvor
