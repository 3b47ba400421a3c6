#include "authoring/special_character_insertion.h"

#include "authoring/special_chars.h"
#include "core/frame.h"
#include "platform/edit_control.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

using SpecialCharactersWindow = FrameFixture;

TEST_F(SpecialCharactersWindow, ListsTheTableAndReplacesTheSelectionByAnEntity) {
    initSpecialChars();
    EditControl& text = openText("a.htm", "a b").Text1;
    mnuInsert_SpecialChars_Click();
    EXPECT_TRUE(mainForm().Toolbar1.button("Special Chars").pressed);
    SpecialCharacterInsertion& form = specialCharacterInsertion();
    ASSERT_EQ(form.lstSpecChars.count(), 70U);
    EXPECT_EQ(form.lstSpecChars.cell(30, 0), "ß");
    text.setSelStart(1);
    text.setSelLength(1);
    form.lstSpecChars.doubleClick(66);
    form.lstSpecChars.setSelectedRow(30);
    form.cmdInsert.click();
    EXPECT_EQ(text.text(), "a&nbsp;&szlig;b");
    mnuInsert_SpecialChars_Click();
    EXPECT_FALSE(mainForm().Toolbar1.button("Special Chars").pressed);
}

}  // namespace
}  // namespace kelvor
