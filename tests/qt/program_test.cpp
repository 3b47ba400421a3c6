// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <QtWidgets>
#include <deque>
#include <filesystem>
#include <functional>

#include "authoring/special_character_insertion.h"
#include "authoring/tags.h"
#include "batch/find.h"
#include "core/document_manager.h"
#include "frame/main_frame.h"
#include "program/startup.h"
#include "qt/qt_platform.h"
#include "support/settings.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/fresh_state.h"

namespace kelvor {
namespace {

/// The whole program in its real window: keys go in, and what counts is the files on disk.
class Program : public testing::Test {
protected:
    Program() {
        SaveSetting(application, "User", "LCase", "False");
        EXPECT_TRUE(startKelvor());
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        QObject::connect(&dialogPoll_, &QTimer::timeout, [this] { answerDialog(); });
        dialogPoll_.start(5);
    }

    ~Program() override {
        EXPECT_TRUE(dialogs_.empty()) << "a dialog never came";
        dialogs_.clear();
        for (int question = 0; question < 2; ++question) answerNextBox(QMessageBox::No);
        if (mainForm().isLoaded()) mainForm().unload();
        releaseMainForm();
    }

    QMainWindow& window() { return *qobject_cast<QMainWindow*>(platform.windows().widgetOf(mainForm())); }
    static QWidget& text() {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
        return *QApplication::focusWidget();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&text(), key, modifiers);
    }
    void type(const char* keys) { QTest::keyClicks(&text(), QString::fromUtf8(keys)); }

    /// The next modal window or popup is given to `steps`, which must close it.
    void whenDialogOpens(std::function<void(QWidget&)> steps) { dialogs_.push_back(std::move(steps)); }

    void answerNextBox(QMessageBox::StandardButton button) {
        whenDialogOpens([button](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(button)->click(); });
    }

    void enterIntoNextDialog(const QString& names) {
        whenDialogOpens([names](QWidget& dialog) {
            auto& field = *dialog.findChild<QLineEdit*>("fileNameEdit");
            field.setText(names);
            QTest::keyClick(&field, Qt::Key_Return);
        });
    }
    /// Chooses File, Open by its keys and enters the paths into the dialog.
    void openByDialog(const std::vector<std::string>& paths) {
        QStringList names;
        for (const auto& path : paths) names += "\"" + QString::fromStdString(path) + "\"";
        enterIntoNextDialog(names.join(' '));
        QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
        QApplication::processEvents();
    }

    void clickTab(const char* caption) {
        auto& tabs = *window().findChild<QTabBar*>("TabStrip1");
        int index = 0;
        while (tabs.tabText(index) != caption) ++index;
        QTest::mouseClick(&tabs, Qt::LeftButton, Qt::NoModifier, tabs.tabRect(index).center());
    }

    /// Chooses a row of the list of headings, as a person does who has it in focus.
    void chooseHeading(int row) {
        auto& list = *window().findChild<QComboBox*>("Combo1");
        list.setFocus();
        emit list.activated(row);
    }

    TestDirectory files;
    FreshState state{files.path("settings")};
    qt::QtPlatform platform;

private:
    void answerDialog() {
        constexpr const char* answered = "answered";
        QWidget* dialog = QApplication::activePopupWidget();
        if (!dialog) dialog = QApplication::activeModalWidget();
        if (!dialog || dialogs_.empty() || dialog->property(answered).toBool()) return;
        dialog->setProperty(answered, true);
        const auto steps = std::move(dialogs_.front());
        dialogs_.pop_front();
        // Not in the timer's own event, which would not come again for a dialog above this one.
        QTimer::singleShot(0, dialog, [steps, dialog] { steps(*dialog); });
    }

    QTimer dialogPoll_;
    std::deque<std::function<void(QWidget&)>> dialogs_;
};

std::string allBytes() {
    std::string bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    return bytes;
}

TEST_F(Program, ChangesOnlyTheBytesThatWereTyped) {
    openByDialog({files.write("latin.htm", "caf\xE9 one\r\ntwo\nthree\rfour\x81\r\n"),
                  files.write("utf.htm", "caf\xC3\xA9 \xE2\x82\xAC\nlast line"), files.write("bytes.bin", allBytes())});
    press(Qt::Key_End, Qt::ControlModifier);
    type("end");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("bytes.bin"), allBytes() + "end");

