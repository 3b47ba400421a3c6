// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/edit_control.h"
#include "controls/text_box.h"
#include "editing/htmlkeys.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// Adds user strings to the list in the options, one after the other, or changes one of them.
class AddString : public ToolDialog {
public:
    AddString();

    TextBox Text1{*this, "Text1"};
    EditControl& Text2{addEditControl("Text2")};
    Button cmdApply{*this, "cmdApply", "&Add to list", &AddString::cmdApply_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &AddString::unload};

    /// Fills the fields with the string that is selected in the options, which they are to replace.
    void edit(const std::string& label, const std::string& contents);

private:
    void Form_Load() override;
    void Form_Unload() override;
    void cmdApply_Click();

    void removeEdited();
    bool addString();
    static void writeUS();

    htmlkeys keys_;
    bool hasEdited_ = false;  ///< the string under edit is still in the list
};

}  // namespace kelvor
