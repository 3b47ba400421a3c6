// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/combo_box.h"
#include "controls/edit_control.h"
#include "controls/text_box.h"
#include "html/colors.h"

namespace kelvor {

/// The screen's font names, filled once at start by loadFontList().
inline std::vector<std::string> fontList;

/// The row of fillSizeCombo that is no size.
inline constexpr int noSizeRow = 7;

void selectAllOf(TextField& field);

void selectAllOf(EditControl& control);

bool textBoxEmpty(const TextBox& textBox);

/// Whether the text has `character`; the user has been told then.
bool rejectIllegalChar(const TextBox& textBox, const std::string& character);

/// Fills a list with the screen's fonts and, behind them, "(n/a)" or "(Font Name)"; shows its first row.
void fillFontCombo(ComboBox& combo, bool useNa);

/// Fills a list with the sizes -7 to +7 and, in their middle, "(n/a)" or "(Size)", which it shows.
void fillSizeCombo(ComboBox& combo, bool useNa);

/// Appends all fonts of the screen but the first one to `fontList`.
void loadFontList();
/// As before the start: none.
void resetFontList();

/// Paints a control in the colour of sampleColor.
template <typename Sample>
void showColorSample(std::string_view text, Sample& control) {
    control.setBackColor(sampleColor(text));
}

}  // namespace kelvor
