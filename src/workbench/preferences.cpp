// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/preferences.h"

#include <array>
#include <string>

#include "base/event.h"
#include "base/outcome.h"
#include "core/document.h"
#include "core/document_manager.h"
#include "core/virtual_directories.h"
#include "editing/editor_colors.h"
#include "files/filter_rows.h"
#include "files/places.h"
#include "frame/color_dialog.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "platform/platform.h"
#include "preview/preview.h"
#include "support/html_help.h"
#include "support/user_settings.h"
#include "workbench/entries.h"
#include "workbench/quick_file.h"

namespace kelvor {

namespace {

enum Page { generalPage, stringsPage, browsersPage, mappingsPage };

struct SwitchRow {
    const char* caption = "";
    UserSetting setting;
    bool standard = false;
};

/// The rows of the list of switches.
constexpr SwitchRow switches[] = {
    {"Always use lowercase filenames when building filenames.", user::lowerCaseLinks, false},
    {"Replace \\ with / in filename statements.", user::slashesInLinks, false},
    {"Open new untitled file at startup.", user::newFileAtStart, true},
    {"Use relative path names whenever possible", user::relativeLinks, true},
    {"Pre-fill META AUTHOR with username", user::fillsInAuthor, false},
    {"Pre-fill META GENERATOR with Kelvor information", user::fillsInProgram, true},
    {"Start program with Quick File enabled.", user::quickFile, true},
    {"Start program with Document Assistant enabled.", user::documentAssistant, true},
};

/// The subjects of the help menu, in the order of their pages.
constexpr const char* helpSubjects[] = {"Always use lower case filenames when building filenames",
                                        "Replace \\ with / in filename statements",
                                        "Open new untitled file at startup",
                                        "Use relative filenames whenever possible",
                                        "Default filter",
                                        "Default script language",
                                        "Username",
                                        "Initital directory",
                                        "Prefilling the meta generator field",
                                        "Prefilling the meta author field",
                                        "Start program with Quick File enabled",
                                        "UserStrings",
                                        "Browsers",
                                        "Virtual Directories"};

/// The values of the script languages, in the order of their buttons.
constexpr std::array scriptLanguages = {"JS", "VBS"};

/// -1 when none was chosen.
int GetColorCode() {
    return chooseColor().value_or(-1);
}

void writeMappings() {
    const CVirtualDirManager& manager = vdirManager();
    if (const Outcome written = manager.WriteVDirs(); !written) manager.WriteVDirsFailed(written.cause());
}

void colorDocuments() {
    const ColorsChanging scope;
    for (const auto& document : documentManager().MyDocuments().items()) {
        CRichTextBox& text = document->objKVRichTextBox();
        text.setBackColor(editorBackColor);
        text.setTextColor(editorForeColor);
    }
}

/// Each document whose selection moves writes the status bar, which is the front one's.
void showFrontDocument() {
    CDocumentManager& manager = documentManager();
    if (manager.count() == 0) return;
    CDocument& front = manager.currentDocument();
    manager.UpdateChars(front);
    manager.UpdateLineStats(front);
    front.showSavedState();
}

}  // namespace

Preferences::Preferences() : ToolDialog("preferences", "Kelvor Options") {
    for (const char* subject : helpSubjects) {
        const std::string index = std::to_string(mnuPref_help.size());
        mnuPref_help.push_back(std::make_unique<MenuItem>(*this, "mnuPref_help_" + index, &mnuPref_helpmen, subject));
        mnuPref_help.back()->clicked.connect([this, index] { showHelpPage(name(), index); });
    }
    for (MenuItem* popup : {&mnuPref_rClick, &mnuPref2, &mnuPref_helpmen}) popup->makePopup();
    lblInitDir.setToolTip("Double click to browse for folder");
    selectThemselves(txtUserName);
}

void Preferences::Form_Load() {
    setActiveFormName(name());
    fillRegItems();
    setUpValues();
    listEntries(ListView1, user::strings);
    listEntries(ListView2, user::browsers);
    // A row that the list does not have is told, and the user can choose another one.
    guarded([this] { fill_default_filter(); });
    setupVDirs();
    SetExampleColors();
}

void Preferences::Form_Unload() {
    setActiveFormName(std::string(documentForm));
}

void Preferences::SSTab1_Click() {
    switch (SSTab1.tab()) {
        case stringsPage:
            return enterEntries(ListView1, {&cmdEdit, &cmdDelete});
        case browsersPage:
            enterEntries(ListView2, {&cmdEditb, &cmdDelb});
            return cmdAddb.setEnabled(ListView2.count() != browserCapacity);
        case mappingsPage:
            return CheckVDirButtons();
    }
}

void Preferences::fillRegItems() {
    for (const SwitchRow& row : switches) List1.addRow(row.caption);
}

void Preferences::setUpValues() {
    for (int row = 0; const SwitchRow& each : switches) {
        const std::string value = each.setting.text(settingText(each.standard));
        if (value == settingText(true) || value == settingText(false)) List1.setTicked(row, value == settingText(true));
        ++row;
    }
    const std::string language = user::scriptLanguage.text("JS");
    for (int button = 0; const char* each : scriptLanguages) {
        if (language == each) optSL.select(button);
        ++button;
    }
    chkVirtual.setValue(user::mappedAddresses.number(0) == 1);
    txtUserName.setText(user::authorName.text());
    lblInitDir.setCaption(user::startDirectory.text(programDirectory()));
}

void Preferences::fill_default_filter() {
    for (const FilterRow& row : filterRows(documentFilter)) cboDFilter.addItem(row.name);
    cboDFilter.setListIndex(0);
    cboDFilter.setListIndex(user::fileFilter.number(0));
}

void Preferences::SetExampleColors() {
    if (editorBackColor == -1) return;
    lblBGColorExample.setBackColor(editorBackColor);
    lblBGColorExample.setForeColor(editorForeColor);
}

void Preferences::lblInitDir_DblClick() {
    const std::string directory = browseForFolder("Select your preferred startup directory.");
    if (!directory.empty()) lblInitDir.setCaption(directory);
}

void Preferences::cmdBGColor_Click() {
    const int color = GetColorCode();
    if (color != -1) lblBGColorExample.setBackColor(color);
}

void Preferences::cmdTextColor_Click() {
    const int color = GetColorCode();
    if (color != -1) lblBGColorExample.setForeColor(color);
}

void Preferences::storeSwitches() const {
    for (int row = 0; const SwitchRow& each : switches) each.setting.store(settingText(List1.isTicked(row++)));
}

void Preferences::storeScriptLanguage() const {
    const int selected = optSL.selected();
    if (selected >= 0) user::scriptLanguage.store(scriptLanguages.at(static_cast<std::size_t>(selected)));
}

void Preferences::applyColors() const {
    const int back = lblBGColorExample.backColor();
    const int text = lblBGColorExample.foreColor();
    user::editorBackColor.store(std::to_string(back));
    user::editorForeColor.store(std::to_string(text));
    editorBackColor = back;
    editorForeColor = text;
    colorDocuments();
    showFrontDocument();
}

void Preferences::cmdApply_Click() {
    storeSwitches();
    storeScriptLanguage();
    setEnforceVDirs(chkVirtual.value());
    writeMappings();
    user::authorName.store(txtUserName.text());
    user::startDirectory.store(lblInitDir.caption());
    applyColors();
    lastDir = lblInitDir.caption();
    SetQuickView();
    user::fileFilter.store(std::to_string(cboDFilter.listIndex()));
}

void Preferences::Command1_Click() {
    platform().windows.popupMenu(mnuPref_helpmen, &Command1);
}

void mnuFile_Pref_Click() {
    openToolForm(toolForm<Preferences>(), ShowMode::modal);
}

}  // namespace kelvor