    clickTab("latin.htm");
    type("x");
    press(Qt::Key_Right, Qt::ControlModifier);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    chooseHeading(2);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("latin.htm"), "xcaf\xE9 <H2>one</H2>\r\ntwo\nthree\rfour\x81\r\n");

    clickTab("utf.htm");
    press(Qt::Key_End);
    press(Qt::Key_Return);
    type("new");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("utf.htm"), "caf\xC3\xA9 \xE2\x82\xAC\nnew\nlast line");
}

TEST_F(Program, ClipboardChordsActOnce) {
    openByDialog({files.write("a.htm", "word")});
    for (const auto key : {Qt::Key_A, Qt::Key_C, Qt::Key_End, Qt::Key_V, Qt::Key_V, Qt::Key_Z})
        press(key, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "wordword");
}

TEST_F(Program, ADialogThatFindsStandsBesideTheMatch) {
    openByDialog({files.write("a.htm", "word")});
    const QWidget& page = *dynamic_cast<QAbstractScrollArea&>(text()).viewport();
    press(Qt::Key_F, Qt::ControlModifier);
    QWidget& dialog = *platform.windows().widgetOf(toolForm<Find>());
    dialog.move(page.mapToGlobal(QPoint(0, 0)));
    toolForm<Find>().cboFindText.setText("word");
    toolForm<Find>().cmdFind.click();
    EXPECT_FALSE(dialog.frameGeometry().contains(page.mapToGlobal(QPoint(6, 6))));
}

TEST_F(Program, TheRoadOfOneCommandLeadsFromASelectedWordToThePreview) {
    openByDialog({files.write("page.htm", "<P>one word</P>\r\n")});
    auto& source = mainForm().activeForm().Text1;
    while (source.selStart() < 7) press(Qt::Key_Right);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);

    // The popup menu's Format..., Bold, by its keys.
    whenDialogOpens([](QWidget&) {
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Right, Qt::Key_Up, Qt::Key_Up,
                                  Qt::Key_Up, Qt::Key_Return})
            QTest::keyClick(QApplication::activePopupWidget(), key);
    });
    QTest::mouseClick(dynamic_cast<QAbstractScrollArea&>(text()).viewport(), Qt::RightButton);
    QApplication::processEvents();
    EXPECT_EQ(source.selText(), "<B>word</B>");
    QTest::keyClick(&window(), Qt::Key_V, Qt::AltModifier);
    answerNextBox(QMessageBox::Yes);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_P);
    EXPECT_EQ(files.read("page.htm"), "<P>one <B>word</B></P>\r\n");
    EXPECT_FALSE(mainForm().menu("mnuEdit").visible());
    QWidget& pane = *platform.windows().widgetOf(mainForm().activeForm());
    EXPECT_FALSE(pane.findChild<QWidget*>("Text1")->isVisible());
}

/// A page written by the commands, as a person would write it: tags from the windows, links from the prompts.
class Page : public Program {
protected:
    using Program::press;
    Page() { std::filesystem::copy(KELVOR_DATA "/tags.txt", files.path("program/tags.txt")); }

