// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/scratch_pad.h"

#include <string>

#include "base/error.h"
#include "base/event.h"
#include "controls/common_dialog.h"
#include "controls/control.h"
#include "controls/mouse_press.h"
#include "core/journaled_save.h"
#include "editing/insertion.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

const Message saveBeforeClosing = {
    .text = "The scratch pad contents have changed. Would you like to save before closing?",
    .title = "Text Changed",
    .icon = MessageIcon::question,
    .buttons = MessageButtons::yesNoCancel};

/// The file that the user names for the pad's text; "" when cancelled. Its directory is then the last one used.
std::string askForFile() {
    try {
        std::string path = pickSavePath("", dialog_flag::overwritePrompt | dialog_flag::hideReadOnly);
        lastDir = directoryPart(path);
        return path;
    } catch (const Error& error) {
        if (error.number() != error_number::dialogCancelled) throw;
        return {};
    }
}

}  // namespace

ScratchPad::ScratchPad() : ToolDialog("frmScratchPad", "Scratch Pad") {
    spRTF1.mouseDown.connect([this](const MousePress& press) {
        if (press.button == MousePress::right) showMenu(nullptr);
    });
    mnusp.makePopup();
}

void ScratchPad::Form_Load() {
    keys_.setHookedRTB(&spRTF1);
    spRTF1.SetFocus();
    // The program's end asks too, behind the documents, while Cancel can still stop it.
    frameCloses_ = mainForm().childrenAgreed.connectScoped([this](bool& cancel) { Form_QueryUnload(cancel); });
}

void ScratchPad::Form_QueryUnload(bool& cancel) {
    if (!textChanged_) return;
    const Answer answer = platform().dialogs.message(saveBeforeClosing);
    cancel = true;
    if (answer == Answer::cancel) return;
    // A save that fails ends here and keeps the pad.
    if (answer == Answer::yes) mnusp_save_Click();
    textChanged_ = cancel = false;
}

void ScratchPad::Form_Unload() {
    keys_.setHookedRTB(nullptr);
    focusDocument();
}

void ScratchPad::checkSave() {
    mnusp_save.setEnabled(spRTF1.textLength() > 0);
}

/// @param below  as popupMenu takes it
void ScratchPad::showMenu(const Control* below) {
    checkSave();
    platform().windows.popupMenu(mnusp, below);
}

void ScratchPad::mnusp_selAll_Click() {
    spRTF1.selectAll();
    spRTF1.SetFocus();
}

void ScratchPad::mnusp_save_Click() {
    const std::string path = askForFile();
    if (path.empty()) return;
    journaledSave(path, spRTF1.textView());
    textChanged_ = false;
}

void ScratchPad::append(std::string_view text) {
    spRTF1.setSelStart(spRTF1.textLength());
    spRTF1.setSelText("\r\n\r\n" + std::string(text));
}

void showScratchPad() {
    openToolForm(toolForm<ScratchPad>(), ShowMode::floating);
}

void mnuRClick_SendSP_Click() {
    // A pad whose load failed is gone again, and ends with this scope.
    const EventScope scope;
    ScratchPad& pad = toolForm<ScratchPad>();
    showScratchPad();
    if (pad.isLoaded()) pad.append(activeText().selText());
}

}  // namespace kelvor
