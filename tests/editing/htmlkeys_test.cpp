// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/htmlkeys.h"

#include "frame/enablement.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using HtmlKeys = SelectionTest;

TEST_F(HtmlKeys, ChordsBecomeTagsAndSomeAreSwallowed) {
    const auto pressing = [this](int keyCode, int shift) {
        KeyPress key{keyCode, shift};
        const std::string result = after([&] { text->keyDown.raise(key); }, "[x]");
        return result + (key.keyCode == keyCode ? " +" : "");
    };
    using namespace modifier;
    constexpr int ctrlShift = ctrl + modifier::shift;
    constexpr int ctrlShiftAlt = ctrlShift + alt;
    for (const auto& [keyCode, shift, result] : {
             std::tuple{int{'6'}, ctrlShift, "[<H6>x</H6>] Text1"},
             {'I', ctrlShiftAlt, "[<LI>x</LI>] Text1"},
             {key_code::space, ctrlShift, "&nbsp;[] Text1 +"},
             {'B', ctrlShift, "<BR>[] Text1 +"},
             {'B', ctrl, "[<B>x</B>] Text1 +"},
             {'I', ctrl, "[<I>x</I>] Text1"},
             {'1', ctrl, "[x]  +"},
             {'U', ctrlShift, "[x]  +"},
             {'Q', modifier::shift, "[x]  +"},
             {'I', ctrl + alt, "[x]  +"},
         })
        EXPECT_EQ(pressing(keyCode, shift), result);
    std::string ran;
    const auto note = [&ran](const char* chord) { return [&ran, chord] { ran = chord; }; };
    htmlkeys::fileChords() = {note("preview"), note("link"), note("close"), note("save")};
    for (const auto& [keyCode, chord, result] : {std::tuple{'D', "preview", "[x] "},
                                                 {'L', "link", "[x] "},
                                                 {'W', "close", "[x]  +"},
                                                 {'S', "save", "[x] Text1"}}) {
        EXPECT_EQ(pressing(keyCode, ctrlShiftAlt), result);
        EXPECT_EQ(ran, chord);
    }
    htmlkeys::fileChords() = {};
}

TEST_F(HtmlKeys, ADocumentMayCloseByAChordOfItsOwn) {
    dynamic_cast<TextBuffer&>(open("b.htm", "").SourceRTB()).press('W', modifier::ctrl + modifier::shift);
    dynamic_cast<TextBuffer&>(*text).press('1', modifier::ctrl + modifier::shift);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "<H1></H1>");
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
}

TEST_F(HtmlKeys, EditRowsAndTheirChordsActOnceOnTheDocumentInFront) {
    CDocument& document = open("a.htm", "one two");
    text = &document.SourceRTB();
    const auto press = [this](int keyCode, int shift) {
        KeyPress key{.keyCode = keyCode, .shift = shift};
        text->keyDown.raise(key);
        return key.keyCode;
    };
    menu("mnuEdit_Delete").click();
    EXPECT_TRUE(document.IsSaved()) << "without a selection nothing changes";
    for (const char* row : {"mnuEdit_SelectAll", "mnuEdit_Copy", "mnuEdit_Delete"}) menu(row).click();
    EXPECT_EQ(text->text(), "");
    EXPECT_EQ(press('Z', modifier::ctrl), 0);
    EXPECT_EQ(text->text(), "one two");
    text->setSelStart(7);
    EXPECT_EQ(press('V', modifier::ctrl + modifier::shift), 'V') << "with Shift the chord belongs to somebody else";
    menu("mnuEdit_Paste").click();
    EXPECT_EQ(text->text(), "one twoone two");
    ControlFunctionForMode(view_mode::preview);
    EXPECT_EQ(press('V', modifier::ctrl), 0) << "swallowed where the row is disabled";
    EXPECT_EQ(text->text(), "one twoone two");
}

}  // namespace
}  // namespace kelvor
