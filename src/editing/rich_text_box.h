// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/edit_control.h"

namespace kelvor {

/// Follows the caret of one edit control and gives its whole text one colour.
class CRichTextBox {
public:
    /// The caret's line from 1, as of the last refresh.
    int lineNumber() const { return lineNumber_; }
    /// The caret's character in its line from 1, as of the last refresh.
    int characterPosition() const { return characterPosition_; }
    /// The control to follow; it must outlive this object.
    void setHookedRichTextBox(EditControl& control) { hooked_ = &control; }

    /// Takes line and character of the caret from the control.
    void RefreshInformation();

    int textColor() const { return textColor_; }
    /// Keeps `color` and gives all text the colour of `editorForeColor`. The caret goes to the start.
    void setTextColor(int color);
    int backColor() const { return backColor_; }
    void setBackColor(int color);

private:
    EditControl& hooked() const;

    EditControl* hooked_ = nullptr;
    int lineNumber_ = 1;
    int characterPosition_ = 1;
    int textColor_ = -1;
    int backColor_ = -1;
};

}  // namespace kelvor
