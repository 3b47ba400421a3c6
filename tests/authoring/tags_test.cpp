#include "authoring/tags.h"

#include "authoring/common.h"
#include "core/frame.h"
#include "platform/text_buffer.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

struct TagsWindow : FrameFixture {
    ~TagsWindow() override { tags().unload(); }

    /// Opens the window over a tags.txt with these bytes.
    Tags& show(const std::string& bytes) {
        directory.write("program/tags.txt", bytes);
        mnuInsert_Tags_Click();
        return tags();
    }

    static bool isOn() {
        const bool checked = mainForm().menu("mnuInsert_Tags").checked();
        EXPECT_EQ(mainForm().Toolbar1.button("Tags").pressed, checked);
        return checked;
    }
};

TEST_F(TagsWindow, TheMenuRowOpensItAboveTheFrameAndClosesIt) {
    openText("a.htm", "");
    show("<B>,</B>,b").activated.raise();
    EXPECT_TRUE(isOn());
    EXPECT_EQ(platform.shownModeless, std::vector<std::string>{"tags owned"});
    EXPECT_EQ(tags().ListView1.selectedRow(), 0);
    EXPECT_EQ(platform.focused, "ListView1");
    mnuInsert_Tags_Click();
    EXPECT_FALSE(isOn());
    EXPECT_EQ(platform.focused, "Text1");
    EXPECT_EQ(loadedForms().size(), 2U);
}

TEST_F(TagsWindow, TheFirstTwoCommasPartALineAndOneWithoutEndsTheList) {
    struct Row {
        std::string bytes;
        const char* cells;
        int badLine = 0;
    };
    for (const Row& row : {
             Row{"<B>,</B>,b, c,\r\n <I>, </I>, i\r<U>,</U>\n<A HREF=\"\">,,\xE9",
                 "<B>|</B>|b, c,/ <I>| </I>| i/<U>|</U>|/<A HREF=\"\">||é/"},
             {"<B>,</B>,b\r\n", "<B>|</B>|b/"},
             {"<B>,</B>,b\r\n\r\n", "<B>|</B>|b/", 2},
             {"<B>,</B>,b\r\n<I>\r\n<U>,</U>,u\r\n", "<B>|</B>|b/", 2},
             {"\xFF\x1A,\x80\n\x80", "ÿ\x1A|€|/", 2},
             {"", ""},
         }) {
        if (row.badLine > 0) expectError(5, "Line " + std::to_string(row.badLine) + " of tags.txt has no comma");
        const ReportView& list = show(row.bytes).ListView1;
        std::string cells;
        for (int i = 0; i < static_cast<int>(list.count()); ++i)
            cells += list.cell(i, 0) + "|" + list.cell(i, 1) + "|" + list.cell(i, 2) + "/";
        EXPECT_EQ(cells, row.cells);
        EXPECT_TRUE(isOn());
        tags().unload();
    }
}

TEST_F(TagsWindow, WithoutTheFileItGoesAgainAtOnce) {
    platform.expectMessage({.text = "The tags.lst file does not exist.\r\nPlease restore from backup, re-install, "
                                    "or visit the home page and download a new copy.",
                            .title = "Tags file missing",
                            .icon = MessageIcon::critical});
    mnuInsert_Tags_Click();
    EXPECT_FALSE(isOn());
    EXPECT_TRUE(platform.shownModeless.empty());
    EXPECT_EQ(loadedForms().size(), 1U);
}

TEST_F(TagsWindow, TagsGoAroundTheSelectionOrBeforeIt) {
    EditControl& text = openText("a.htm", "").Text1;
    Tags& form = show("<B>,</B>,\r\n<BR>,(n/a),\r\n<HR>,(N/A),\r\n");
    TextBuffer cell(form, "txtCellText");
    setDeliveryTarget("frmTableWiz", &cell);
    const char* const results[] = {"a<B>b</B>c", "a<BR>bc", "a<HR>b(N/A)c"};
    for (EditControl* target : {&text, static_cast<EditControl*>(&cell)}) {
        if (target == &cell) activeFormName = "frmTableWiz";
        for (int row = 0; row < 3; ++row) {
            target->setText("abc");
            target->setSelStart(1);
            target->setSelLength(1);
            platform.focused.clear();
            form.ListView1.setSelectedRow(row);
            form.cmdInsert.click();
            EXPECT_EQ(target->text(), results[row]);
            EXPECT_EQ(platform.focused, target == &text ? "Text1" : "ListView1");
        }
    }
    EXPECT_EQ(text.text(), results[2]);
    form.cmdClose.click();
    EXPECT_EQ(platform.focused, "ListView1") << "the wizard keeps the focus";
}

}  // namespace
}  // namespace kelvor
