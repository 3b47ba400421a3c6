#include <gtest/gtest.h>

#include <tuple>

#include "authoring/date_time.h"
#include "authoring/quick_color.h"
#include "authoring/selection_commands.h"
#include "authoring/special_character_insertion.h"
#include "authoring/tags.h"
#include "authoring/text_format.h"
#include "controls/text_buffer.h"
#include "editing/htmlkeys.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using Act = std::function<void()>;

/// Everything that inserts at a selection. Square brackets stand around it.
class Insertion : public KelvorTest {
protected:
    Insertion() {
        SaveSetting(application, "UserStrings", "Footer", "<HR>\r\nme");
        start();
        text = &open("a.htm", "").SourceRTB();
    }

    /// The text after `act`, over `before`; behind a blank the control focused last.
    std::string after(const Act& act, std::string before = "a[b]c") {
        const auto from = before.find('[');
        const auto to = before.erase(from, 1).find(']');
        text->setText(before.erase(to, 1));
        text->setSelStart(static_cast<int>(from));
        text->setSelLength(static_cast<int>(to - from));
        platform.focused.clear();
        act();
        std::string result = text->text();
        const auto start = static_cast<std::size_t>(text->selStart());
        result.insert(start + static_cast<std::size_t>(text->selLength()), "]").insert(start, "[");
        return result + " " + platform.focused;
    }

    /// Opens a modal dialog by `command` and takes the user's steps in it, which close it.
    template <typename Dialog>
    Act inDialog(void (*command)(), std::function<void(Dialog&)> steps) {
        return [=, this] {
            platform.expectModal([=](Form& form) {
                steps(dynamic_cast<Dialog&>(form));
                EXPECT_FALSE(form.isLoaded());
            });
            command();
        };
    }

    EditControl* text = nullptr;
};

TEST_F(Insertion, WrapsTheSelection) {
    using Optional = std::optional<std::string_view>;
    for (const auto& [before, openText, closeText, result] : {
             std::tuple{"one [two]", "<B>", Optional("</B>"), "one [<B>two</B>] Text1"},
             {"one[] two", "<B>", "</B>", "one<B></B>[] two "},
             {"one [two]", "<BR>", {}, "one [<BR>two] Text1"},
             {"a\r\n[Üb]\r\n", "é<", ">", "a\r\n[é<Üb>]\r\n Text1"},
         })
        EXPECT_EQ(after([&, &open = openText, &close = closeText] { insertAtSelection(open, close); }, before), result);
    setActiveFormName("frmTableWiz");
    EXPECT_EQ(after([] { insertAtSelection("<I>", "</I>"); }), "a[<I>b</I>]c ");
    text->undo();
    EXPECT_EQ(text->text(), "abc");
}

TEST_F(Insertion, TheListsInsertEachChoiceAndGoBackToTheirHeadings) {
    MDIForm1& frame = mainForm();
    for (auto [list, choice, before, result, heading] :
         {std::tuple{&frame.Combo1, 6, "a[b]c", "a[<H6>b</H6>]c Text1", "Head"},
          {&frame.Combo1, 6, "a[]c", "a<H6></H6>[]c Text1", "Head"},
          {&frame.Combo2, 1, "a[b]c", "a[<FONT FACE=\"Courier\">b</FONT>]c Text1", "(Font Name)"},
          {&frame.Combo3, 0, "a[b]c", "a[<FONT SIZE=\"-7\">b</FONT>]c Text1", "(Size)"},
          {&frame.Combo4, 1, "a[b]c", "a<HR>\r\nme[]c Text1", "(User Strings)"}}) {
        EXPECT_EQ(after([&list = list, &choice = choice] { list->choose(choice); }, before), result);
        EXPECT_EQ(list->text(), heading);
    }
}

