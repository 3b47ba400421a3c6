// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/common_dialog.h"

#include "base/error.h"
#include "files/paths.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

Error cancelled() {
    return {error_number::dialogCancelled, "Cancel was selected."};
}

}  // namespace

FileRequest CommonDialog::request() const {
    return {.title = dialogTitle,
            .directory = initDir,
            .filter = filter,
            .filterIndex = filterIndex,
            .fileName = fileName,
            .multiple = (flags & dialog_flag::allowMultiple) != 0,
            .overwritePrompt = (flags & dialog_flag::overwritePrompt) != 0};
}

void CommonDialog::take(std::vector<std::string> paths) {
    if (paths.empty()) throw cancelled();
    fileNames = std::move(paths);
    fileName = fileNames.front();
    fileTitle = fileNamePart(fileName);
}

void CommonDialog::ShowOpen() {
    take(platform().dialogs.openFiles(request()));
}

void CommonDialog::ShowSave() {
    const auto path = platform().dialogs.saveFile(request());
    if (!path) throw cancelled();
    take({*path});
}

void CommonDialog::ShowColor() {
    const auto chosen = platform().dialogs.color(dialogTitle, color);
    if (!chosen) throw cancelled();
    color = *chosen;
}

bool answered(CommonDialog& dialog, void (CommonDialog::*show)()) {
    try {
        (dialog.*show)();
        return true;
    } catch (const Error& error) {
        if (error.number() != error_number::dialogCancelled) throw;
        return false;
    }
}

}  // namespace kelvor
