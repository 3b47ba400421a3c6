// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/startup.h"

#include <chrono>
#include <optional>

#include "assistants/template_holder.h"
#include "authoring/insert_lists.h"
#include "batch/batch_directory.h"
#include "controls/tab_strip.h"
#include "core/document_manager.h"
#include "core/file_open.h"
#include "core/journal.h"
#include "core/recent_files.h"
#include "core/virtual_directories.h"
#include "editing/editor_colors.h"
#include "files/places.h"
#include "frame/enablement.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "html/special_chars.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "preview/preview.h"
#include "program/command_table.h"
#include "program/shared_state.h"
#include "program/single_instance.h"
#include "support/fields.h"
#include "support/report_error.h"
#include "support/user_settings.h"
#include "workbench/document_assistant.h"
#include "workbench/quick_file.h"
#include "workbench/recovered_texts.h"

namespace kelvor {

namespace {

const Message alreadyRunning = {
    .text = "Kelvor is already running.", .title = "Kelvor", .icon = MessageIcon::exclamation};

std::optional<SingleInstance> instanceLock;

void removePlaceholderTab() {
    TabStrip& tabs = mainForm().TabStrip1;
    if (tabs.count() == 1) tabs.remove(tabs.tabs().front().key);
}

void resetCounters() {
    mainForm().untitledCount = 1;
    mainForm().fileCount = 0;
}

/// The manager of the mappings maps the open documents anew when the table changes.
void startVDirs() {
    initVDirs();
    vdirManager().setMappedFiles([] {
        std::vector<MappedFile*> files;
        for (const auto& document : documentManager().MyDocuments().items()) files.push_back(document.get());
        return files;
    });
}

void readUserSettings() {
    if (user::lowerCaseLinks.text().empty()) firstTimeUser();
    const std::string directory = user::startDirectory.text();
    lastDir = directory.empty() ? programDirectory() : directory;
    showQuickFile(user::quickFile.isTrue("True"));
    ToggleDocumentAssistant(user::documentAssistant.boolean("True"));
    setEnforceVDirs(user::mappedAddresses.text("0") == "1");
    editorBackColor = user::editorBackColor.number(-1);
    editorForeColor = user::editorForeColor.number(-1);
}

/// Too many browsers are told, and the start goes on.
void listBrowsers() {
    guarded(setUpBrowsers);
}

/// What is done bit by bit while no event waits.
void startIdleWork() {
    platform().screen.setIdleWork([] {
        const bool isMore = workOnJournals(std::chrono::steady_clock::now());
        return removeSupersededFiles() || isMore;
    });
}

/// The start in its order. An error ends it there, and what was done stays.
constexpr void (*steps[])() = {removePlaceholderTab,
                               createDocumentManager,
                               startIdleWork,
                               initSpecialChars,
                               loadFontList,
                               resetCounters,
                               getRegistered_OpenFiles,
                               loadComboBoxes,
                               startVDirs,
                               grabReg,
                               setUpUStrings,
                               listBrowsers,
                               checkNewFile,
                               initQuickView};

/// The frame's end.
void MDIForm1_Unload() {
    platform().screen.setIdleWork(nullptr);
    resetSharedState();
    instanceLock.reset();
}

/// Whether this copy of the program is the only one of its user; when not, the user is told.
bool isOnlyInstance() {
    instanceLock.emplace();
    if (instanceLock->isFirst()) return true;
    beepAndShow(alreadyRunning);
    return false;
}

}  // namespace

void firstTimeUser() {
    beepAndShow({.text = "This is your first time using Kelvor.  Take a minute to setup your preferences once the "
                         "program has loaded.",
                 .title = "First time user",
                 .icon = MessageIcon::information});
}

void grabReg() {
    guarded(readUserSettings);
}

void checkNewFile() {
    if (!user::newFileAtStart.isTrue("False")) return disableMenuItems();
    if (fileOpen(templateFile("Default Template"), true)) mainForm().increaseUntitledCount();
}

bool startKelvor() {
    installErrorReporting();
    installLoadErrorReporting();
    if (!isOnlyInstance()) return false;
    MDIForm1& frame = mainForm();
    frame.load();
    frame.unloaded.connect(MDIForm1_Unload);
    connectCommands();
    guarded([] {
        for (const auto step : steps) step();
    });
    platform().windows.showModeless(frame, false);
    guarded(offerLeftTexts);
    return true;
}

}  // namespace kelvor