TEST_F(Insertion, AColourIsWrittenInFourForms) {
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

TEST_F(Insertion, TheCaseCommandsLeaveTheCaretBehindTheSelection) {
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

TEST_F(Insertion, ADateGoesInAsTheUserPicksIt) {
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

TEST_F(Insertion, TheFormatDialogTakesTheSelectionAndEachControlsChoice) {
    const auto act = inDialog<TextFormat>(mnuFormatText_Quick_Click, [this](TextFormat& form) {
        for (const auto& [button, title] :
             {std::pair{&form.cmdInsert, "No text error"}, {&form.Command1, "Color change error"}}) {
            platform.expectMessage(
                {.text = "You must enter some text first.", .title = title, .icon = MessageIcon::exclamation});
            button->click();
        }
        dynamic_cast<TextBuffer&>(form.rtbUserText).press('I', modifier::ctrl);
        dynamic_cast<TextBuffer&>(form.rtbUserText).press('L', modifier::ctrl + modifier::shift);  // a document's alone
        form.rtbUserText.SetFocus();
        EXPECT_EQ(form.rtbUserText.selText(), "<I></I>");
        for (const int row : {1, 0, 1, 2}) form.cboFont.choose(row);
        form.txtFonts.gotFocus.raise();
        EXPECT_EQ(form.txtFonts.selLength(), 14);
        form.cboFontSize.choose(14);
        for (const auto& color : {std::optional(0xFF), {}}) {
            platform.expectColor(color);
            form.Command1.click();
        }
        EXPECT_EQ(form.lblFontCol.backColor(), 0xFF);
        EXPECT_EQ(form.rtbUserText.selColor(), 0xFF);
        form.optAlign[1].click();
        for (CheckBox* box : {&form.chkItalic, &form.chkUnderline, &form.chkSubscript, &form.chkSmall, &form.chkStruck})
            box->click();
        form.cmdInsert.click();
    });
    EXPECT_EQ(after(act, "one[] two"),
              "one<STRIKE><SMALL><SUB><U><I><CENTER><FONT COLOR=\"#FF0000\" SIZE=\"+7\" FACE=\"Courier, Times\">"
              "<I></I></FONT></CENTER></I></U></SUB></SMALL></STRIKE>[] two Text1");
    const auto insert =
        inDialog<TextFormat>(mnuFormatText_Quick_Click, [](TextFormat& form) { form.cmdInsert.click(); });
    EXPECT_EQ(after(insert, "[one] two"), "one[] two Text1");
    const auto insertWithFont = [&](const std::function<void(TextFormat&)>& choose) {
        const auto steps = inDialog<TextFormat>(mnuFormatText_Quick_Click, [&choose](TextFormat& form) {
            EXPECT_EQ(form.cboFont.text() + form.txtFonts.text(), "(n/a)");
            form.cboFont.choose(1);
            choose(form);
            form.cmdInsert.click();
        });
        return after(steps, "[one]");
    };
    EXPECT_EQ(insertWithFont([](TextFormat& form) { form.cboFont.choose(0); }), "one[] Text1");
    EXPECT_EQ(insertWithFont([](TextFormat& form) { form.txtFonts.type(""); }), "<FONT>one</FONT>[] Text1");
}

TEST_F(Insertion, ChordsBecomeTagsAndSomeAreSwallowed) {
    const auto pressing = [this](int keyCode, int shift) {
        bool controlActsToo = false;
        const std::string result = after(
            [&] {
                KeyPress key{keyCode, shift};
                text->keyDown.raise(key);
                controlActsToo = key.keyCode == keyCode;
            },
            "[x]");
        return result + (controlActsToo ? " +" : "");
    };
    using namespace modifier;
    constexpr int ctrlShift = ctrl + modifier::shift;
    constexpr int ctrlShiftAlt = ctrlShift + alt;
    for (const auto& [keyCode, shift, result] : {
             std::tuple{int{'6'}, ctrlShift, "[<H6>x</H6>] Text1"},
             {'I', ctrlShiftAlt, "[<LI>x</LI>] Text1"},
             {key_code::space, ctrlShift, "&nbsp;[] Text1 +"},
             {'B', ctrlShift, "<BR>[] Text1 +"},
             {'B', ctrl, "[<B>x</B>] Text1 +"},
             {'I', ctrl, "[<I>x</I>] Text1"},
             {'1', ctrl, "[x]  +"},
             {'U', ctrlShift, "[x]  +"},
             {'Q', modifier::shift, "[x]  +"},
             {'I', ctrl + alt, "[x]  +"},
         })
        EXPECT_EQ(pressing(keyCode, shift), result);
    std::string ran;
    const auto note = [&ran](const char* chord) { return [&ran, chord] { ran = chord; }; };
    htmlkeys::fileChords() = {note("preview"), note("link"), note("close"), note("save")};
    for (const auto& [keyCode, chord, result] : {std::tuple{'D', "preview", "[x] "},
                                                 {'L', "link", "[x] "},
                                                 {'W', "close", "[x]  +"},
                                                 {'S', "save", "[x] Text1"}}) {
        EXPECT_EQ(pressing(keyCode, ctrlShiftAlt), result);
        EXPECT_EQ(ran, chord);
    }
    htmlkeys::fileChords() = {};
}

TEST_F(Insertion, ADocumentMayCloseByAChordOfItsOwn) {
    dynamic_cast<TextBuffer&>(open("b.htm", "").SourceRTB()).press('W', modifier::ctrl + modifier::shift);
    dynamic_cast<TextBuffer&>(*text).press('1', modifier::ctrl + modifier::shift);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "<H1></H1>");
    EXPECT_EQ(panelText(panel::saved), "File Saved: No");
}

TEST_F(Insertion, TheFirstTwoCommasOfATagsLinePartItAndALineWithoutEndsTheList) {
    std::string fault;
    setErrorSink([&](const Error& error) { fault = error.description(); });
    for (const auto& [bytes, cells] : {
             std::pair{"<B>,</B>,b, c,\r\n <I>, </I>, i\r<U>,</U>\n<A HREF=\"\">,,\xE9",
                       "<B>|</B>|b, c,/ <I>| </I>| i/<U>|</U>|/<A HREF=\"\">||é/"},
             {"<B>,</B>,b\r\n", "<B>|</B>|b/"},
             {"<B>,</B>,b\r\n\r\n<U>,</U>,u", "<B>|</B>|b/Line 2 of tags.txt has no comma"},
             {"\xFF\x1A,\x80\n\x80", "ÿ\x1A|€|/Line 2 of tags.txt has no comma"},
             {"", ""},
         }) {
        files.write("program/tags.txt", bytes);
        fault.clear();
        mnuInsert_Tags_Click();
        std::string seen;
        const ReportView& list = toolForm<Tags>().ListView1;
        for (int i = 0; i < static_cast<int>(list.count()); ++i)
            seen += list.cell(i, 0) + "|" + list.cell(i, 1) + "|" + list.cell(i, 2) + "/";
        EXPECT_EQ(seen + fault, cells);
        EXPECT_TRUE(toolForm<Tags>().isLoaded());
        toolForm<Tags>().unload();
    }
}

TEST_F(Insertion, TheFloatingToolsServeTheDocumentOrTheTableWizardsCell) {
    const auto areOpen = [](bool tagsAre, bool charactersAre) {
        EXPECT_EQ(mainForm().menu("mnuInsert_Tags").checked(), tagsAre);
        EXPECT_EQ(mainForm().Toolbar1.button("Tags").pressed, tagsAre);
        EXPECT_EQ(mainForm().Toolbar1.button("Special Chars").pressed, charactersAre);
        EXPECT_EQ(std::pair(toolForm<Tags>().isLoaded(), toolForm<SpecialCharacterInsertion>().isLoaded()),
                  std::pair(tagsAre, charactersAre));
    };
    platform.expectMessage({.text = "The tags.lst file does not exist.\r\nPlease restore from backup, re-install, "
                                    "or visit the home page and download a new copy.",
                            .title = "Tags file missing",
                            .icon = MessageIcon::critical});
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
    EXPECT_EQ(after(tag(2)), "a[<HR>b(N/A)]c Text1");

    Form wizard("frmTableWiz", "Table Wizard");
    TextBuffer cell(wizard, "txtCellText");
    setDeliveryTarget("frmTableWiz", &cell);
    EXPECT_EQ(after(sharpS), "a&szlig;[]c ") << "the wizard is not in front";
    setActiveFormName("frmTableWiz");
    text = &cell;
    EXPECT_EQ(after(tag(0)), "a<B>b</B>[]c ListView1");
    EXPECT_EQ(after(tag(1)), "a<BR>b[]c ListView1");
    EXPECT_EQ(after(sharpS), "a&szlig;[]c ");
    const auto formatted = inDialog<TextFormat>(mnuFormatText_Quick_Click, [](TextFormat& form) {
        form.optAlign[2].click();
        for (CheckBox* box : {&form.chkBold, &form.chkBlink, &form.chkSuperscript, &form.chkBig}) box->click();
        form.cmdInsert.click();
    });
    EXPECT_EQ(after(formatted), "a<BIG><SUP><BLINK><B><DIV ALIGN=\"RIGHT\">b</DIV></B></BLINK></SUP></BIG>[]c ");
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
