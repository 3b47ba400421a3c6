// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/name_anchor_file.h"

#include "authoring/links.h"
#include "authoring/name_anchors.h"
#include "editing/anchors.h"
#include "editing/insertion.h"
#include "files/whole_file.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

constexpr int red = 0x0000FF;
constexpr int windowText = -1;

}  // namespace

void NameAnchorFile::Form_Unload() {
    setActiveFormName(std::string(documentForm));
}

void NameAnchorFile::Form_Load() {
    setActiveFormName(name());
    loading_ = true;
    // A fault of the file is told and the dialog still comes: another file can be chosen.
    guarded([this] { cmdCommonD_Click(); });
    loading_ = false;
}

void NameAnchorFile::cmdCommonD_Click() {
    formLoadFailed = false;
    const auto path = pickFile("Select file to scan for name anchors");
    if (!path) return;
    nameAnchors.clear();
    path_ = *path;
    lblNameLinkFile.setCaption(path_);
    lblNameLinkFile.setToolTip(path_);
    pumpEvents();
    const DisabledFrame disabled;
    scanFile();
}

void NameAnchorFile::scanFile() {
    {
        const Hourglass hourglass;
        const std::string text = readWholeFile(path_);
        const bool found = hasNameAnchor(text);
        offerAnchors(found);
        if (found) return scanNameAnchors(nameAnchorStart, nameAnchorEnd, text, nameAnchors);
    }
    askForAnotherFile();
}

void NameAnchorFile::offerAnchors(bool offered) {
    cmdMakeLink.setEnabled(offered);
    nameAnchors.setEnabled(offered);
    lblNameLinkFile.setForeColor(offered ? windowText : red);
}

void NameAnchorFile::askForAnotherFile() {
    formLoadFailed = true;
    const Answer answer =
        beepAndShow({.text = "There are no name anchors to link with in the selected file. Select from another file?",
                     .title = "Name anchor error",
                     .icon = MessageIcon::question,
                     .buttons = MessageButtons::yesNo});
    if (answer == Answer::yes) return cmdCommonD_Click();
    if (loading_) return;
    formLoadFailed = false;
    unload();
}

void NameAnchorFile::cmdMakeLink_Click() {
    const auto name = selectedAnchor(nameAnchors);
    if (!name) return;
    insertAtSelection(openingAnchor(linkTarget(path_) + "#" + *name), closingAnchor);
    unload();
}

void mnuRClick_Link_linkToNameFile_Click() {
    openToolForm(toolForm<NameAnchorFile>(), ShowMode::modal);
}

}  // namespace kelvor
