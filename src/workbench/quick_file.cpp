// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/quick_file.h"

#include <filesystem>
#include <system_error>

#include "base/error.h"
#include "base/outcome.h"
#include "controls/combo_box.h"
#include "controls/file_list.h"
#include "core/file_open.h"
#include "core/recent_files.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/volumes.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/user_settings.h"
#include "text/code_points.h"

namespace kelvor {

namespace {

constexpr const char* patterns[] = {"*.*", "*.htm", "*.asp", "*.txt", "*.vbs", "*.js", "*.cgi", "*.pl", "*.c"};

bool isNetworkPath(const std::string& path) {
    return path.starts_with("\\\\") || path.starts_with("//");
}

/// Where the lists stand before anything is asked of them.
void showCurrentDirectory() {
    MDIForm1& frame = mainForm();
    std::error_code gone;
    const std::string current = std::filesystem::current_path(gone).string();
    frame.Drive1.Refresh();
    frame.Drive1.setDrive("/");
    try {
        if (!gone) frame.Dir1.setPath(current);
    } catch (const Error&) {
        // The user did not ask for this directory, and the root is shown already.
    }
}

void openListed(const std::string& path) {
    if (const Outcome opened = fileOpen(path, false)) {
        updateOpenFileCollection();
    } else {
        reportOpenError(path, opened.cause());
    }
    mainForm().TabStrip1.Refresh();
}

}  // namespace

void initQuickView() {
    ComboBox& filter = mainForm().Combo5;
    showCurrentDirectory();
    for (const char* pattern : patterns) filter.addItem(pattern);
    const int row = user::quickFileFilter.number(0);
    filter.setListIndex(row == -1 ? 0 : row);
    SetQuickView();
}

void SetQuickView() {
    if (lastDir.empty() || isNetworkPath(lastDir)) return;
    MDIForm1& frame = mainForm();
    frame.Drive1.Refresh();
    const std::string volume = volumeOf(lastDir, frame.Drive1.list());
    if (volume.empty()) throw Error(error_number::deviceUnavailable, "Device unavailable: " + shortened(lastDir));
    frame.Drive1.setDrive(volume);
    if (lookAt(lastDir).isFolder()) frame.Dir1.setPath(lastDir);
}

void QuickOpenFiles() {
    FileList& files = mainForm().File1;
    const std::string directory = mainForm().Dir1.path();
    for (std::size_t index = 0; index < files.list().size(); ++index)
        if (files.selected(index)) openListed(joinPath(directory, files.list()[index]));
}

void Drive1_Change() {
    mainForm().Dir1.setPath(mainForm().Drive1.drive());
}

void Dir1_Change() {
    FileList& files = mainForm().File1;
    if (files.path() == mainForm().Dir1.path()) {
        files.Refresh();
    } else {
        files.setPath(mainForm().Dir1.path());
    }
}

void Combo5_Change() {
    const ComboBox& filter = mainForm().Combo5;
    mainForm().File1.setPattern(filter.text());
    user::quickFileFilter.store(std::to_string(filter.listIndex()));
}

void File1_RightPress() {
    if (mainForm().File1.list().empty()) return;
    platform().windows.popupMenu(mainForm().menu("mnuQuickOpen"));
}

void showQuickFile(bool show) {
    MDIForm1& frame = mainForm();
    frame.menu("mnuView_QuickFile").setChecked(show);
    frame.Toolbar2.setValue("quick_file", show);
    frame.CoolBar1.setVisible(show);
}

void mnuView_QuickFile_Click() {
    showQuickFile(!mainForm().menu("mnuView_QuickFile").checked());
}

}  // namespace kelvor
