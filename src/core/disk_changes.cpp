// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/disk_changes.h"

#include <exception>
#include <optional>
#include <string>

#include "base/event.h"
#include "core/compare.h"
#include "core/document.h"
#include "core/document_manager.h"
#include "files/files.h"
#include "frame/main_frame.h"
#include "support/messages.h"
#include "support/report_error.h"
#include "text/shown_name.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

const ContentHash& hashOfNothing() {
    static const ContentHash hash = hashOf({});
    return hash;
}

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

DiskState lookAtDisk(const CDocument& document) {
    if (document.IsUntitled()) return DiskState::same;
    auto known = document.SourceRTB().fileStamp();
    if (!known) return stampNow(document.LongFileName()) ? DiskState::replaced : DiskState::same;
    const DiskState state = lookAgain(*known, document.LongFileName());
    if (state == DiskState::same) document.SourceRTB().setFileStamp(known);
    return state;
}

DiskContents contentsOnDisk(const CDocument& document) {
    switch (lookAtDisk(document)) {
        case DiskState::same: {
            const auto& known = document.SourceRTB().fileStamp();
            return {.hash = known ? known->hash : hashOfNothing()};
        }
        case DiskState::gone:
            return {.hash = hashOfNothing()};
        default:
            return newsOnDisk(document);
    }
}

DiskContents newsOnDisk(const CDocument& document) {
    try {
        return {.hash = readStamp(document.LongFileName()).hash, .isNews = true};
    } catch (const std::exception&) {
        return {};
    }
}

void compareWithDisk(const CDocument& document) {
    const std::string name = shownName(document.ShortFileName());
    try {
        const std::string onDisk = decode(readFile(document.LongFileName())).text;
        compareTexts({name + " on the disk", onDisk}, {name + " in the editor", document.SourceRTB().text()});
    } catch (const std::exception&) {
        reportOpenError(document.LongFileName(), loggedFailure(currentError()).cause());
    }
}

void showDiskState() {
    if (!mainForm().mdi.activeForm()) return hideBar();
    const CDocument& document = documentManager().currentDocument();
    const DiskState state = lookAtDisk(document);
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
    compareWithDisk(document);
    goOn(document);
}

void cmdDiskKeep_Click() {
    CDocument& document = documentManager().currentDocument();
    document.SourceRTB().setFileStamp(stampNow(document.LongFileName()));
    document.documentIsNotAsOnDisk();
    goOn(document);
}

}  // namespace kelvor
