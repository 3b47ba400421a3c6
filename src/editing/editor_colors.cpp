// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/editor_colors.h"

namespace kelvor {

void resetEditorColors() {
    colorsChanging = false;
    editorBackColor = -1;
    editorForeColor = -1;
}

ColorsChanging::ColorsChanging() {
    colorsChanging = true;
}

ColorsChanging::~ColorsChanging() {
    colorsChanging = false;
}

}  // namespace kelvor
