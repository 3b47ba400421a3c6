// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/text_box.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Adds browsers to the list in the options, one after the other up to their limit, or changes one of them.
class AddBrowser : public ToolDialog {
public:
    AddBrowser() : ToolDialog("frmAddBrowser", "Add a browser") {}

    TextBox Text1{*this, "Text1"};
    TextBox Text2{*this, "Text2", "", {.doubleClicked = &AddBrowser::Text2_DblClick}};
    Button cmdAddList{*this, "cmdAddList", "&Add to list", &AddBrowser::cmdAddList_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &AddBrowser::unload};

    /// Fills the fields with the browser that is selected in the options, which they are to replace.
    void edit(const std::string& label, const std::string& path);

private:
    void Form_Load() override;
    void Form_Unload() override;
    void Text2_DblClick();
    void cmdAddList_Click();

    bool isEditing() const;
    bool isNameInUse() const;
    void removeEdited();
    void addBrowser();
    void getReadyForNext();
    static void writeBrowsers();

    bool hasEdited_ = false;  ///< the browser under edit is still in the list
};

}  // namespace kelvor
