#include "authoring/htmlkeys.h"

#include "core/document.h"
#include "platform/text_buffer.h"
#include "tests/frame_fixture.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

constexpr int ctrl = 2;
constexpr int ctrlShift = 3;
constexpr int ctrlShiftAlt = 7;

/// A tool form with a watched text of its own.
struct HtmlKeys : FrameFixture {
    HtmlKeys() {
        tool.load();
        keys.setHookedRTB(&text);
    }

    /// Presses a chord over a selected "x". The text then, in brackets while it is selected; " +" behind it when the
    /// control acts on the key too.
    std::string press(int keyCode, int shift) {
        text.setText("x");
        text.selectAll();
        platform.focused.clear();
        KeyPress key{keyCode, shift};
        text.keyDown.raise(key);
        const std::string seen = text.selLength() > 0 ? "[" + text.selText() + "]" : text.text();
        return seen + (key.keyCode == keyCode ? " +" : "");
    }

    Form tool{"tool", "Tool"};
    TextBuffer text{tool, "rtbUserText"};
    htmlkeys keys;
};

TEST_F(HtmlKeys, TurnChordsIntoTagsAndSwallowSome) {
    for (const auto& [keyCode, shift, result] : {
             std::tuple{int{'6'}, ctrlShift, "[<H6>x</H6>]"},
             {'I', ctrlShiftAlt, "[<LI>x</LI>]"},
             {'K', ctrlShift, "[<BLOCKQUOTE>x</BLOCKQUOTE>] +"},
             {key_code::space, ctrlShift, "&nbsp; +"},
             {'B', ctrlShift, "<BR> +"},
             {'B', ctrl, "[<B>x</B>] +"},
             {'I', ctrl, "[<I>x</I>]"},
         }) {
        EXPECT_EQ(press(keyCode, shift), result);
        EXPECT_EQ(platform.focused, "rtbUserText") << result;
    }
    // The last four are a document's alone.
    for (const auto& [keyCode, shift] :
         {std::pair{'7', 3}, {'1', 2}, {'U', 3}, {'Q', 1}, {'I', 6}, {'D', 3}, {'L', 3}, {'W', 3}, {'S', 3}})
        EXPECT_EQ(press(keyCode, shift), "[x] +") << keyCode;
    text.setText("");
    platform.focused.clear();
    text.press('I', ctrl);
    EXPECT_EQ(text.text(), "<I></I>");
    EXPECT_EQ(platform.focused, "");
}

TEST_F(HtmlKeys, AskForAnchors) {
    const std::string namePrompt = "Enter the name for this name anchor.\r\n\r\n<A NAME=\"your text here\">";
    for (const auto& [answer, result] : {std::pair{"a", "[<A NAME=\"a\">x</A>]"}, {"", "[x]"}}) {
        platform.expectInput(namePrompt, "Make named anchor", answer);
        EXPECT_EQ(press('N', ctrlShift), result);
        EXPECT_EQ(platform.focused, "rtbUserText");
    }
    platform.expectInput("Enter the fully qualified URL for this anchor.", "Make anchor", "a");
    EXPECT_EQ(press('A', ctrlShift), "[<A HREF=\"a\">x</A>]");
}

TEST_F(HtmlKeys, RunTheFileChordsWhereTheyAreOn) {
    std::string ran;
    const auto note = [&ran](const char* chord) { return [&ran, chord] { ran = chord; }; };
    htmlkeys::fileChords() = {note("preview"), note("link"), note("close"), note("save")};
    keys.setFileKeysEnabled(true);
    for (const auto& [keyCode, runs, result, focused] : {std::tuple{'D', "preview", "[x]", ""},
                                                         {'L', "link", "[x]", ""},
                                                         {'W', "close", "[x] +", ""},
                                                         {'S', "save", "[x]", "rtbUserText"}}) {
        EXPECT_EQ(press(keyCode, ctrlShiftAlt), result);
        EXPECT_EQ(ran, runs);
        EXPECT_EQ(platform.focused, focused) << runs;
    }
    htmlkeys::fileChords() = {};
}

TEST_F(KelvorTest, ADocumentHasTheChordsAndMayCloseByOne) {
    start();
    auto& first = dynamic_cast<TextBuffer&>(open("a.htm", "").SourceRTB());
    dynamic_cast<TextBuffer&>(open("b.htm", "").SourceRTB()).press('W', ctrlShift);
    first.press('1', ctrlShift);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "<H1></H1>");
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
}

}  // namespace
}  // namespace kelvor
