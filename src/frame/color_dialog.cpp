// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/color_dialog.h"

#include "controls/common_dialog.h"
#include "frame/main_frame.h"
#include "html/colors.h"

namespace kelvor {

std::optional<int> chooseColor(const std::string& title) {
    CommonDialog& dialog = mainForm().CommonD1;
    dialog.flags = dialog_flag::fullOpen;
    dialog.dialogTitle = title;
    if (!answered(dialog, &CommonDialog::ShowColor)) return std::nullopt;
    return dialog.color;
}

std::optional<int> chooseColorFor(TextBox& field, const std::string& title) {
    if (field.backColor() >= 0) mainForm().CommonD1.color = field.backColor();
    const auto color = chooseColor(title);
    if (!color) return std::nullopt;
    field.setText("#" + colorToHtml(*color));
    field.setBackColor(*color);
    return color;
}

}  // namespace kelvor
