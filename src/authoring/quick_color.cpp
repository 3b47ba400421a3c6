// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/quick_color.h"

#include <string>

#include "editing/insertion.h"
#include "frame/color_dialog.h"
#include "html/colors.h"

namespace kelvor {

namespace {

constexpr int colorAttribute = 1;
constexpr int backgroundAttribute = 2;
constexpr int fontTag = 3;

}  // namespace

void doColor(int mode) {
    const auto color = chooseColor();
    if (!color) return;
    const std::string hex = colorToHtml(*color);
    if (mode == colorAttribute) insertAtSelection("COLOR=\"#" + hex + "\"", "");
    if (mode == backgroundAttribute) insertAtSelection("BGCOLOR=\"#" + hex + "\"", "");
    if (mode == fontTag) insertAtSelection("<FONT COLOR=\"#" + hex + "\">", "</FONT>");
    activeText().SetFocus();
}

void mnuFormat_QuickColor_coloreq_Click() {
    doColor(colorAttribute);
}

void mnuFormat_QuickColor_bgcolor_Click() {
    doColor(backgroundAttribute);
}

void mnuFormat_QuickColor_fcolor_Click() {
    doColor(fontTag);
}

void mnu_RClick_QuickColor_Click() {
    if (const auto color = chooseColor()) activeText().setSelText(colorToHtml(*color));
}

}  // namespace kelvor
