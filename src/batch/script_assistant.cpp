// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/script_assistant.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "batch/walk_filters.h"
#include "editing/insertion.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/whole_file.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "html/script_tag.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

constexpr int scriptsPage = 0;

constexpr int useTags = 1;

/// In the order of ScriptLanguage.
const std::vector<WalkFilter>& filters() {
    static const std::vector<WalkFilter> rows = {{"JavaScripts (*.js)", {"*.js"}}, {"VBScripts (*.vbs)", {"*.vbs"}}};
    return rows;
}

}  // namespace

ScriptAssistant::ScriptAssistant() : ToolDialog("frmScripts", "Script Assistant", AtEnd::focusDelivered) {
    objDirWalk_.ItemFound = [this](const std::string& sPath, const std::string& sFileName, bool& /*fCancel*/) {
        objDirWalk_ItemFound(sPath, sFileName);
    };
    lblFolder.setToolTip("Double click to browse...");
    optWhere.select(useTags);
}

void ScriptAssistant::Form_Load() {
    keys_.setHookedRTB(&rtbScript);
    lblFolder.setCaption(joinPath(programDirectory(), "Scripts"));
    loadFilters();
    loadScripts();
    lstList.SetFocus();
}

void ScriptAssistant::loadFilters() {
    fillWithFilters(cboFilter, filters());
    cboFilter.setListIndex(getDefaultSL());
}

void ScriptAssistant::loadScripts() {
    const std::string directory = joinPath(lblFolder.caption(), "");
    gather(directory);
    if (lstList.count() == 0) {
        tellNoFiles(directory);
        return Frame3.setCaption("No scripts found in: " + directoryPart(directory));
    }
    lstList.setSelectedRow(0);
    Frame3.setCaption(directory);
    SSTab1.setTab(scriptsPage);
}

void ScriptAssistant::gather(const std::string& directory) {
    const Hourglass hourglass;
    lstList.clear();
    found_.clear();
    walkForEach(objDirWalk_, filters()[static_cast<std::size_t>(cboFilter.listIndex())].patterns, directory,
                chkSubDir.value());
    lstList.addRows(std::move(found_));
}

void ScriptAssistant::objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName) {
    found_.emplace_back().cells.push_back(sPath + sFileName);
}

void ScriptAssistant::SSTab1_Click() {
    cmdInsert.setEnabled(SSTab1.tab() == scriptsPage);
}

void ScriptAssistant::lblFolder_DblClick() {
    const std::string folder = browseForFolder("Select a new script directory.");
    if (!folder.empty()) lblFolder.setCaption(folder);
}

void ScriptAssistant::lstList_DblClick() {
    const std::string path = lstList.cell(lstList.selectedRow(), 0);
    if (fileExists(path)) return rtbScript.LoadFile(path);
    reportFileMissing(path);
    lstList.removeRow(lstList.selectedRow());
}

void ScriptAssistant::cmdInsert_Click() {
    const auto language = static_cast<ScriptLanguage>(cboFilter.listIndex());
    const bool inTags = optWhere.selected() == useTags;
    replaceSelectionText(deliveryTarget(), inTags ? scriptTag(language, rtbScript.textView()) : rtbScript.text());
}

int getDefaultSL() {
    return user::scriptLanguage.text("JS") == "VBS" ? 1 : 0;
}

void mnuInsert_Scripts_Click() {
    openToolForm(toolForm<ScriptAssistant>(), ShowMode::floating);
}

}  // namespace kelvor
