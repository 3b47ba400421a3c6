#include "core/file_save.h"

#include "authoring/common.h"
#include "core/document_manager.h"
#include "core/file_filter.h"
#include "core/recent_files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

/// Shows the save dialog, which offers a titled document's own name, and takes its directory; the chosen path.
std::string askForName(const CDocument& document, int flags) {
    prepareSaveDialog(flags);
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.fileName = document.IsUntitled() ? "" : document.ShortFileName();
    dialog.ShowSave();
    lastDir = directoryPart(dialog.fileName);
    return dialog.fileName;
}

/// Tells that the last save failed, unless the user declined it.
void tellFailure(const CDocument& document, const std::string& path) {
    if (!document.saveDeclined()) reportSaveError(path);
}

/// Saves an untitled document under `path`, which joins the recent files however the save ends.
/// @return false when the save failed and the user has not said No to it
bool saveUntitled(CDocument& document, const std::string& path) {
    const bool saved = document.SaveDocAs(path);
    addOpenFile(path);
    recentFileMenu();
    return saved || document.saveDeclined();
}

void reportSomeNotSaved() {
    beepAndShow({.text = "An error occurred while saving one or more files.  Verify the files before closing.",
                 .title = "file save error",
                 .icon = MessageIcon::critical});
}

}  // namespace

void saveFile(CDocument& document) {
    if (document.SaveDoc(document.LongFileName())) {
        mainForm().StatusBar1.setPanelText(panel::saved, "File Saved: Yes:");
    } else {
        tellFailure(document, document.LongFileName());
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
    if (document.SaveDocAs(path)) {
        updateOpenFileCollection();
    } else {
        tellFailure(document, path);
    }
}

void cmdSaveAs() {
    using namespace dialog_flag;
    try {
        CDocument& document = documentManager()->currentDocument();
        fileSaveAs(document, askForName(document, overwritePrompt | hideReadOnly | noReadOnlyReturn));
    } catch (const Error& error) {
        if (error.number() == error_number::dialogCancelled) return;
        logError(error);
        beepAndShow({.text = "An error occurred while saving the file, the file is not saved.",
                     .title = "File save error",
                     .icon = MessageIcon::critical});
    }
}

void mnuFile_Save_Click() {
    try {
        fileSave(documentManager()->currentDocument());
        mainForm().activeForm().Text1.SetFocus();
    } catch (const Error& error) {
        reportError(error, "File save error");
    }
}

void mnuFile_SaveAs_Click() {
    cmdSaveAs();
    mainForm().activeForm().Text1.SetFocus();
}

void mnuFile_SaveAll_Click() {
    using namespace dialog_flag;
    bool failed = false;
    std::string path;
    try {
        for (const auto& document : documentManager()->MyDocuments().items()) {
            if (document->IsUntitled()) {
                path = askForName(*document, overwritePrompt | hideReadOnly);
                if (!saveUntitled(*document, path)) failed = true;
            } else if (!document->SaveDoc(path) && !document->saveDeclined()) {
                failed = true;
            }
        }
    } catch (const std::exception&) {
        const Error error = currentError();
        if (error.number() != error_number::dialogCancelled) {
            logError(error);
            failed = true;
        }
    }
    if (failed) reportSomeNotSaved();
    // Whatever was saved beside it, the panel tells of the document in front.
    documentManager()->currentDocument().showSavedState();
}

}  // namespace kelvor
