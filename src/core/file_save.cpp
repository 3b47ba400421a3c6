// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_save.h"

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/event.h"
#include "base/outcome.h"
#include "controls/common_dialog.h"
#include "core/document.h"
#include "core/document_manager.h"
#include "core/recent_files.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

/// Shows the save dialog, which offers a titled document's own name, and takes its directory; the chosen path.
std::string askForName(const CDocument& document, int flags) {
    std::string path = pickSavePath(document.IsUntitled() ? "" : document.ShortFileName(), flags);
    lastDir = directoryPart(path);
    return path;
}

/// Tells that the last save failed, unless the user declined it.
void tellFailure(const CDocument& document, const std::string& path, const std::string& cause) {
    if (!document.saveDeclined()) reportSaveError(path, cause);
}

/// Saves an untitled document under `path`, which joins the recent files however the save ends.
Outcome saveUntitled(CDocument& document, const std::string& path) {
    Outcome saved = document.SaveDocAs(path);
    addOpenFile(path);
    recentFileMenu();
    return saved;
}

/// @param causes  one for each failure
void reportSomeNotSaved(const std::vector<std::string>& causes) {
    constexpr std::size_t mostTold = 5;
    std::string told;
    for (std::size_t index = 0; index < std::min(causes.size(), mostTold); ++index)
        told += (index == 0 ? "" : "\r\n") + causes[index];
    if (causes.size() > mostTold) told += "\r\nand " + std::to_string(causes.size() - mostTold) + " more";
    beepAndShow({.text = "An error occurred while saving one or more files.  Verify the files before closing.",
                 .cause = told,
                 .title = "file save error",
                 .icon = MessageIcon::critical});
}

}  // namespace

void saveFile(CDocument& document) {
    if (const Outcome saved = document.SaveDoc(document.LongFileName())) {
        mainForm().StatusBar1.setPanelText(panel::saved, "File Saved: Yes:");
    } else {
        tellFailure(document, document.LongFileName(), saved.cause());
    }
}

void fileSave(CDocument& document) {
    if (document.IsUntitled()) {
        cmdSaveAs();
    } else {
        saveFile(document);
    }
}

void fileSaveAs(CDocument& document, const std::string& path) {
    if (const Outcome saved = document.SaveDocAs(path)) {
        updateOpenFileCollection();
    } else {
        tellFailure(document, path, saved.cause());
    }
}

void cmdSaveAs() {
    using namespace dialog_flag;
    try {
        CDocument& document = documentManager().currentDocument();
        fileSaveAs(document, askForName(document, overwritePrompt | hideReadOnly | noReadOnlyReturn));
    } catch (const Error& error) {
        if (error.number() == error_number::dialogCancelled) return;
        logError(error);
        beepAndShow({.text = "An error occurred while saving the file, the file is not saved.",
                     .cause = error.cause(),
                     .title = "File save error",
                     .icon = MessageIcon::critical});
    }
}

void mnuFile_Save_Click() {
    try {
        fileSave(documentManager().currentDocument());
        focusDocument();
    } catch (const Error& error) {
        reportError(error, "File save error");
    }
}

void mnuFile_SaveAs_Click() {
    cmdSaveAs();
    focusDocument();
}

void mnuFile_SaveAll_Click() {
    using namespace dialog_flag;
    std::vector<std::string> causes;
    std::string path;
    try {
        for (const auto& document : documentManager().MyDocuments().items()) {
            const bool isUntitled = document->IsUntitled();
            if (isUntitled) path = askForName(*document, overwritePrompt | hideReadOnly);
            const Outcome saved = isUntitled ? saveUntitled(*document, path) : document->SaveDoc(path);
            if (saved || document->saveDeclined()) continue;
            causes.push_back((path.empty() ? document->LongFileName() : path) + ": " + saved.cause());
        }
    } catch (const std::exception&) {
        const Error error = currentError();
        if (error.number() != error_number::dialogCancelled) {
            logError(error);
            causes.push_back(error.cause());
        }
    }
    if (!causes.empty()) reportSomeNotSaved(causes);
    // Whatever was saved beside it, the panel tells of the document in front.
    documentManager().currentDocument().showSavedState();
}

}  // namespace kelvor
