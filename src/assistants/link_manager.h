// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "controls/combo_box.h"
#include "controls/label.h"
#include "controls/menu_item.h"
#include "controls/report_view.h"
#include "controls/tab_control.h"
#include "controls/text_box.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The user's own list of links, each kept as a whole tag under its label, to be inserted and tried out.
class LinkManager : public ToolDialog {
public:
    LinkManager();

    TabControl SSTab1{*this, "SSTab1", {"Links", "Add a Link"}, &LinkManager::SSTab1_Click};
    ReportView ListView1{*this,
                         "ListView1",
                         {"Link Label", "HTML Link Text"},
                         {.doubleClicked = &LinkManager::ListView1_DblClick,
                          .returnPressed = &LinkManager::ListView1_DblClick,
                          .mouseDown = &LinkManager::ListView1_MouseDown}};
    TextBox txtLabel{*this, "txtLabel"};
    ComboBox cboType{*this, "cboType", ComboBox::Style::dropDownList, {.clicked = &LinkManager::updatePreview}};
    TextBox txtAddress{*this, "txtAddress", "", {.changed = &LinkManager::updatePreview}};
    TextBox txtHTMLText{*this, "txtHTMLText", "", {.changed = &LinkManager::updatePreview}};
    Label lblFullLink{*this, "lblFullLink", "(No data entered)", {.clicked = &LinkManager::lblFullLink_Click}};
    Button cmdAdd{*this, "cmdAdd", "&Add link", &LinkManager::cmdAdd_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &LinkManager::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &LinkManager::showHelp};
    MenuItem mnuLinkRClick{*this, "mnuLinkRClick", nullptr};
    MenuItem mnuLinkRClick_delete{*this, "mnuLinkRClick_delete", &mnuLinkRClick, "Delete this link",
                                  &LinkManager::mnuLinkRClick_delete_Click};
    MenuItem mnuLinkRClick_edit{*this, "mnuLinkRClick_edit", &mnuLinkRClick, "Edit this link",
                                &LinkManager::mnuLinkRClick_edit_Click};
    MenuItem mnuLinkRClick_go{*this, "mnuLinkRClick_go", &mnuLinkRClick, "Launch browser with this link",
                              &LinkManager::mnuLinkRClick_go_Click};

private:
    void Form_Load() override;
    void SSTab1_Click();
    void ListView1_DblClick();
    void ListView1_MouseDown(const MousePress& press);
    void lblFullLink_Click();
    void cmdAdd_Click();
    void mnuLinkRClick_delete_Click();
    void mnuLinkRClick_edit_Click();
    void mnuLinkRClick_go_Click();

    void fillTypesCombo();
    void setUpLinks();
    void setListViewSelection();
    void updatePreview();
    void refillSelections(const std::string& link, const std::string& label);
    void resetAddLink();

    bool isEditing() const;
    void dropEditedLink();
    bool fieldsAreSound();
    bool storeLink() const;
    void addRow();
    const std::string& selectedCell(int column) const;

    /// Of the link under edit; none any more once that has been taken out of the list.
    std::optional<std::string> editLabel_;
};

/// Shows it beside the documents.
void mnuInsert_Links_Click();

}  // namespace kelvor
