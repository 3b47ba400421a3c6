#include "authoring/strip_tags.h"

#include <gtest/gtest.h>

#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class StripTags : public KelvorTest {
protected:
    StripTags() { start(); }
};

TEST_F(StripTags, TakesOutProperTagsThatEndInTheRange) {
    struct Case {
        const char* text;
        int from, to;
        const char* result;
        int selStart, selLength;  // of the result
        int startPos, endPos;
        bool warns;
    };
    int number = 0;
    for (const Case& row : {
             Case{"no tags", 0, 7, "no tags", 7, 0, -1, 7, false},
             {"\xC3\xA9<B\r\n>\xC3\xBC</B>", 0, 14, "\xC3\xA9\xC3\xBC", 4, 0, -1, 5, false},
             {"a < b <I>c</I>", 0, 14, "a < b <I>c</I>", 13, 1, 10, 7, true},
             {"<<><b>12345678", 0, 14, "<<>12345678", 3, 0, -1, 8, true},
             {"<b>< <b>", 0, 8, "< <b>", 0, 5, -1, 0, true},
             {"<b><x", 0, 5, "<x", 0, 1, 0, 2, true},
             {"><x", 0, 3, "><x", 1, 1, 1, 3, false},
             {"<a><b><c>", 3, 6, "<a><c>", 5, 1, 3, 3, false},
             {"<a><b>", 0, 5, "<b>", 2, 1, 0, 2, false},
         }) {
        SCOPED_TRACE(row.text);
        EditControl& text = open(std::to_string(++number) + ".htm", row.text).SourceRTB();
        text.setSelStart(text.textLength());
        platform.focused.clear();
        if (row.warns)
            platform.expectMessage({.text = "This document contains one or more invalid HTML tags or\r\n"
                                            "you have not properly converted the <> characters to\r\n"
                                            "their special character codes. All tags may not be stripped.",
                                    .title = "Invalid HTML",
                                    .icon = MessageIcon::exclamation});
        int startPos = row.from;
        int endPos = row.to;
        stripTags(startPos, endPos);
        EXPECT_EQ(text.text(), row.result);
        EXPECT_EQ(std::pair(text.selStart(), text.selLength()), std::pair(row.selStart, row.selLength));
        EXPECT_EQ(std::pair(startPos, endPos), std::pair(row.startPos, row.endPos));
        EXPECT_EQ(platform.focused, "Text1");
        EXPECT_EQ(documentManager()->currentDocument().IsSaved(), text.text() == row.text);
    }
}

TEST_F(StripTags, TheCommandsStripTheSelectionOrTheTextInOneStep) {
    EditControl& text = open("a.htm", "<a>1<b>2</b><c>3").SourceRTB();
    text.setSelStart(4);
    text.setSelLength(8);
    mnuEdit_StripSel_Click();
    EXPECT_EQ(text.text(), "<a>12<c>3");
    auto listening = text.changed.connectScoped([] { EXPECT_FALSE(mainForm().enabled()); });
    mnuTools_StripTags_Click();
    EXPECT_EQ(text.text(), "123");
    EXPECT_TRUE(mainForm().enabled());
    listening.reset();
    text.undo();
    EXPECT_EQ(text.text(), "<a>12<c>3");
    EXPECT_EQ(text.selStart(), 8);  // where the last tag is, not the end of the text
}

}  // namespace
}  // namespace kelvor
