#include <QProcess>
#include <QTreeView>
#include <filesystem>

#include "authoring/convert.h"
#include "authoring/date_time.h"
#include "authoring/named_links.h"
#include "authoring/special_character_insertion.h"
#include "authoring/tags.h"
#include "authoring/text_format.h"
#include "tests/qt/program_fixture.h"

namespace kelvor {
namespace {

/// A page written by the commands, as a person would write it: tags from the windows, links from the prompts.
class Page : public Program {
protected:
    QWidget& windowOf(Form& form) { return *platform.windows().widgetOf(form); }

    /// Double clicks the row of a floating window's list whose first or second cell is `text`.
    void pick(Form& form, const char* list, int column, const QString& text) {
        auto& view = *windowOf(form).findChild<QTreeView*>(list);
        const QModelIndex start = view.model()->index(0, column);
        const auto found =
            view.model()->match(start, Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchCaseSensitive);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        view.scrollTo(found.front());
        const QPoint place = view.visualRect(found.front()).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    void insertTag(const char* tag) { pick(tags(), "ListView1", 0, QString::fromUtf8(tag)); }
    void insertCharacter(const char* entity) {
        pick(specialCharacterInsertion(), "lstSpecChars", 1, QString::fromUtf8(entity));
    }

    /// Answers the next input box.
    void answerPrompt(const char* answer) {
        whenDialogOpens([answer](QWidget& dialog) {
            auto& field = *dialog.findChild<QLineEdit*>();
            field.setText(QString::fromUtf8(answer));
            QTest::keyClick(&field, Qt::Key_Return);
        });
    }
    void choose(const char* row) { mainForm().menu(row).click(); }

    EditControl& source() { return mainForm().activeForm().Text1; }
    /// Puts the caret in front of the last place of a text.
    void moveBefore(std::string_view text) { source().setSelStart(static_cast<int>(source().textView().rfind(text))); }
    void select(std::string_view text) {
        moveBefore(text);
        source().setSelLength(static_cast<int>(text.size()));
    }
    /// Types in front of the last place of a text.
    void typeBefore(std::string_view place, const char* keys) {
        moveBefore(place);
        window().activateWindow();
        source().SetFocus();
        type(keys);
    }
    /// Presses a button of the next modal form.
    void pressInDialog(const char* button) {
        whenDialogOpens([button](QWidget& dialog) { dialog.findChild<QAbstractButton*>(button)->click(); });
    }
};

/// What the checker says of a page; its code is 2 when it found an error.
std::pair<int, std::string> checked(const std::string& path) {
    QProcess tidy;
    tidy.start("tidy", {"-errors", "-quiet", "-utf8", QString::fromStdString(path)});
    tidy.waitForFinished();
    return {tidy.error() == QProcess::FailedToStart ? -1 : tidy.exitCode(), tidy.readAllStandardError().toStdString()};
}

TEST_F(Page, WrittenWithTheCommandsAloneHasNoErrorForAChecker) {
    ASSERT_TRUE(started_);
    std::filesystem::copy(KELVOR_DATA "/tags.txt", files.path("program/tags.txt"));
    const std::string path = files.write("page.htm", "");
    openByDialog({path});
    choose("mnuInsert_Tags");
    insertTag(
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\" \"http://www.w3.org/TR/html4/loose.dtd\">");
    insertTag("<HTML>");
    moveBefore("</HTML>");
    for (const char* tag : {"<HEAD>", "<BODY>"}) insertTag(tag);
    moveBefore("</HEAD>");
    insertTag("<TITLE>");
    typeBefore("</TITLE>", "Our town");
    moveBefore("</BODY>");
    choose("mnuInsert_Tags");
    chooseInList("Combo1", 2);
    typeBefore("</H2>", "The town");

    moveBefore("</BODY>");
    choose("mnuTools_FormatText_Para");
    typeBefore("</P>", "Market, caf");
    choose("mnuInsert_SpecialChars");
    insertCharacter("&eacute;");
    choose("mnuInsert_SpecialChars");
    typeBefore("</P>", " and ");
    source().setSelText("\xC3\xBC");
    type("ber all open, as of ");
    select("caf&eacute;");
    answerPrompt("place");
    choose("mnuInsert_Link_name");
    select("The town");
    answerPrompt("www.example.com");
    choose("mnuInsert_Link_http");
    select("Market");
    pressInDialog("cmdMakeLink");
    choose("mnuInsert_Link_LinkToName");

    select("open");
    whenDialogOpens([](QWidget& dialog) {
        dialog.findChild<QAbstractButton*>("chkBold")->click();
        dialog.findChild<QAbstractButton*>("chkItalic")->click();
        dialog.findChild<QAbstractButton*>("cmdInsert")->click();
    });
    choose("mnuFormatText_Quick");
    moveBefore("</P>");
    pressInDialog("cmdInsert");
    choose("mnuInsert_Date");
    select("<I><B>open</B></I>");
    choose("mnuEdit_StripSel");
    pressInDialog("cmdConvert");
    whenDialogOpens([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click(); });
    choose("mnuTools_ConvertSpec");
    press(Qt::Key_S, Qt::ControlModifier);

    const std::string page = files.read("page.htm");
    const auto [code, findings] = checked(path);
    ASSERT_GE(code, 0) << "there is no HTML checker (tidy) here";
    EXPECT_LT(code, 2) << findings << page;
    EXPECT_EQ(findings, "") << page;
    for (const char* part : {"<H2><A HREF=\"http://www.example.com\">The town</A></H2>",
                             "<A HREF=\"#place\">Market</A>, <A NAME=\"place\">caf&eacute;</A> and &uuml;ber all open"})
        EXPECT_NE(page.find(part), std::string::npos) << part << "\n" << page;
}

}  // namespace
}  // namespace kelvor
