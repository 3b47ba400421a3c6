// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/file_versions.h"

#include <exception>
#include <utility>

#include "base/error.h"
#include "base/event.h"
#include "controls/control.h"
#include "controls/edit_control.h"
#include "controls/menu_item.h"
#include "core/compare.h"
#include "core/document_manager.h"
#include "core/look.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/moments.h"
#include "text/counted.h"
#include "text/line_difference.h"
#include "text/shown_name.h"
#include "text/text_difference.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// The column of lstVersions with numbers.
constexpr int sizeColumn = 1;

std::string stateText(bool keeps, std::size_t count) {
    if (count == 0 && keeps) return "No version of this file is kept yet. The next save keeps what it writes over.";
    if (count == 0) return "No version of this file is kept: Keep Versions in the File menu is switched off.";
    const std::string number = counted(count, "version") + (count == 1 ? " is kept." : " are kept.");
    return keeps ? number : number + " No more are added: Keep Versions in the File menu is switched off.";
}

/// Whether the source of a document that has a file is in front.
bool hasFileInFront() {
    return mainForm().menu("mnuFile_Save").enabled() && !documentManager().currentDocument().IsUntitled();
}

/// Makes a text of another one by one step that can be undone; the caret goes to where it has changed. Nothing when the
/// two are the same.
void changeInto(EditControl& control, const std::string& text) {
    const TextChange change = changeBetween(control.textView(), text);
    if (change.removed.empty() && change.inserted.empty()) return;
    const int position = static_cast<int>(change.position);
    {
        const EditControl::Batch step(control);
        control.setSelStart(position);
        control.setSelLength(static_cast<int>(change.removed.size()));
        control.setSelText(change.inserted);
    }
    control.setSelStart(position);
}

}  // namespace

FileVersions::FileVersions() : ToolDialog("frmVersions", "Versions of a File", AtEnd::focusDocument) {
    lstVersions.setRightAligned(sizeColumn);
}

void FileVersions::take(CDocument& document) {
    document_ = document.StrUniqueID();
    path_ = document.LongFileName();
}

/// Nothing once it is closed.
CDocument* FileVersions::document() const {
    const auto& documents = documentManager().MyDocuments();
    return documents.contains(document_) ? documents.Item(document_).get() : nullptr;
}

void FileVersions::Form_Load() {
    versions_ = versionsOf(path_);
    lblFile.setCaption(shownName(path_));
    lblState.setCaption(stateText(keepsVersions(), versions_.size()));
    for (const FileVersion& version : versions_)
        lstVersions.addRow({shownMoment(version.when), counted(version.size, "byte")});
    setAllEnabled({&cmdLook, &cmdCompare, &cmdBring}, false);
    if (versions_.empty()) return cmdClose.SetFocus();
    lstVersions.setSelectedRow(0);
    lstVersions.SetFocus();
}

void FileVersions::lstVersions_Chosen() {
    readChosen();
    setAllEnabled({&cmdLook, &cmdCompare, &cmdBring}, chosen_.has_value());
    lblDifference.setCaption(difference());
}

void FileVersions::readChosen() {
    chosen_.reset();
    failure_.clear();
    const int row = lstVersions.selectedRow();
    if (row < 0) return;
    try {
        auto bytes = readVersion(path_, versions_.at(static_cast<std::size_t>(row)));
        if (bytes) chosen_ = {"Version of " + lstVersions.cell(row, 0), decode(std::move(*bytes)).text};
        if (!bytes) failure_ = "This version is damaged.";
    } catch (const std::exception&) {
        failure_ = currentError().cause();
    }
}

/// What has become of the chosen version since, in words.
std::string FileVersions::difference() const {
    const CDocument* front = document();
    if (!chosen_ || front == nullptr) return failure_;
    const auto [added, removed] = countDifferences(chosen_->text, front->SourceRTB().textView());
    if (added == 0 && removed == 0) return "The text in the editor is the same.";
    return "Since then in the editor: " + counted(added, "line") + " added, " + counted(removed, "line") + " removed.";
}

void FileVersions::cmdLook_Click() {
    if (chosen_) lookAtText(*chosen_);
}

void FileVersions::cmdCompare_Click() {
    const CDocument* front = document();
    if (front != nullptr && chosen_) compareTexts(*chosen_, {"In the editor", front->SourceRTB().text()});
}

void FileVersions::cmdBring_Click() {
    const CDocument* front = document();
    if (front != nullptr && chosen_) changeInto(front->SourceRTB(), chosen_->text);
    unload();
}

void mnuFile_Click() {
    const MDIForm1& frame = mainForm();
    frame.menu("mnuFile_KeepVersions").setChecked(keepsVersions());
    frame.menu("mnuFile_Versions").setEnabled(hasFileInFront());
}

void mnuFile_KeepVersions_Click() {
    const bool keeps = !keepsVersions();
    setKeepsVersions(keeps);
    mainForm().menu("mnuFile_KeepVersions").setChecked(keeps);
    if (!keeps) return;
    platform().dialogs.message(
        {.text = "From now on each save keeps what the file held before it. The versions are in\r\n" +
                 shownName(versionsDirectory()) + "\r\n\r\nVersions of This File in the File menu shows them.",
         .title = "Keep Versions",
         .icon = MessageIcon::information});
}

void mnuFile_Versions_Click() {
    const EventScope scope;
    toolForm<FileVersions>().take(documentManager().currentDocument());
    openToolForm(toolForm<FileVersions>(), ShowMode::modal);
}

}  // namespace kelvor
