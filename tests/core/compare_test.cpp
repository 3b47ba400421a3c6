// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/compare.h"

#include "core/look.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Comparing : public FrameTest {
protected:
    /// Takes the user's steps in the window over two texts, which they need not close.
    void compare(const std::string& left, const std::string& right, const std::function<void(Compare&)>& steps) {
        platform.expectDialog<Compare>(steps);
        compareTexts({"here", left}, {"on the disk\n", right});
    }
    /// The chosen row, what the fields show of it with the selection in brackets, and the buttons out of reach.
    static std::string chosen(const Compare& form) {
        const auto marked = [](const EditControl& edit) {
            const auto start = static_cast<std::size_t>(edit.selStart());
            return edit.text().insert(start + static_cast<std::size_t>(edit.selLength()), "]").insert(start, "[");
        };
        return std::to_string(form.lstLines.selectedRow()) + " " + form.lblLeft.caption() + " " + marked(form.rtbLeft) +
               " " + form.lblRight.caption() + " " + marked(form.rtbRight) + " " + disabledIn(form);
    }
};

TEST_F(Comparing, TheRowsSayHowTheyDifferAndTheFirstDifferenceIsChosen) {
    const std::string wide = "\u00E9" + std::string(999, 'x');
    compare("same\nold word\r\nend\n" + wide, "same\nnew word\nmore\nend\r\n" + wide + "!", [](Compare& form) {
        const ReportView& list = form.lstLines;
        EXPECT_EQ(form.lblCounts.caption(), "1 line added, 2 changed; the ends of 2 lines differ.");
        EXPECT_EQ(list.columns()[1] + list.columns()[4], "hereon the disk\\n");
        std::string rows;
        for (const ReportView::Row& row : list.rows()) {
            for (const std::string& cell : row.cells) rows += cell.substr(0, 8) + "|";
            rows += std::to_string(static_cast<int>(row.tint)) + "\n";
        }
        EXPECT_EQ(rows,
                  "1|same||1|same|0\n"
                  "2|old word|changed|2|new word|3\n"
                  "||added|3|more|1\n"
                  "3|end|line end|4|end|3\n"
                  "4|\u00E9xxxxxx|changed|5|\u00E9xxxxxx|3\n");
        EXPECT_EQ(list.cell(4, 1).size(), 1001U) << "cut in characters";
        EXPECT_EQ(chosen(form),
                  "1 &Left: line 2, ended by CR LF [old] word &Right: line 2, ended by LF [new] word cmdPrevious ");
    });
}

TEST_F(Comparing, TheButtonsGoFromOneStretchToTheNext) {
    compare("a\nb\nc\nd\ne\nf\ng", "x\ny\nc\r\nd\r\ne\nf", [](Compare& form) {
        EXPECT_EQ(chosen(form), "0 &Left: line 1, ended by LF [a] &Right: line 1, ended by LF [x] cmdPrevious ");
        const auto at = [&form](Button& button) {
            button.click();
            return form.lstLines.selectedRow();
        };
        EXPECT_EQ(at(form.cmdNext), 2) << "lines that only end differently are a stretch of their own";
        EXPECT_EQ(at(form.cmdNext), 5);
        form.lstLines.choose(6, {6});
        EXPECT_EQ(chosen(form), "6 &Left: line 7, with no line end []g &Right: no line here [] cmdNext ");
        EXPECT_EQ(at(form.cmdPrevious), 5);
        EXPECT_EQ(at(form.cmdPrevious), 2);
        form.lstLines.choose(1, {1});
        EXPECT_EQ(at(form.cmdPrevious), 0);
        dynamic_cast<TextBuffer&>(form.rtbLeft).type("x");
        EXPECT_EQ(form.rtbLeft.text(), "a");
    });
}

TEST_F(Comparing, WhatDiffersIsSaidInWords) {
    for (const auto& [left, right, words] : {
             std::tuple{"", "", "The texts are the same."},
             {"a\nb", "a\r\nb", "The texts are the same; the end of 1 line differs."},
             {"a\nb\n", "a\r\nb", "The texts are the same; the ends of 2 lines differ."},
             {"a\nb\n", "", "2 lines removed."},
             {"a\n", "b", "1 line changed; the end of 1 line differs."},
             {"a\nb\nc\nd\ne\nf\n", "x\nb\nd\nf\ng\nh\n", "2 lines added, 2 removed, 1 changed."},
         }) {
        compare(left, right, [&, expected = words](Compare& form) {
            EXPECT_EQ(form.lblCounts.caption(), expected);
            EXPECT_EQ(form.cmdNext.enabled(), form.lstLines.count() > 2) << "there is one stretch, or none";
        });
    }
}

TEST_F(Comparing, ATextIsLookedAtAndStaysAsItIs) {
    platform.expectDialog<Look>([](Look& look) {
        dynamic_cast<TextBuffer&>(look.rtbText).type("x");
        EXPECT_EQ(look.caption() + look.rtbText.text(), "a nameone\rtwo");
    });
    lookAtText({"a name", "one\rtwo"});
    EXPECT_EQ(platform.focused, "rtbText");
}

}  // namespace
}  // namespace kelvor
