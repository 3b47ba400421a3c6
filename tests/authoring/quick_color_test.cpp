#include "authoring/quick_color.h"

#include "platform/edit_control.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

using QuickColor = FrameFixture;

TEST_F(QuickColor, WritesTheColourInFourForms) {
    EditControl& text = openText("a.htm", "").Text1;
    const auto run = [&](void (*command)(), std::optional<int> color) {
        text.setText("x");
        text.selectAll();
        platform.focused.clear();
        platform.expectColor(color);
        command();
        return text.text() + " " + std::to_string(text.selLength()) + " " + platform.focused;
    };
    for (const auto& [command, result] : {
             std::pair{+mnuFormat_QuickColor_coloreq_Click, "COLOR=\"#FF8000\"x 16 Text1"},
             {mnuFormat_QuickColor_bgcolor_Click, "BGCOLOR=\"#FF8000\"x 18 Text1"},
             {mnuFormat_QuickColor_fcolor_Click, "<FONT COLOR=\"#FF8000\">x</FONT> 30 Text1"},
             {mnu_RClick_QuickColor_Click, "FF8000 0 "},
         }) {
        EXPECT_EQ(run(command, 0x0080FF), result);
        EXPECT_EQ(run(command, std::nullopt), "x 1 ");
    }
    text.setSelStart(1);
    platform.expectColor(0);
    doColor(2);
    EXPECT_EQ(text.text(), "xBGCOLOR=\"#000000\"");
    EXPECT_EQ(platform.focused, "Text1");
}

}  // namespace
}  // namespace kelvor
