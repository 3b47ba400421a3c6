// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/file_dialogs.h"

#include <utility>

#include "controls/common_dialog.h"
#include "files/paths.h"
#include "frame/main_frame.h"
#include "platform/platform.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

constexpr int oneExistingFile = dialog_flag::hideReadOnly | dialog_flag::fileMustExist;

/// The frame's file dialog, filled in but for the name.
/// @param row  of the filter, from 0
CommonDialog& preparedDialog(const std::string& title, int flags, std::string filter, int row) {
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.initDir = lastDir;
    dialog.dialogTitle = title;
    dialog.filter = std::move(filter);
    dialog.filterIndex = row + 1;
    dialog.flags = flags;
    return dialog;
}

CommonDialog& documentDialog(const std::string& title, int flags) {
    return preparedDialog(title, flags, std::string(documentFilter), user::fileFilter.number(0));
}

std::vector<std::string> pickExisting(CommonDialog& dialog) {
    dialog.fileName.clear();
    if (!answered(dialog, &CommonDialog::ShowOpen)) return {};
    lastDir = directoryPart(dialog.fileName);
    return dialog.fileNames;
}

std::optional<std::string> firstOf(std::vector<std::string> paths) {
    return paths.empty() ? std::nullopt : std::optional(std::move(paths.front()));
}

/// The rows of the kinds that browsers learnt later, those of them that can be shown here.
std::string laterPictureRows() {
    constexpr std::pair<std::string_view, std::string_view> kinds[] = {
        {"png", "PNG"}, {"webp", "WebP"}, {"svg", "SVG"}};
    std::string rows;
    for (const auto& [suffix, name] : kinds) {
        if (!platform().screen.showsPictures(suffix)) continue;
        const std::string pattern = "*." + std::string(suffix);
        rows.append("|").append(name).append(" Files (").append(pattern).append(")|").append(pattern);
    }
    return rows;
}

}  // namespace

void resetLastDir() {
    lastDir.clear();
}

std::string browseForFolder(const std::string& title) {
    return platform().dialogs.folder(title, lastDir).value_or("");
}

std::vector<std::string> pickFiles(const std::string& title) {
    using namespace dialog_flag;
    return pickExisting(documentDialog(title, explorer | fileMustExist | allowMultiple | hideReadOnly));
}

std::optional<std::string> pickFile(const std::string& title) {
    return firstOf(pickExisting(documentDialog(title, oneExistingFile)));
}

std::optional<std::string> pickPicture() {
    return firstOf(pickExisting(
        preparedDialog("Select and image file", oneExistingFile, std::string(pictureFilter) + laterPictureRows(), 0)));
}

std::string pickSavePath(const std::string& offered, int flags) {
    CommonDialog& dialog = documentDialog("Save HTML file as", flags);
    dialog.fileName = offered;
    dialog.ShowSave();
    return dialog.fileName;
}

}  // namespace kelvor
