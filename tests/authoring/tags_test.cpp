// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/tags.h"

#include "authoring/special_character_insertion.h"
#include "authoring/text_format.h"
#include "editing/insertion.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using FloatingTools = SelectionTest;

TEST_F(FloatingTools, TheFirstTwoCommasOfATagsLinePartItAndALineWithoutEndsTheList) {
    for (const auto& [bytes, cells] : {
             std::pair{"<B>,</B>,b, c,\r\n <I>, </I>, i\r<U>,</U>\n<A HREF=\"\">,,\xE9",
                       "<B>|</B>|b, c,/ <I>| </I>| i/<U>|</U>|/<A HREF=\"\">||é/"},
             {"<B>,</B>,b\r\n", "<B>|</B>|b/"},
             {"<B>,</B>,b\r\n\r\n<U>,</U>,u", "<B>|</B>|b/5 Line 2 of tags.txt has no comma;"},
             {"\xFF\x1A,\x80\n\x80", "ÿ\x1A|€|/5 Line 2 of tags.txt has no comma;"},
             {"", ""},
         }) {
        files.write("program/tags.txt", bytes);
        const std::string fault = reportedBy(mnuInsert_Tags_Click);
        std::string seen;
        const ReportView& list = toolForm<Tags>().ListView1;
        for (int i = 0; i < static_cast<int>(list.count()); ++i)
            seen += list.cell(i, 0) + "|" + list.cell(i, 1) + "|" + list.cell(i, 2) + "/";
        EXPECT_EQ(seen + fault, cells);
        EXPECT_TRUE(toolForm<Tags>().isLoaded());
        toolForm<Tags>().unload();
    }
}

TEST_F(FloatingTools, TheFloatingToolsServeTheDocumentOrTheTableWizardsCell) {
    const auto areOpen = [](bool tagsAre, bool charactersAre) {
        EXPECT_EQ(mainForm().menu("mnuInsert_Tags").checked(), tagsAre);
        EXPECT_EQ(mainForm().Toolbar1.button("Tags").pressed, tagsAre);
        EXPECT_EQ(mainForm().Toolbar1.button("Special Chars").pressed, charactersAre);
        EXPECT_EQ(toolForm<Tags>().isLoaded(), tagsAre);
    };
    platform.expectBox("Tags file missing");
    mnuInsert_Tags_Click();
    areOpen(false, false);
    files.write("program/tags.txt", "<B>,</B>,\r\n<BR>,(n/a),\r\n<HR>,(N/A),\r\n");
    mnuInsert_Tags_Click();
    mnuInsert_SpecialChars_Click();
    areOpen(true, true);
    toolForm<Tags>().activated.raise();
    EXPECT_EQ(platform.focused, "ListView1");
    const auto tag = [](int row) {
        return [row] {
            toolForm<Tags>().ListView1.setSelectedRow(row);
            toolForm<Tags>().cmdInsert.click();
        };
    };
    const auto sharpS = [&list = toolForm<SpecialCharacterInsertion>().lstSpecChars] {
        EXPECT_EQ(list.cell(30, 0), "ß");
        list.doubleClick(30);
    };
    EXPECT_EQ(after(tag(0)), "a[<B>b</B>]c Text1");
    EXPECT_EQ(after(tag(1)), "a[<BR>b]c Text1");
    EXPECT_EQ(after(tag(2), "é\r\n[Ü]\r\n"), "é\r\n[<HR>Ü(N/A)]\r\n Text1");
    text->undo();
    EXPECT_EQ(text->text(), "é\r\nÜ\r\n");

    Form wizard("frmTableWiz", "Table Wizard");
    TextBuffer cell(wizard, "txtCellText");
    setDeliveryTarget("frmTableWiz", &cell);
    EXPECT_EQ(after(sharpS), "a&szlig;[]c ") << "the wizard is not in front";
    setActiveFormName("frmTableWiz");
    text = &cell;
    EXPECT_EQ(after(tag(0)), "a<B>b</B>[]c ListView1");
    EXPECT_EQ(after(sharpS), "a&szlig;[]c ");
    const auto formatted =
        inDialog<TextFormat>(mnuFormatText_Quick_Click, [](TextFormat& form) { form.cmdInsert.click(); });
    EXPECT_EQ(after(formatted), "ab[]c ");
    mnuInsert_Tags_Click();
    EXPECT_EQ(platform.focused, "") << "the wizard keeps the focus";
    setDeliveryTarget("frmTableWiz", nullptr);
    EXPECT_NE(&deliveryTarget(), &cell);
    setActiveFormName("editWindow");
    mnuInsert_SpecialChars_Click();
    EXPECT_EQ(platform.focused, "Text1");
    areOpen(false, false);
}

}  // namespace
}  // namespace kelvor
