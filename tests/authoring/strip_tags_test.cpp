// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/strip_tags.h"

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using StripTags = StartedTest;

TEST_F(StripTags, TakesOutProperTagsThatEndInTheRange) {
    using Pair = std::pair<int, int>;
    // The text and the range in it; the text then, its selection (start and length), and what becomes of the range.
    int number = 0;
    for (const auto& [source, range, result, selected, given, warns] : {
             std::tuple{"no tags", Pair(0, 7), "no tags", Pair(7, 0), Pair(-1, 7), false},
             {"é<B\r\n>ü</B>", {0, 14}, "éü", {4, 0}, {-1, 5}, false},
             {"a < b <I>c</I>", {0, 14}, "a < b <I>c</I>", {13, 1}, {10, 7}, true},
             {"<<><b>12345678", {0, 14}, "<<>12345678", {3, 0}, {-1, 8}, true},
             {"<b>< <b>", {0, 8}, "< <b>", {0, 5}, {-1, 0}, true},
             {"<b><x", {0, 5}, "<x", {0, 1}, {0, 2}, true},
             {"><x", {0, 3}, "><x", {1, 1}, {1, 3}, false},
             {"<a><b><c>", {3, 6}, "<a><c>", {5, 1}, {3, 3}, false},
             {"<a><b>", {0, 5}, "<b>", {2, 1}, {0, 2}, false},
         }) {
        SCOPED_TRACE(source);
        EditControl& text = open(std::to_string(++number) + ".htm", source).SourceRTB();
        text.setSelStart(text.textLength());
        platform.focused.clear();
        if (warns) platform.expectBox("Invalid HTML");
        auto [startPos, endPos] = range;
        stripTags(startPos, endPos);
        EXPECT_EQ(text.text(), result);
        EXPECT_EQ(Pair(text.selStart(), text.selLength()), selected);
        EXPECT_EQ(Pair(startPos, endPos), given);
        EXPECT_EQ(platform.focused, "Text1");
        EXPECT_EQ(documentManager().currentDocument().IsSaved(), text.text() == source);
    }
}

TEST_F(StripTags, TheCommandsStripTheSelectionOrTheTextInOneStep) {
    EditControl& text = open("a.htm", "<a>1<b>2</b><c>3").SourceRTB();
    text.setSelStart(4);
    text.setSelLength(8);
    mnuEdit_StripSel_Click();
    EXPECT_EQ(text.text(), "<a>12<c>3");
    text.changed.connect([] { EXPECT_EQ(mainForm().enabled(), mainForm().activeForm().Text1.text() != "123"); });
    mnuTools_StripTags_Click();
    EXPECT_EQ(text.text(), "123");
    EXPECT_TRUE(mainForm().enabled());
    text.undo();
    EXPECT_EQ(text.text(), "<a>12<c>3");
    EXPECT_EQ(text.selStart(), 8);  // where the last tag is, not the end of the text
}

}  // namespace
}  // namespace kelvor
