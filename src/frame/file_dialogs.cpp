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
CommonDialog& preparedDialog(const std::string& title, int flags) {
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.initDir = lastDir;
    dialog.dialogTitle = title;
    dialog.filter = documentFilter;
    dialog.filterIndex = user::fileFilter.number(0) + 1;
    dialog.flags = flags;
    return dialog;
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
    return pickExisting(preparedDialog(title, explorer | fileMustExist | allowMultiple | hideReadOnly));
}

std::optional<std::string> pickFile(const std::string& title) {
    return firstOf(pickExisting(preparedDialog(title, oneExistingFile)));
}

std::optional<std::string> pickPicture() {
    CommonDialog& dialog = preparedDialog("Select and image file", oneExistingFile);
    dialog.filter = std::string(pictureFilter) + laterPictureRows();
    dialog.filterIndex = 1;
    return firstOf(pickExisting(dialog));
}

std::string pickSavePath(const std::string& offered, int flags) {
    CommonDialog& dialog = preparedDialog("Save HTML file as", flags);
    dialog.fileName = offered;
    dialog.ShowSave();
    return dialog.fileName;
}

}  // namespace kelvor
