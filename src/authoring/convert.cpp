// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/convert.h"

#include <string>

#include "controls/edit_control.h"
#include "controls/form.h"
#include "editing/insertion.h"
#include "editing/text_change.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "html/special_chars.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/services.h"

namespace kelvor {

namespace {

constexpr int toEntity = 0;

/// A text in which one string after the other is replaced.
struct ConvertedText {
    std::string text;
    int replacements = 0;
    int caret = 0;      ///< behind the last replacement
    std::string spare;  ///< memory for the next text
};

/// Replaces every `search`, which is not empty, in its exact case.
void replaceAll(ConvertedText& converted, const std::string& search, const std::string& replacement) {
    auto& [text, replacements, caret, next] = converted;
    std::size_t copied = 0;
    next.clear();
    for (auto at = text.find(search); at != std::string::npos; at = text.find(search, copied)) {
        next.append(text, copied, at - copied).append(replacement);
        copied = at + search.size();
        caret = static_cast<int>(next.size());
        ++replacements;
    }
    if (copied > 0) text.swap(next.append(text, copied));
}

void putInto(EditControl& text, const ConvertedText& converted) {
    if (converted.replacements == 0) return;
    const EditControl::Batch batch(text);
    changeText(text, converted.text);
    text.setSelStart(converted.caret);
}

}  // namespace

Convert::Convert() : ToolDialog("convert", "Convert Special Characters") {
    for (Label* label : {&lblStart, &lblFinish}) label->setVisible(false);
    for (Label* label : {&lblStartString, &lblFinishString}) label->setUseMnemonic(true);
    optType.select(toEntity);
}

void Convert::optType_Click(int index) {
    lblStart.setCaption(index == toEntity ? "Converting special character:" : "Converting HTML value:");
    lblFinish.setCaption(index == toEntity ? "to HTML value:" : "to special character:");
}

void Convert::cmdConvert_Click() {
    const DisabledForm disabled(*this);
    const ScopedRun run(run_, LongRun::Cancel::never);
    lblStart.setVisible(true);
    lblFinish.setVisible(true);
    pumpEvents();
    const DisabledFrame disabledFrame;
    convertSpecialChars();
}

void Convert::initConvertGauge() {
    progBar1.setRange(0, static_cast<int>(specialChars.size()) - 1);
}

/// Goes row after row over a copy of the text, which then goes into the document as one undo step.
void Convert::convertSpecialChars() {
    EditControl& text = activeText();
    text.setSelLength(0);
    initConvertGauge();
    ConvertedText converted{.text = text.text()};
    const bool toEntities = optType.selected() == toEntity;
    for (const SpecialCharEntry& row : specialChars) {
        progBar1.setValue(static_cast<int>(&row - specialChars.data()));
        if (row.convertible != 1) continue;
        showPair(row, toEntities);
        pumpEvents();
        replaceAll(converted, toEntities ? row.character : row.entity, toEntities ? row.entity : row.character);
    }
    putInto(text, converted);
    progBar1.setValue(progBar1.minimum());
    platform().screen.setMousePointer(MousePointer::standard);
    platform().dialogs.message({.text = std::to_string(converted.replacements) + " replacements made.",
                                .title = "Special Character Conversion",
                                .icon = MessageIcon::information});
    text.setSelLength(0);
    unload();
}

/// An entity has one "&" more here, as a label swallows the first.
void Convert::showPair(const SpecialCharEntry& row, bool toEntities) {
    lblStartString.setCaption(toEntities ? row.character : "&" + row.entity);
    lblFinishString.setCaption(toEntities ? "&" + row.entity : row.character);
}

void mnuTools_ConvertSpec_Click() {
    openToolForm(toolForm<Convert>(), ShowMode::modal);
}

}  // namespace kelvor
