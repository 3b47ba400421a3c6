#include "frame/file_dialogs.h"

#include "files/paths.h"
#include "frame/main_frame.h"
#include "platform/platform.h"
#include "support/user_settings.h"

namespace kelvor {

int preferredFilterIndex() {
    return user::fileFilter.number(0) + 1;
}

void prepareSaveDialog(int flags) {
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.initDir = lastDir;
    dialog.dialogTitle = "Save HTML file as";
    dialog.filter = fileFilter;
    dialog.filterIndex = preferredFilterIndex();
    dialog.flags = flags;
}

void resetLastDir() {
    lastDir.clear();
}

std::string browseForFolder(const std::string& title) {
    return platform().dialogs.folder(title, lastDir).value_or("");
}

std::vector<std::string> pickFiles(const std::string& title) {
    using namespace dialog_flag;
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.initDir = lastDir;
    dialog.dialogTitle = title;
    dialog.filter = fileFilter;
    dialog.filterIndex = preferredFilterIndex();
    dialog.flags = explorer | fileMustExist | allowMultiple | hideReadOnly;
    dialog.fileName.clear();
    if (!answered(dialog, &CommonDialog::ShowOpen)) return {};
    lastDir = directoryPart(dialog.fileName);
    return dialog.fileNames;
}

}  // namespace kelvor
