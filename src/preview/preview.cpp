// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>

#include "base/error.h"
#include "base/outcome.h"
#include "controls/menu_item.h"
#include "core/document.h"
#include "core/document_manager.h"
#include "core/file_save.h"
#include "core/virtual_directories.h"
#include "frame/edit_window.h"
#include "frame/enablement.h"
#include "frame/main_frame.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/programs.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

MenuItem& browserRow(std::size_t index) {
    return mainForm().menu("mnuRClick_Preview_altb_" + std::to_string(index));
}

const Message saveNow = {.text = "File must be saved before a preview can be executed.\r\nSave file now?",
                         .title = "Preview requires save.",
                         .icon = MessageIcon::question,
                         .buttons = MessageButtons::yesNo};

/// The step before every preview, which shows the file and not the text.
/// @return false when the user refused or the save failed. A cancelled Save As goes on with the document as it is
bool savedForPreview(CDocument& document) {
    if (!document.IsUntitled() && document.IsSaved()) return true;
    if (beepAndShow(saveNow) != Answer::yes) return false;
    if (document.IsUntitled()) {
        cmdSaveAs();
        return true;
    }
    const Outcome saved = document.SaveDoc(document.LongFileName());
    if (saved) {
        document.showSavedState();
    } else if (!document.saveDeclined()) {
        reportSaveError(document.LongFileName(), saved.cause());
    }
    return bool(saved);
}

Error tooManyBrowsers(std::size_t count) {
    return {error_number::subscriptOutOfRange, "The preview menu has room for " + std::to_string(browserCapacity) +
                                                   " browsers, and " + std::to_string(count) +
                                                   " are listed in the preferences. The first " +
                                                   std::to_string(browserCapacity) + " are shown."};
}

const Message noBrowser = {.text =
                               "The executable you have provided for this option can not be found.  Please check your "
                               "preferences.",
                           .title = "Program executable not found",
                           .icon = MessageIcon::critical};

void tellNoFile(const std::string& name) {
    beepAndShow({.text = "[" + name + "] has no file yet, so there is nothing that a browser could show.",
                 .title = "Preview requires save.",
                 .icon = MessageIcon::exclamation});
}

}  // namespace

void InLinePreview(CDocument& document) {
    if (savedForPreview(document)) document.ChangeMode(view_mode::preview);
}

void previewDefault() {
    CDocument& document = documentManager().currentDocument();
    if (!savedForPreview(document)) return;
    if (document.IsUntitled()) return tellNoFile(document.ShortFileName());
    openInDefaultBrowser(document.LongFileName());
}

void previewAlternate(const std::string& label) {
    CDocument& document = documentManager().currentDocument();
    if (!savedForPreview(document)) return;
    auto words = commandWords(user::browsers.value(label));
    if (words.empty()) {
        beepAndShow(noBrowser);
        return;
    }
    words.push_back(std::filesystem::absolute(document.LongFileName()).string());
    try {
        platform().shell.start(words, {});
    } catch (const Error& error) {
        if (error.number() == error_number::fileNotFound) beepAndShow(noBrowser);
    }
}

void setUpBrowsers() {
    for (std::size_t index = 0; index < browserCapacity; ++index) {
        browserRow(index).setCaption("");
        browserRow(index).setVisible(false);
    }
    const auto stored = user::browsers.all();
    if (!stored) return;
    const std::size_t shown = std::min(stored->size(), browserCapacity);
    for (std::size_t index = 0; index < shown; ++index) {
        browserRow(index).setCaption((*stored)[index].key);
        browserRow(index).setVisible(true);
    }
    if (stored->size() > shown) throw tooManyBrowsers(stored->size());
}

void ChangeViewMode(int mode) {
    CDocument& document = documentManager().currentDocument();
    if (mode == view_mode::source) {
        document.ChangeMode(view_mode::source);
        ControlFunctionForMode(view_mode::source);
    } else if (mode == view_mode::preview) {
        InLinePreview(document);
        const bool shown = document.ViewMode() == view_mode::preview;
        ControlFunctionForMode(shown ? view_mode::preview : view_mode::source);
    }
}

void setEnforceVDirs(bool enforce) {
    user::mappedAddresses.store(enforce ? "1" : "0");
    mainForm().Toolbar4.setValue("VDir", enforce);
    mainForm().Toolbar4.setValue("NoVDir", !enforce);
    vdirManager().setEnforceVDirs(enforce);
}

}  // namespace kelvor
