#include "core/new_file.h"

#include "assistants/template_holder.h"
#include "authoring/common.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"

namespace kelvor {

void mnuFile_New_Click() {
    if (!listingFinds(joinPath(templateDirectory(), "*.tpl"))) {
        beepAndShow({.text = "The template directory does not exist or is empty.\r\n\r\n"
                             "To correct this problem ensure that a subdirectory called Templates exists underneath "
                             "the Kelvor program directory.  Copy an html file into the new directory and rename it "
                             "Default Template.tpl.\r\n\r\n"
                             "Re-installing Kelvor will also correct this problem",
                     .title = "Template directory missing or empty",
                     .icon = MessageIcon::critical});
        return;
    }
    openToolForm(templateHolder(), ShowMode::modal);
}

}  // namespace kelvor
