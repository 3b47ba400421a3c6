// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/strip_tags.h"

#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "controls/edit_control.h"
#include "editing/insertion.h"
#include "editing/text_change.h"
#include "frame/main_frame.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

/// A text without its tags, and what the search for them has selected in it last.
struct StrippedText {
    std::string text;
    int selStart = 0;
    int selLength = 0;
    bool invalid = false;
};

int findByte(std::string_view text, char byte, int from) {
    if (from < 0) return -1;
    const auto found = text.find(byte, static_cast<std::size_t>(from));
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

/// Takes out tag by tag, by the rules at stripTags, and lets waiting events run in between; nothing without any "<".
std::optional<StrippedText> withoutTags(std::string_view text, int& startPos, int& endPos) {
    int open = findByte(text, '<', startPos);
    startPos = open;
    if (open < 0) return {};
    StrippedText stripped;
    int kept = 0;     // up to where `text` has been taken over
    int removed = 0;  // how far its positions lie behind those of the new text
    while (open >= 0) {
        pumpEvents();
        const int close = findByte(text, '>', open);
        if (close < 0 || close - removed >= endPos) {
            stripped.invalid |= close < 0 && startPos == 0;
            stripped.selStart = close < 0 ? startPos : close - removed;
            stripped.selLength = 1;
            break;
        }
        const int length = close + 1 - open;
        endPos -= length;
        stripped.selStart = startPos;
        const int next = findByte(text, '<', open + 1);
        if (next >= 0 && next < close) {
            stripped.invalid = true;
            stripped.selLength = length;
            open = findByte(text, '<', close);
        } else {
            stripped.text += text.substr(static_cast<std::size_t>(kept), static_cast<std::size_t>(open - kept));
            kept = close + 1;
            removed += length;
            stripped.selLength = 0;
            open = next;
        }
        startPos = open < 0 ? -1 : open - removed;
    }
    stripped.text += text.substr(static_cast<std::size_t>(kept));
    return stripped;
}

void putIntoDocument(const StrippedText& stripped, const std::string& before) {
    EditControl& text = activeText();
    if (text.textView() != before)
        throw Error(error_number::invalidProcedureCall, "The text was changed while its tags were being stripped");
    const EditControl::Batch batch(text);
    changeText(text, stripped.text);
    text.setSelStart(stripped.selStart);
    text.setSelLength(stripped.selLength);
}

const Message invalidTags = {.text =
                                 "This document contains one or more invalid HTML tags or\r\n"
                                 "you have not properly converted the <> characters to\r\n"
                                 "their special character codes. All tags may not be stripped.",
                             .title = "Invalid HTML",
                             .icon = MessageIcon::exclamation};

}  // namespace

void stripTags(int& startPos, int& endPos) {
    {
        const DisabledFrame disabled;
        const std::string before = activeText().text();
        const auto stripped = withoutTags(before, startPos, endPos);
        if (stripped) putIntoDocument(*stripped, before);
        if (stripped && stripped->invalid) beepAndShow(invalidTags);
    }
    activeText().SetFocus();
}

void mnuTools_StripTags_Click() {
    int startPos = 0;
    int endPos = activeText().textLength();
    stripTags(startPos, endPos);
}

void mnuEdit_StripSel_Click() {
    int startPos = activeText().selStart();
    int endPos = startPos + activeText().selLength();
    stripTags(startPos, endPos);
}

}  // namespace kelvor
