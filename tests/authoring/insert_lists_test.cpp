#include "authoring/common.h"
#include "core/frame.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

using InsertLists = KelvorTest;

TEST_F(InsertLists, EachChoiceGoesInAndTheListGoesBackToItsHeading) {
    SaveSetting(application, "UserStrings", "Footer", "<HR>\r\nme");
    start();
    EditControl& text = open("a.htm", "").SourceRTB();
    MDIForm1& frame = mainForm();
    struct Row {
        ComboBox& list;
        int choice;
        int heading;
        const char* result;
    };
    const Row rows[] = {
        {frame.Combo1, 6, 0, "a<H6>b</H6>c"},
        {frame.Combo1, 6, 0, "a<H6>b</H6>c"},
        {frame.Combo2, 1, 0, "a<FONT FACE=\"Courier\">b</FONT>c"},
        {frame.Combo3, 8, 7, "a<FONT SIZE=\"+1\">b</FONT>c"},
        {frame.Combo4, 1, 0, "a<HR>\r\nmec"},
    };
    for (const Row& row : rows) {
        text.setText("abc");
        text.setSelStart(1);
        text.setSelLength(1);
        platform.focused.clear();
        row.list.choose(row.choice);
        EXPECT_EQ(text.text(), row.result);
        EXPECT_EQ(row.list.listIndex(), row.heading);
        EXPECT_EQ(platform.focused, "Text1");
    }
}

}  // namespace
}  // namespace kelvor
