// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/save_over.h"

#include "base/error.h"
#include "base/event.h"
#include "core/disk_changes.h"
#include "core/document.h"
#include "core/file_save.h"
#include "frame/tool_forms.h"
#include "text/shown_name.h"

namespace kelvor {

SaveOverChoice SaveOver::ask(const CDocument& document) {
    document_ = &document;
    lblFile.setCaption(shownName(document.LongFileName()));
    lblFile.setToolTip(document.LongFileName());
    openToolForm(*this, ShowMode::modal);
    return choice_;
}

void SaveOver::cmdOverwrite_Click() {
    choice_.act = SaveOverAct::overwrite;
    unload();
}

/// A name that is not given leads back to the question.
void SaveOver::cmdSaveAs_Click() {
    try {
        choice_ = {SaveOverAct::saveAs, askForName(*document_)};
    } catch (const Error& error) {
        if (error.number() != error_number::dialogCancelled) throw;
        return;
    }
    unload();
}

void SaveOver::cmdCompare_Click() {
    compareWithDisk(*document_);
}

SaveOverChoice askSaveOver(const CDocument& document) {
    // The dialog ends when it unloads, and its choice is read behind that.
    const EventScope scope;
    return toolForm<SaveOver>().ask(document);
}

}  // namespace kelvor
