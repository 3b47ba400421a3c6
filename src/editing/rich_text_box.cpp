// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/rich_text_box.h"

#include "base/error.h"
#include "controls/edit_control.h"
#include "editing/editor_colors.h"
#include "text/code_points.h"

namespace kelvor {

EditControl& CRichTextBox::hooked() const {
    if (!hooked_) throw Error(error_number::objectNotSet, "No edit control is hooked");
    return *hooked_;
}

void CRichTextBox::RefreshInformation() {
    const EditControl& control = hooked();
    const int caret = control.selStart();
    const int line = control.GetLineFromChar(caret);
    lineNumber_ = line + 1;
    characterPosition_ = control.characterCount(control.lineIndex(line), caret) + 1;
}

void CRichTextBox::setTextColor(int color) {
    textColor_ = color;
    EditControl& control = hooked();
    control.setSelStart(0);
    control.setSelLength(control.textLength());
    control.setSelColor(editorForeColor);
    control.setSelLength(0);
}

void CRichTextBox::setBackColor(int color) {
    backColor_ = color;
    hooked().setBackColor(color);
}

}  // namespace kelvor
