// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/save_over.h"

#include "base/error.h"
#include "base/event.h"
#include "controls/common_dialog.h"
#include "core/file_on_disk.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "text/shown_name.h"

namespace kelvor {

SaveOverChoice SaveOver::ask(const EditControl& text, const std::string& path) {
    text_ = &text;
    path_ = path;
    lblFile.setCaption(shownName(path));
    lblFile.setToolTip(path);
    openToolForm(*this, ShowMode::modal);
    return choice_;
}

void SaveOver::cmdOverwrite_Click() {
    choice_.act = SaveOverAct::overwrite;
    unload();
}

/// A name that is not given leads back to the question.
void SaveOver::cmdSaveAs_Click() {
    using namespace dialog_flag;
    try {
        choice_.path = pickSavePath(fileNamePart(path_), overwritePrompt | hideReadOnly | noReadOnlyReturn);
    } catch (const Error& error) {
        if (error.number() != error_number::dialogCancelled) throw;
        return;
    }
    lastDir = directoryPart(choice_.path);
    choice_.act = SaveOverAct::saveAs;
    unload();
}

void SaveOver::cmdCompare_Click() {
    compareWithDisk(*text_, path_);
}

SaveOverChoice askSaveOver(const EditControl& text, const std::string& path) {
    // The dialog ends when it unloads, and its choice is read behind that.
    const EventScope scope;
    return toolForm<SaveOver>().ask(text, path);
}

}  // namespace kelvor
