#include "editing/edit_commands.h"

#include "frame/enablement.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using EditCommands = KelvorTest;

TEST_F(EditCommands, EditRowsAndTheirChordsActOnceOnTheDocumentInFront) {
    start();
    CDocument& document = open("a.htm", "one two");
    EditControl& text = document.SourceRTB();
    const auto press = [&text](int keyCode, int shift) {
        KeyPress key{.keyCode = keyCode, .shift = shift};
        text.keyDown.raise(key);
        return key.keyCode;
    };
    menu("mnuEdit_Delete").click();
    EXPECT_TRUE(document.IsSaved()) << "without a selection nothing changes";
    menu("mnuEdit_SelectAll").click();
    menu("mnuEdit_Copy").click();
    menu("mnuEdit_Delete").click();
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(press('Z', modifier::ctrl), 0);
    EXPECT_EQ(text.text(), "one two");
    text.setSelStart(7);
    EXPECT_EQ(press('V', modifier::ctrl + modifier::shift), 'V') << "with Shift the chord belongs to somebody else";
    menu("mnuEdit_Paste").click();
    EXPECT_EQ(text.text(), "one twoone two");
    ControlFunctionForMode(view_mode::preview);
    EXPECT_EQ(press('V', modifier::ctrl), 0) << "swallowed where the row is disabled";
    EXPECT_EQ(text.text(), "one twoone two");
}

}  // namespace
}  // namespace kelvor
