// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/named_links.h"

#include "authoring/links.h"
#include "authoring/name_anchors.h"
#include "controls/edit_control.h"
#include "editing/anchors.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

const Message noAnchors = {.text = "There are no name anchors to link with in this document.",
                           .title = "Name anchor error",
                           .icon = MessageIcon::exclamation};

}  // namespace

void NamedLinks::Form_Load() {
    // What is wrong with an anchor is told, and the dialog offers those before it.
    guarded([this] { scanCurrentFile(); });
}

void NamedLinks::scanCurrentFile() {
    scanNameAnchors(nameAnchorStart, nameAnchorEnd, activeText().textView(), nameAnchors);
}

void NamedLinks::cmdMakeLink_Click() {
    const auto name = selectedAnchor(nameAnchors);
    if (!name) return;
    EditControl& text = activeText();
    replaceSelectionText(text, openingAnchor("#" + *name) + text.selText() + std::string(closingAnchor));
    unload();
}

void mnuRClick_Link_linkToName_Click() {
    if (!hasNameAnchor(activeText().textView())) {
        beepAndShow(noAnchors);
        return;
    }
    openToolForm(toolForm<NamedLinks>(), ShowMode::modal);
}

}  // namespace kelvor
