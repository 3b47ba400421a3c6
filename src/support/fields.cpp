// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/fields.h"

#include "controls/text_field.h"
#include "html/no_value.h"
#include "platform/platform.h"
#include "support/messages.h"

namespace kelvor {

void selectAllOf(TextField& field) {
    field.setSelStart(0);
    field.setSelLength(static_cast<int>(field.text().size()));
}

void selectAllOf(EditControl& control) {
    control.setSelStart(0);
    control.setSelLength(control.textLength());
}

bool textBoxEmpty(const TextBox& textBox) {
    return textBox.text().empty();
}

bool rejectIllegalChar(const TextBox& textBox, const std::string& character) {
    if (textBox.text().find(character) == std::string::npos) return false;
    showCritical("Illegal Character Found!",
                 "You have used the " + character +
                     " character.  This is an illegal character, you must remove it before this operation can be "
                     "completed.");
    return true;
}

void fillFontCombo(ComboBox& combo, bool useNa) {
    for (const std::string& font : fontList) combo.addItem(font);
    combo.addItem(useNa ? std::string(notAvailable) : "(Font Name)");
    combo.setListIndex(0);
}

void fillSizeCombo(ComboBox& combo, bool useNa) {
    constexpr int largest = 7;
    for (int size = -largest; size < 0; ++size) combo.addItem(std::to_string(size));
    combo.addItem(useNa ? std::string(notAvailable) : "(Size)");
    for (int size = 1; size <= largest; ++size) combo.addItem("+" + std::to_string(size));
    combo.setListIndex(noSizeRow);
}

void loadFontList() {
    const auto fonts = platform().screen.fonts();
    if (!fonts.empty()) fontList.insert(fontList.end(), fonts.begin() + 1, fonts.end());
}

void resetFontList() {
    fontList.clear();
}

}  // namespace kelvor
