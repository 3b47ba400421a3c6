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

using namespace dialog_flag;

/// Shows the save dialog, which offers a titled document's own name, and takes its directory; the chosen path.
std::string askForName(const CDocument& document, int flags) {
    prepareSaveDialog(flags);
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.fileName = document.IsUntitled() ? "" : document.ShortFileName();
    dialog.ShowSave();
    lastDir = directoryPart(dialog.fileName);
    return dialog.fileName;
}

void tellFailure(const CDocument& document, const std::string& path) {
    if (!document.saveDeclined()) reportSaveError(path);
}

/// Asks for a name and saves an untitled document under it.
/// @return false when the save failed and the user has not said No to it
bool saveUntitled(CDocument& document, const std::string& path) {
    const bool saved = document.SaveDocAs(path);
    addOpenFile(path);
    recentFileMenu();
    return saved || document.saveDeclined();
}

/// Panel 1 tells of the document in front, whatever was saved beside it.
void showSavedStateInFront() {
    const bool saved = documentManager()->currentDocument().IsSaved();
    mainForm().StatusBar1.setPanelText(panel::saved, saved ? "File Saved: Yes" : "File Saved: No");
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
        saveFile(documentManager()->currentDocument());
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
    try {
        CDocument& document = documentManager()->currentDocument();
        fileSaveAs(document, askForName(document, overwritePrompt | hideReadOnly | noReadOnlyReturn));
    } catch (const Error& error) {
        if (error.number() == error_number::dialogCancelled) return;
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
        reportError(std::to_string(error.number()), error.description(), "File save error");
    }
}

void mnuFile_SaveAs_Click() {
    cmdSaveAs();
    mainForm().activeForm().Text1.SetFocus();
}

void mnuFile_SaveAll_Click() {
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
    } catch (const Error& error) {
        if (error.number() != error_number::dialogCancelled) failed = true;
    } catch (const std::exception&) {
        failed = true;
    }
    if (failed) reportSomeNotSaved();
    showSavedStateInFront();
}

}  // namespace kelvor
