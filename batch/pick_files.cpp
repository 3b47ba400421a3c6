#include "batch/pick_files.h"

#include "authoring/common.h"
#include "core/file_filter.h"
#include "core/frame.h"
#include "platform/paths.h"

namespace kelvor {

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
