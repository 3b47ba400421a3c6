#include "authoring/selection_commands.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

TEST(InitialCase, ChangesTheFirstCharacterOfEachWord) {
    struct Case {
        const char* text;
        InitialCase mode;
        const char* result;
    };
    constexpr auto lower = InitialCase::lower;
    constexpr auto upper = InitialCase::upper;
    for (const Case& row : {
             Case{"the cat", upper, "The Cat"},
             {"THE CAT", upper, "The Cat"},
             {"The Cat", lower, "the cat"},
             {"THE CAT", lower, "tHE cAT"},
             {"two  blanks", upper, "Two  Blanks"},
             {" begins", upper, " Begins"},
             {"line\nbreak\tand tab", upper, "Line\nbreak\tand Tab"},
             {"\xC3\xA9t\xC3\xA9 \xC3\xA0 \xCE\xB1\xCE\xB2", upper, "\xC3\x89t\xC3\xA9 \xC3\x80 \xCE\x91\xCE\xB2"},
             {"", upper, ""},
         }) {
        EXPECT_EQ(applyInitialCase(row.text, " ", row.mode), row.result) << row.text;
    }
}

class CaseCommands : public KelvorTest {
protected:
    CaseCommands() {
        start();
        text = &open("a.htm", "").SourceRTB();
    }

    void select(const std::string& whole) {
        text->setText(whole);
        text->selectAll();
        platform.focused.clear();
    }

    EditControl* text = nullptr;
};

TEST_F(CaseCommands, ReplaceTheSelectionAndLeaveTheCaretBehindIt) {
    struct Case {
        const char* row;
        const char* result;
        bool focuses;
    };
    for (const Case& row : {
             Case{"mnuTools_FormatText_Case_Lower",
                  "stra\xC3\x9F"
                  "e und caf\xC3\xA9",
                  true},
             {"mnuTools_FormatText_Case_Upper", "STRASSE UND CAF\xC3\x89", true},
             {"mnuFormat_textCase_LfLet",
              "stra\xC3\x9F"
              "e und caf\xC3\x89",
              false},
             {"mnuFormat_textCase_UfLet",
              "Stra\xC3\x9F"
              "e Und Caf\xC3\xA9",
              false},
         }) {
        select(
            "Stra\xC3\x9F"
            "e Und Caf\xC3\x89");
        menu(row.row).click();
        EXPECT_EQ(text->text(), row.result) << row.row;
        EXPECT_EQ(text->selLength(), 0);
        EXPECT_EQ(text->selStart(), text->textLength());
        EXPECT_EQ(platform.focused == "Text1", row.focuses) << row.row;
    }
}

TEST_F(CaseCommands, ASelectionThatEndsInABlankIsAnErrorAndStays) {
    select("one ");
    int told = 0;
    setErrorSink([&](const Error& error) { told = error.number(); });
    menu("mnuFormat_textCase_UfLet").click();
    EXPECT_EQ(told, error_number::invalidProcedureCall);
    EXPECT_EQ(text->text(), "one ");
    EXPECT_EQ(text->selLength(), 4);
}

}  // namespace
}  // namespace kelvor