    /// Double clicks the row of a floating window's list whose first or second cell is `text`.
    void pick(Form& form, const char* list, int column, const char* text) {
        auto& view = *platform.windows().widgetOf(form)->findChild<QTreeView*>(list);
        const auto found = view.model()->match(view.model()->index(0, column), Qt::DisplayRole, text, 1,
                                               Qt::MatchExactly | Qt::MatchCaseSensitive);
        ASSERT_EQ(found.size(), 1) << text;
        view.scrollTo(found.front());
        const QPoint place = view.visualRect(found.front()).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    void insertTag(std::string_view place, const char* tag) {
        moveBefore(place);
        pick(toolForm<Tags>(), "ListView1", 0, tag);
    }

    /// Chooses a menu row of which a prompt comes.
    void answer(const char* row, const char* text) {
        whenDialogOpens([text](QWidget& dialog) {
            dialog.findChild<QLineEdit*>()->setText(text);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        choose(row);
    }
    /// Chooses a menu row of which a modal form comes, and presses its buttons.
    void press(const char* row, const std::vector<const char*>& buttons) {
        whenDialogOpens([buttons](QWidget& dialog) {
            for (const char* button : buttons) dialog.findChild<QAbstractButton*>(button)->click();
        });
        choose(row);
    }
    void choose(const char* row) { mainForm().menu(row).click(); }

    EditControl& source() { return mainForm().activeForm().Text1; }
    /// Selects the last place of a text.
    void select(std::string_view text) {
        moveBefore(text);
        source().setSelLength(static_cast<int>(text.size()));
    }
    void moveBefore(std::string_view text) { source().setSelStart(static_cast<int>(source().textView().rfind(text))); }
    /// Types in front of the last place of a text.
    void typeBefore(std::string_view place, const char* keys) {
        moveBefore(place);
        window().activateWindow();
        source().SetFocus();
        type(keys);
    }
};

TEST_F(Page, TheTextHasTheKeyboardAfterASaveOverAFileAndAfterAnInsertFromTheTagsWindow) {
    openByDialog({files.write("page.htm", "one two")});
    enterIntoNextDialog(QString::fromStdString(files.write("there.htm", "old")));
    answerNextBox(QMessageBox::Yes);
    choose("mnuFile_SaveAs");
    EXPECT_EQ(files.read("there.htm"), "one two");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    choose("mnuInsert_Tags");
    ASSERT_TRUE(QTest::qWaitForWindowActive(platform.windows().widgetOf(toolForm<Tags>())));
    select("two");
    pick(toolForm<Tags>(), "ListView1", 0, "<B>");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_TRUE(platform.windows().widgetOf(mainForm().activeForm())->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Page, WrittenWithTheCommandsAloneHasNoErrorForAChecker) {
    openByDialog({files.write("page.htm", "")});
    choose("mnuInsert_Tags");
    insertTag(
        "",
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\" \"http://www.w3.org/TR/html4/loose.dtd\">");
    insertTag("", "<HTML>");
    for (const char* tag : {"<HEAD>", "<BODY>"}) insertTag("</HTML>", tag);
    insertTag("</HEAD>", "<TITLE>");
    typeBefore("</TITLE>", "Our town");
    moveBefore("</BODY>");
    chooseHeading(2);
    typeBefore("</H2>", "The town");

    moveBefore("</BODY>");
    choose("mnuTools_FormatText_Para");
    typeBefore("</P>", "Market, caf");
    choose("mnuInsert_SpecialChars");
    pick(toolForm<SpecialCharacterInsertion>(), "lstSpecChars", 1, "&eacute;");
    choose("mnuInsert_SpecialChars");
    typeBefore("</P>", " and ");
    source().setSelText("\xC3\xBC");
    type("ber all open, as of ");
    select("caf&eacute;");
    answer("mnuInsert_Link_name", "place");
    select("The town");
    answer("mnuInsert_Link_http", "www.example.com");
    select("Market");
    press("mnuInsert_Link_LinkToName", {"cmdMakeLink"});
    select("open");
    press("mnuFormatText_Quick", {"chkBold", "chkItalic", "cmdInsert"});
    moveBefore("</P>");
    press("mnuInsert_Date", {"cmdInsert"});
    whenDialogOpens([this](QWidget& dialog) {
        answerNextBox(QMessageBox::Ok);
        dialog.findChild<QAbstractButton*>("cmdConvert")->click();
    });
    choose("mnuTools_ConvertSpec");
    press(Qt::Key_S, Qt::ControlModifier);

    QProcess checker;
    checker.start("tidy", {"-errors", "-quiet", "-utf8", QString::fromStdString(files.path("page.htm"))});
    ASSERT_TRUE(checker.waitForFinished()) << "there is no HTML checker (tidy) here";
    const std::string page = files.read("page.htm");
    EXPECT_EQ(checker.readAllStandardError().toStdString(), "") << page;
    for (const char* part :
         {"<H2><A HREF=\"http://www.example.com\">The town</A></H2>",
          "<A HREF=\"#place\">Market</A>, <A NAME=\"place\">caf&eacute;</A> and &uuml;ber all <I><B>open"})
        EXPECT_NE(page.find(part), std::string::npos) << part << "\n" << page;
}

}  // namespace
}  // namespace kelvor
