#include "core/file_filter.h"

#include "authoring/common.h"
#include "core/frame.h"
#include "support/settings.h"

namespace kelvor {

int preferredFilterIndex() {
    return settingNumber(GetSetting(application, "User", "DFilter", "0")) + 1;
}

void prepareSaveDialog(int flags) {
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.initDir = lastDir;
    dialog.dialogTitle = "Save HTML file as";
    dialog.filter = fileFilter;
    dialog.filterIndex = preferredFilterIndex();
    dialog.flags = flags;
}

}  // namespace kelvor
