// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/link_manager.h"

#include <exception>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/event.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "html/link_tag.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/fields.h"
#include "support/messages.h"
#include "support/programs.h"
#include "support/user_settings.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

constexpr int linksPage = 0;
constexpr int fieldsPage = 1;

constexpr int labelColumn = 0;
constexpr int tagColumn = 1;
constexpr int labelWidth = 1750;  // twips

const std::string pageForNew = "Add a Link";
const std::string pageForEdit = "Edit Link";

const Message noLabel = {
    .text = "You must enter a label for this link", .title = "Mandatory data", .icon = MessageIcon::exclamation};

/// Whether a field has none of the characters that would end the tag too early. The user is told of each that it has,
/// and has the field to mend it.
bool isSound(TextBox& field) {
    bool sound = true;
    for (const char* character : {">", "<", "\""})
        if (rejectIllegalChar(field, character)) sound = false;
    if (!sound) field.SetFocus();
    return sound;
}

}  // namespace

LinkManager::LinkManager() : ToolDialog("linkman", "Link Manager", AtEnd::focusDelivered) {
    ListView1.setIcons({"link_http", "link_ftp", "link_gopher", "link_mailto", "link_news", "link_newsrc", "link_nntp",
                        "link_telnet", "link_wais", "link_relative"});
    ListView1.setColumnWidth(labelColumn, labelWidth);
    selectThemselves(txtLabel, txtAddress, txtHTMLText);
    mnuLinkRClick.makePopup();
}

void LinkManager::Form_Load() {
    fillTypesCombo();
    setUpLinks();
    setListViewSelection();
    ListView1.SetFocus();
}

void LinkManager::fillTypesCombo() {
    for (const LinkType& type : linkTypes) cboType.addItem(std::string(type.name));
    cboType.setListIndex(httpLink);
}

void LinkManager::setUpLinks() {
    auto links = user::links.all();
    if (!links) return;
    std::vector<ReportView::Row> rows;
    rows.reserve(links->size());
    for (Setting& link : *links) {
        const int icon = iconCheck(link.value);
        rows.push_back({{std::move(link.key), std::move(link.value)}, icon});
    }
    ListView1.addRows(std::move(rows));
    ListView1.sortBy(labelColumn, true);
}

void LinkManager::setListViewSelection() {
    if (ListView1.count() > 0) ListView1.setSelectedRow(0);
}

void LinkManager::updatePreview() {
    lblFullLink.setCaption(
        linkTag({.type = cboType.listIndex(), .address = txtAddress.text(), .description = txtHTMLText.text()}));
}

void LinkManager::refillSelections(const std::string& link, const std::string& label) {
    const LinkParts parts = linkParts(link);
    txtHTMLText.setText(parts.description);
    txtAddress.setText(parts.address);
    txtLabel.setText(label);
    cboType.setListIndex(parts.type);
    updatePreview();
}

void LinkManager::resetAddLink() {
    for (TextBox* field : {&txtLabel, &txtHTMLText, &txtAddress}) field->setText("");
    cboType.setListIndex(httpLink);
    lblFullLink.setCaption("(No data entered)");
}

bool LinkManager::isEditing() const {
    return SSTab1.caption(fieldsPage) == pageForEdit;
}

void LinkManager::SSTab1_Click() {
    if (SSTab1.tab() == linksPage) {
        setListViewSelection();
        SSTab1.setCaption(fieldsPage, pageForNew);
        return cmdAdd.setCaption("&Add Link");
    }
    if (isEditing()) {
        editLabel_ = txtLabel.text();
    } else {
        resetAddLink();
    }
    txtLabel.SetFocus();
}

/// A link that is refused afterwards is gone from the list and the store all the same; its fields are what is left.
void LinkManager::dropEditedLink() {
    if (!editLabel_) return;
    user::links.remove(*editLabel_);
    editLabel_.reset();
    if (ListView1.selectedRow() >= 0) ListView1.removeRow(ListView1.selectedRow());
}

bool LinkManager::fieldsAreSound() {
    if (!textBoxEmpty(txtLabel)) return isSound(txtHTMLText) && isSound(txtAddress);
    beepAndShow(noLabel);
    txtLabel.SetFocus();
    return false;
}

bool LinkManager::storeLink() const {
    try {
        user::links.store(txtLabel.text(), lblFullLink.caption());
        return true;
    } catch (const std::exception&) {
        platform().dialogs.message({.text = "An error occurred while writing to the registry.",
                                    .cause = currentError().cause(),
                                    .title = "SaveSetting Error",
                                    .icon = MessageIcon::critical});
        return false;
    }
}

void LinkManager::addRow() {
    ListView1.addRow({txtLabel.text(), lblFullLink.caption()}, iconCheck(cboType.text()));
    ListView1.sortBy(labelColumn, true);
}

void LinkManager::cmdAdd_Click() {
    if (isEditing()) dropEditedLink();
    if (!fieldsAreSound() || !storeLink()) return;
    addRow();
    resetAddLink();
    if (isEditing()) SSTab1.setTab(linksPage);
}

const std::string& LinkManager::selectedCell(int column) const {
    return ListView1.cell(ListView1.selectedRow(), column);
}

void LinkManager::ListView1_DblClick() {
    if (hasMdiChild()) replaceSelectionText(deliveryTarget(), selectedCell(tagColumn));
}

void LinkManager::ListView1_MouseDown(const MousePress& press) {
    if (press.button != MousePress::right || ListView1.count() == 0) return;
    setAllEnabled({&mnuLinkRClick_delete, &mnuLinkRClick_edit, &mnuLinkRClick_go}, ListView1.selectedRow() >= 0);
    platform().windows.popupMenu(mnuLinkRClick);
}

void LinkManager::mnuLinkRClick_delete_Click() {
    const std::string label = selectedCell(labelColumn);
    if (!confirmDeletion("Delete [" + label + "] link?")) return;
    user::links.remove(label);
    ListView1.removeRow(ListView1.selectedRow());
}

void LinkManager::mnuLinkRClick_edit_Click() {
    refillSelections(selectedCell(tagColumn), selectedCell(labelColumn));
    SSTab1.setCaption(fieldsPage, pageForEdit);
    cmdAdd.setCaption("&Save changes");
    SSTab1.setTab(fieldsPage);
}

void LinkManager::mnuLinkRClick_go_Click() {
    openInDefaultBrowser(extractBetween("=\"", "\"", selectedCell(tagColumn)));
}

void LinkManager::lblFullLink_Click() {
    if (cboType.listIndex() != relativeLink) openInDefaultBrowser(cboType.text() + txtAddress.text());
}

void mnuInsert_Links_Click() {
    openToolForm(toolForm<LinkManager>(), ShowMode::floating);
}

}  // namespace kelvor
