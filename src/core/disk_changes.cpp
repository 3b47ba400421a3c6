// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/disk_changes.h"

#include <string>

#include "core/document.h"
#include "core/document_manager.h"
#include "core/file_on_disk.h"
#include "files/file_stamp.h"
#include "frame/main_frame.h"
#include "support/messages.h"
#include "text/shown_name.h"

namespace kelvor {

namespace {

std::string wordsFor(DiskState state) {
    switch (state) {
        case DiskState::changed:
            return " has changed on the disk.";
        case DiskState::replaced:
            return " has been replaced by another file.";
        case DiskState::gone:
            return " is no longer on the disk.";
        case DiskState::same:
            break;
    }
    return {};
}

void hideBar() {
    mainForm().picDisk.setVisible(false);
    mainForm().lblDisk.setCaption({});
}

void showBar(const CDocument& document, DiskState state) {
    MDIForm1& frame = mainForm();
    setAllEnabled({&frame.cmdDiskReload, &frame.cmdDiskCompare}, state != DiskState::gone);
    frame.lblDisk.setToolTip(document.LongFileName());
    frame.lblDisk.setCaption(shownName(document.ShortFileName()) + wordsFor(state));
    frame.picDisk.setVisible(true);
}

/// The user goes on in the document, and the bar tells what is true now.
void goOn(CDocument& document) {
    document.SetDocFocus();
    showDiskState();
}

}  // namespace

void showDiskState() {
    if (!mainForm().mdi.activeForm()) return hideBar();
    CDocument& document = documentManager().currentDocument();
    const DiskState state = document.lookAtDisk();
    if (state == DiskState::same) return hideBar();
    showBar(document, state);
}

void cmdDiskReload_Click() {
    CDocument& document = documentManager().currentDocument();
    if (const Outcome reloaded = document.ReloadDoc(); !reloaded)
        reportOpenError(document.LongFileName(), reloaded.cause());
    goOn(document);
}

void cmdDiskCompare_Click() {
    CDocument& document = documentManager().currentDocument();
    compareWithDisk(document.SourceRTB(), document.LongFileName());
    goOn(document);
}

void cmdDiskKeep_Click() {
    CDocument& document = documentManager().currentDocument();
    document.SourceRTB().setFileStamp(stampNow(document.LongFileName()));
    document.documentIsNotAsOnDisk();
    goOn(document);
}

}  // namespace kelvor
