// SPDX-License-Identifier: GPL-3.0-or-later
// The page of the virtual directories.
#include <cstddef>
#include <optional>
#include <string>

#include "base/error.h"
#include "core/virtual_directories.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "preview/preview.h"
#include "workbench/entries.h"
#include "workbench/preferences.h"

namespace kelvor {

namespace {

constexpr int directoryColumn = 0;
constexpr int addressColumn = 1;

/// In twips; the list widens both columns alike.
constexpr int columnWidth = 1500;

struct Mapping {
    std::string directory;  ///< with a separator at its end
    std::string address;    ///< with a "/" at its end; "" when the user gave none
};

/// What the user wants to be mapped; nothing without a directory.
std::optional<Mapping> askForMapping() {
    const std::string directory =
        browseForFolder("Select the file system directory for this virtual directory mapping.");
    if (directory.empty()) return {};
    const std::string address =
        platform().dialogs.input({.prompt = "Enter the URL for this virtual directory mapping.", .title = "Kelvor"});
    return Mapping{joinPath(directory, ""), address.empty() || address.ends_with('/') ? address : address + "/"};
}

/// False when the directory is mapped already; the user has been told.
bool addMapping(const Mapping& mapping) {
    try {
        vdirManager().VirtualDirectories().Add(mapping.directory, mapping.address, mapping.directory);
        return true;
    } catch (const Error& error) {
        if (error.number() != error_number::duplicateKey) throw;
        beepAndShow({.text = "You already have a mapping listed for " + mapping.directory +
                             ".\r\nThis duplicate mapping will be ignored.",
                     .title = "Duplicate Mapping",
                     .icon = MessageIcon::exclamation});
        return false;
    }
}

/// The one of a row may be gone already: an edit that was refused has left the row.
void removeMapping(const std::string& directory) {
    VirtualDirectories& mappings = vdirManager().VirtualDirectories();
    for (std::size_t index = 0; index < mappings.Count(); ++index)
        if (mappings.Item(index)->FileSystemPath() == directory) return mappings.Remove(index);
}

const Message reallyRemove = {.text = "Are you sure that you want to delete this virtual directory mapping?",
                              .title = "Delete Confirmation",
                              .icon = MessageIcon::question,
                              .buttons = MessageButtons::yesNoCancel};

}  // namespace

void Preferences::setupVDirs() {
    for (const int column : {directoryColumn, addressColumn}) lstVDir.setColumnWidth(column, columnWidth);
    for (const auto& mapping : vdirManager().VirtualDirectories().items())
        lstVDir.addRow({mapping->FileSystemPath(), mapping->URL()});
}

void Preferences::CheckVDirButtons() {
    setAllEnabled({&cmdEditVDir, &cmdDelVDir}, lstVDir.count() > 0);
    selectSome(lstVDir);
}

void Preferences::chkVirtual_Click() {
    setEnforceVDirs(chkVirtual.value());
}

void Preferences::cmdAddVDir_Click() {
    if (const auto mapping = askForMapping()) {
        if (!mapping->address.empty()) {
            if (!addMapping(*mapping)) return;
            lstVDir.addRow({mapping->directory, mapping->address});
        }
        // Also what an edit that was refused has taken away is seen now.
        vdirManager().ReSyncVDirs();
    }
    CheckVDirButtons();
}

void Preferences::cmdEditVDir_Click() {
    const int row = lstVDir.selectedRow();
    if (row < 0) return;
    const auto mapping = askForMapping();
    if (!mapping || mapping->address.empty()) return;
    removeMapping(lstVDir.cell(row, directoryColumn));
    if (!addMapping(*mapping)) return;
    lstVDir.setCell(row, directoryColumn, mapping->directory);
    lstVDir.setCell(row, addressColumn, mapping->address);
    vdirManager().ReSyncVDirs();
}

void Preferences::cmdDelVDir_Click() {
    const int row = lstVDir.selectedRow();
    if (row < 0 || beepAndShow(reallyRemove) != Answer::yes) return;
    removeMapping(lstVDir.cell(row, directoryColumn));
    lstVDir.removeRow(row);
    vdirManager().ReSyncVDirs();
    CheckVDirButtons();
}

}  // namespace kelvor
