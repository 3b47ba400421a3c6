#include "core/rich_text_box.h"

#include "authoring/common.h"

namespace kelvor {

ColorsChanging::ColorsChanging() {
    colorsChanging = true;
}

ColorsChanging::~ColorsChanging() {
    colorsChanging = false;
}

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
