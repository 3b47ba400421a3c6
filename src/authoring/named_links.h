#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"

namespace kelvor {

/// The name anchors of the active document, to one of which the selection is linked.
class NamedLinks : public Form {
public:
    NamedLinks();

    Label Label1{*this, "Label1", "Select the name anchor that you wish to link to."};
    ListBox nameAnchors{*this, "nameAnchors"};
    Button cmdMakeLink{*this, "cmdMakeLink", "&Make Link"};
    Button cmdClose{*this, "cmdClose", "&Close"};
    Button cmdHelp{*this, "cmdHelp", "&Help"};

private:
    void Form_Load();
    void cmdMakeLink_Click();
    void scanCurrentFile();
};

/// The one dialog.
NamedLinks& namedLinks();

/// Shows the dialog, or says that the active document has no name anchor.
void mnuRClick_Link_linkToName_Click();

}  // namespace kelvor
