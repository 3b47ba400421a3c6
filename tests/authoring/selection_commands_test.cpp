// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/selection_commands.h"

#include "authoring/date_time.h"
#include "authoring/quick_color.h"
#include "base/error.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using SelectionCommands = SelectionTest;

TEST_F(SelectionCommands, TheListsInsertEachChoiceAndGoBackToTheirHeadings) {
    MDIForm1& frame = mainForm();
    for (const auto& [list, choice, before, result, heading] :
         {std::tuple{&frame.Combo1, 6, "a[b]c", "a[<H6>b</H6>]c Text1", "Head"},
          {&frame.Combo1, 6, "a[]c", "a<H6></H6>[]c Text1", "Head"},
          {&frame.Combo2, 1, "a[b]c", "a[<FONT FACE=\"Courier\">b</FONT>]c Text1", "(Font Name)"},
          {&frame.Combo3, 0, "a[b]c", "a[<FONT SIZE=\"-7\">b</FONT>]c Text1", "(Size)"},
          {&frame.Combo4, 1, "a[b]c", "a<HR>\r\nme[]c Text1", "(User Strings)"}}) {
        EXPECT_EQ(after([&list = list, &choice = choice] { list->choose(choice); }, before), result);
        EXPECT_EQ(list->text(), heading);
    }
}

TEST_F(SelectionCommands, AColourIsWrittenInFourForms) {
    const auto choosing = [this](std::optional<int> color, void (*command)()) {
        return [=, this] {
            platform.expectColor(color);
            command();
        };
    };
    for (const auto& [command, result] :
         {std::pair{+mnuFormat_QuickColor_coloreq_Click, "a[COLOR=\"#FF8000\"b]c Text1"},
          {mnuFormat_QuickColor_bgcolor_Click, "a[BGCOLOR=\"#FF8000\"b]c Text1"},
          {mnuFormat_QuickColor_fcolor_Click, "a[<FONT COLOR=\"#FF8000\">b</FONT>]c Text1"},
          {mnu_RClick_QuickColor_Click, "aFF8000[]c "}}) {
        EXPECT_EQ(after(choosing(0x0080FF, command)), result);
        EXPECT_EQ(after(choosing({}, command)), "a[b]c ") << "cancelled";
    }
    mainForm().CommonD1.dialogTitle = "of the file dialog before";
    EXPECT_EQ(after(choosing(0, mnuFormat_QuickColor_bgcolor_Click), "a[]"), "aBGCOLOR=\"#000000\"[] Text1");
    EXPECT_EQ(platform.colorTitle, "");
    EXPECT_EQ(platform.colorStart, 0x0080FF) << "the last one chosen";
}

TEST_F(SelectionCommands, TheCaseCommandsLeaveTheCaretBehindTheSelection) {
    for (const auto& [row, result] : {
             std::pair{"mnuTools_FormatText_Case_Lower", "straße und café[] Text1"},
             {"mnuTools_FormatText_Case_Upper", "STRASSE UND CAFÉ[] Text1"},
             {"mnuFormat_textCase_LfLet", "straße und cafÉ[] "},
             {"mnuFormat_textCase_UfLet", "Straße Und Café[] "},
         })
        EXPECT_EQ(after([&, &row = row] { menu(row).click(); }, "[Straße Und CafÉ]"), result);
    for (const auto& [words, result] : {std::pair{" two  blanks", " Two  Blanks"},
                                        {"line\nbreak\tand tab", "Line\nbreak\tand Tab"},
                                        {"été à αβ", "Été À Αβ"},
                                        {"", ""}})
        EXPECT_EQ(applyInitialCase(words, " ", InitialCase::upper), result);
    EXPECT_THROW(applyInitialCase("one ", " ", InitialCase::upper), Error);
}

TEST_F(SelectionCommands, ADateGoesInAsTheUserPicksIt) {
    const auto act = inDialog<DateTimeDialog>(mnuInsert_Date_Click, [](DateTimeDialog& dialog) {
        EXPECT_EQ(dialog.lstDates.rows().at(1), "11/21/2026");
        dialog.MonthView1.setValue({905, 3, 7});
        EXPECT_EQ(dialog.lstDates.rows(),
                  (std::vector<std::string>{"short 905-3-7", "03/07/0905", "05/03/07", "0905/03/07", "medium 905-3-7",
                                            "long 905-3-7", "month3 07, 0905", "weekday0, 07 month3, 0905",
                                            "07 month3, 0905", "time 9", "09:05:07"}));
        EXPECT_EQ(dialog.lstDates.selectedRow(), 0);
        dialog.lstDates.doubleClick(10);
    });
    EXPECT_EQ(after(act, "on [x]."), "on 09:05:07[]. Text1");
}

}  // namespace
}  // namespace kelvor
