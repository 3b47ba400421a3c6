#include "editing/htmlkeys.h"

#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using HtmlKeys = SelectionTest;

TEST_F(HtmlKeys, ChordsBecomeTagsAndSomeAreSwallowed) {
    const auto pressing = [this](int keyCode, int shift) {
        bool controlActsToo = false;
        const std::string result = after(
            [&] {
                KeyPress key{keyCode, shift};
                text->keyDown.raise(key);
                controlActsToo = key.keyCode == keyCode;
            },
            "[x]");
        return result + (controlActsToo ? " +" : "");
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

}  // namespace
}  // namespace kelvor
