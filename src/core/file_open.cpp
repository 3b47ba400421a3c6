// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_open.h"

#include "base/event.h"
#include "core/document.h"
#include "core/document_manager.h"
#include "core/journal_list.h"
#include "core/recent_files.h"
#include "core/virtual_directories.h"
#include "files/paths.h"
#include "files/whole_file.h"
#include "frame/enablement.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/messages.h"

namespace kelvor {

namespace {

void tellNoSuchFile(const std::string& path) {
    beepAndShow({.text = "The file " + path + " does not exist.",
                 .title = "File Open Error",
                 .icon = MessageIcon::exclamation});
}

std::shared_ptr<CDocument> newDocument() {
    MDIForm1& frame = mainForm();
    return std::make_shared<CDocument>(DocumentSurroundings{.manager = documentManager(),
                                                            .tabs = frame.TabStrip1,
                                                            .vdirManager = vdirManager(),
                                                            .untitledCount = frame.untitledCount});
}

/// A failed open beside one other document leaves the frame in its empty state.
void giveUp(CDocument& document) {
    document.CloseDoc();
    if (!hasManyMdiChildren()) disableMenuItems();
}

/// @param open  gives the document its text
template <typename Open>
Outcome openNew(const Open& open) {
    const EventScope scope;
    const auto document = newDocument();
    Outcome opened = open(*document);
    if (!opened) {
        giveUp(*document);
        retire(document);
    }
    return opened;
}

void openOne(const std::string& path) {
    if (const Outcome opened = fileOpen(path, false)) {
        updateOpenFileCollection();
    } else {
        reportOpenError(path, opened.cause());
    }
}

}  // namespace

Outcome fileOpen(const std::string& path, bool isUntitled) {
    const DisabledFrame disabled;
    if (!fileExists(path)) {
        tellNoSuchFile(path);
        return Outcome::failed();
    }
    return openNew([&](CDocument& document) { return document.OpenDoc(path, isUntitled); });
}

Outcome openLeftText(LeftJournal& journal) {
    const DisabledFrame disabled;
    Outcome opened = openNew([&](CDocument& document) { return document.OpenLeft(journal); });
    if (!opened) return opened;
    if (journal.header.isUntitled) {
        mainForm().increaseUntitledCount();
    } else {
        updateOpenFileCollection();
    }
    return opened;
}

void mnuFile_Open_Click() {
    const auto paths = pickFiles("Open HTML file (multiple selections allowed)");
    if (paths.empty()) return;
    for (const std::string& path : paths) openOne(path);
    if (!hasMdiChild()) return;
    // A failed open beside one document has turned the commands off.
    mainForm().mdi.show(mainForm().activeForm());
    focusDocument();
}

void mnuFile_RecentFiles_Click(int index) {
    const std::string path = mainForm().menu("mnuFile_RecentFiles_" + std::to_string(index)).caption();
    if (!fileExists(path)) return tellNoSuchFile(path);
    if (const Outcome opened = fileOpen(path, false); !opened) reportOpenError(path, opened.cause());
}

}  // namespace kelvor
