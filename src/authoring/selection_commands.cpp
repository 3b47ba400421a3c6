// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/selection_commands.h"

#include "base/error.h"
#include "controls/edit_control.h"
#include "editing/insertion.h"
#include "frame/main_frame.h"
#include "text/letter_case.h"

namespace kelvor {

namespace {

void replaceSelectionAndFocus(std::string (*change)(std::string_view)) {
    EditControl& text = activeText();
    text.setSelText(change(text.selText()));
    text.SetFocus();
}

void changeInitials(InitialCase mode) {
    EditControl& text = activeText();
    replaceSelectionText(text, applyInitialCase(text.selText(), " ", mode));
}

/// Bytes of the character that begins at `position`.
std::size_t characterLength(std::string_view text, std::size_t position) {
    std::size_t end = position + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
    return end - position;
}

}  // namespace

void mnuRClick_Format_Bold_Click() {
    insertAtSelection("<B>", "</B>");
}

void mnuRClick_Format_Italics_Click() {
    insertAtSelection("<I>", "</I>");
}

void mnuRClick_Format_Underline_Click() {
    insertAtSelection("<U>", "</U>");
    activeText().SetFocus();
}

void mnuRClick_Format_Subscript_Click() {
    insertAtSelection("<SUB>", "</SUB>");
}

void mnuRClick_Center_Click() {
    insertAtSelection("<CENTER>", "</CENTER>");
}

void mnuRClick_Right_Click() {
    insertAtSelection("<DIV ALIGN=\"right\">", "</DIV>");
    activeText().SetFocus();
}

void mnuRClick_Comment_Click() {
    insertAtSelection("<!-- ", " -->");
}

void mnu_RClick_Para_Click() {
    insertAtSelection("<P>", "</P>");
}

void mnuRClick_TextCase_Lower_Click() {
    replaceSelectionAndFocus(toLower);
}

void mnuRClick_TextCase_Upper_Click() {
    replaceSelectionAndFocus(toUpper);
}

void mnuRClick_Text_LfLet_Click() {
    changeInitials(InitialCase::lower);
}

void mnuRClick_Text_UfLet_Click() {
    changeInitials(InitialCase::upper);
}

void mnuTools_FormatText_Click() {
    mainForm().menu("mnuTools_FormatText_Case").setEnabled(activeText().selLength() != 0);
}

std::string applyInitialCase(std::string_view text, std::string_view delimiter, InitialCase mode) {
    const bool upper = mode == InitialCase::upper;
    const std::string source = upper ? toLower(text) : std::string(text);
    std::string result;
    std::size_t copied = 0;
    const auto changeAt = [&](std::size_t position) {
        const std::string_view rest = std::string_view(source).substr(position);
        const std::string_view character = rest.substr(0, characterLength(rest, 0));
        result.append(source, copied, position - copied);
        result += upper ? toUpper(character) : toLower(character);
        copied = position + character.size();
    };
    if (!source.empty()) changeAt(0);
    for (auto hit = source.find(delimiter); hit != std::string::npos; hit = source.find(delimiter, hit + 1)) {
        const std::size_t next = hit + 1;
        if (next >= source.size())
            throw Error(error_number::invalidProcedureCall, "Invalid procedure call or argument");
        if (next >= copied) changeAt(next);
    }
    return result.append(source, copied);
}

}  // namespace kelvor
