// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recent_files.h"

#include "base/error.h"
#include "controls/menu_item.h"
#include "frame/main_frame.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

constexpr std::size_t capacity = 5;

}  // namespace

void updateOpenFileCollection() {
    addOpenFile(mainForm().activeForm().caption());
    recentFileMenu();
}

void addOpenFile(const std::string& path) {
    auto& files = mainForm().recentFiles;
    if (files.Count() == capacity) files.Remove(std::size_t{0});
    if (!files.contains(path)) files.Add(path, path);
    registerOpenFiles();
}

void registerOpenFiles() {
    const auto& files = mainForm().recentFiles;
    for (std::size_t index = 0; index < files.Count(); ++index)
        user::recentFiles.store("file " + std::to_string(index + 1), files.Item(index));
}

void getRegistered_OpenFiles() {
    try {
        auto stored = user::recentFiles.all();
        if (!stored) throw Error(error_number::typeMismatch, "Type mismatch");
        // A longer section is somebody else's work; the list and its menu hold five.
        if (stored->size() > capacity) stored->resize(capacity);
        for (const Setting& setting : *stored) mainForm().recentFiles.Add(setting.value, setting.value);
        recentFileMenu();
    } catch (const Error&) {
        mainForm().menu("mnuFile_Line2").setVisible(false);
    }
}

void recentFileMenu() {
    MDIForm1& frame = mainForm();
    frame.menu("mnuFile_Line2").setVisible(true);
    const std::size_t count = frame.recentFiles.Count();
    for (std::size_t index = 0; index < count; ++index) {
        MenuItem& row = frame.menu("mnuFile_RecentFiles_" + std::to_string(count - 1 - index));
        row.setCaption(frame.recentFiles.Item(index));
        row.setVisible(true);
    }
}

}  // namespace kelvor
