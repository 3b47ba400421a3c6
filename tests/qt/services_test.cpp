#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>
#include <fstream>

#include "platform/qt/application.h"
#include "platform/qt/file_filter.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

/// Runs `steps` on the next dialog that opens.
template <typename Dialog>
void onDialog(std::function<void(Dialog&)> steps) {
    QTimer::singleShot(0, [steps = std::move(steps)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        steps(*dialog);
    });
}

TEST(NameFilters, AreRowsOfANameAndItsPatterns) {
    struct Case {
        const char* filter = "";
        QStringList rows;
    };
    const Case cases[] = {
        {"HTML|*.htm;*.html", {"HTML (*.htm *.html)"}},
        {"All Files (*.*)|*.*|Pages (*.asp)|*.asp;", {"All Files (*.*) (*)", "Pages (*.asp) (*.asp)"}},
        {"Empty|", {"Empty (*)"}},
        {"", {"All Files (*)"}},
        {"No pattern", {"All Files (*)"}},
        {"A| *.a ; *.b |rest", {"A (*.a *.b)"}},
    };
    for (const Case& each : cases) EXPECT_EQ(nameFilters(each.filter), each.rows) << each.filter;
}

using Services = QtForms;

TEST_F(Services, AMessageShowsItsTextPlainAndGivesTheButton) {
    const Message message{.text = "<B>one</B>\r\ntwo",
                          .title = "Title",
                          .icon = MessageIcon::exclamation,
                          .buttons = MessageButtons::yesNoCancel,
                          .standard = Answer::no};
    onDialog<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<B>one</B>\ntwo");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Title");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(kelvor::platform().dialogs.message(message), Answer::no);
}

TEST_F(Services, EscapeAnswersAsTheButtonsAllow) {
    struct Case {
        MessageButtons buttons;
        Answer answer;
    };
    for (const Case& each : {Case{MessageButtons::ok, Answer::ok}, Case{MessageButtons::yesNo, Answer::no},
                             Case{MessageButtons::yesNoCancel, Answer::cancel}}) {
        onDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(kelvor::platform().dialogs.message({.text = "?", .buttons = each.buttons}), each.answer);
    }
}

TEST_F(Services, TheHourglassGivesWayToADialog) {
    const Hourglass hourglass;
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    onDialog<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        box.accept();
    });
    kelvor::platform().dialogs.message({.text = "?"});
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(Services, AnInputBoxGivesItsTextOrNothing) {
    onDialog<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.textValue(), "standard");
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        box.setTextValue("ärger");
        box.accept();
    });
    EXPECT_EQ(kelvor::platform().dialogs.input({.prompt = "<BR>", .title = "T", .standard = "standard"}), "ärger");
    onDialog<QInputDialog>([](QInputDialog& box) { box.reject(); });
    EXPECT_EQ(kelvor::platform().dialogs.input({.standard = "standard"}), "");
}

TEST_F(Services, AnOpenDialogTakesSeveralFilesOfItsFilter) {
    const QTemporaryDir directory;
    for (const char* name : {"/one.HTM", "/two.htm", "/three.txt"})
        std::ofstream(fromQt(directory.path()) + name) << "text";
    FileRequest request{.title = "Open", .directory = fromQt(directory.path()), .filter = "All|*.*|HTML|*.htm"};
    request.filterIndex = 2;
    request.multiple = true;
    onDialog<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), "HTML");
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        auto* view = dialog.findChild<QAbstractItemView*>("listView");
        ASSERT_NE(view, nullptr);
        EXPECT_TRUE(QTest::qWaitFor([&] { return view->model()->rowCount(view->rootIndex()) == 2; }));
        view->selectAll();
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("\"one.HTM\" \"two.htm\"");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    const auto paths = kelvor::platform().dialogs.openFiles(request);
    const std::string base = fromQt(directory.path());
    EXPECT_EQ(paths, (std::vector<std::string>{base + "/one.HTM", base + "/two.htm"}));
}

TEST_F(Services, ASaveDialogAsksBeforeItOverwrites) {
    const QTemporaryDir directory;
    const std::string path = fromQt(directory.path()) + "/there.htm";
    std::ofstream(path) << "text";
    FileRequest request{.directory = fromQt(directory.path()), .filter = "All|*.*"};
    int asked = 0;
    for (const bool prompt : {true, false}) {
        request.overwritePrompt = prompt;
        onDialog<QFileDialog>([&](QFileDialog& dialog) {
            if (prompt) {
                onDialog<QMessageBox>([&](QMessageBox& box) {
                    ++asked;
                    box.button(QMessageBox::Yes)->click();
                });
            }
            dialog.selectFile("there.htm");
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        EXPECT_EQ(kelvor::platform().dialogs.saveFile(request), path);
    }
    EXPECT_EQ(asked, 1);
    onDialog<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(kelvor::platform().dialogs.saveFile(request), std::nullopt);
}

TEST_F(Services, AColourHasItsRedInTheLowByte) {
    onDialog<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(0x11, 0x22, 0x33));
        dialog.accept();
    });
    EXPECT_EQ(kelvor::platform().dialogs.color(), 0x332211);
    onDialog<QColorDialog>([](QColorDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(kelvor::platform().dialogs.color(), std::nullopt);
}

TEST_F(Services, AProgramStartsFromItsWordsAlone) {
    const QTemporaryDir directory;
    const std::string base = fromQt(directory.path());
    const std::string copy = base + "/a copy; touch x";
    std::ofstream(base + "/file") << "text";
    kelvor::platform().shell.start({"cp", base + "/file", copy}, "/");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(toQt(copy)); }));
    EXPECT_FALSE(QFile::exists("x"));

    struct Case {
        std::vector<std::string> words;
        std::string workingDirectory;
        int error;
    };
    const Case cases[] = {
        {{"no-such-program-anywhere"}, "", error_number::fileNotFound},
        {{base + "/missing"}, "", error_number::fileNotFound},
        {{base + "/file"}, "", error_number::pathAccess},
        {{base}, "", error_number::pathAccess},
        {{"cp"}, base + "/missing", error_number::pathNotFound},
        {{}, "", error_number::fileNotFound},
    };
    for (const Case& each : cases) {
        try {
            kelvor::platform().shell.start(each.words, each.workingDirectory);
            ADD_FAILURE() << "started";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), each.error) << error.description();
        }
    }
}

TEST_F(Services, AFileThatIsNotThereIsNotOpened) {
    for (const char* target : {"", "/no/such/file.html", "C:\\web\\index.html"})
        EXPECT_FALSE(kelvor::platform().shell.open(target)) << target;
}

TEST_F(Services, FontsAreSortedAndEachListedOnce) {
    const auto fonts = kelvor::platform().screen.fonts();
    for (std::size_t i = 1; i < fonts.size(); ++i)
        EXPECT_LT(toQt(fonts[i - 1]).compare(toQt(fonts[i]), Qt::CaseInsensitive), 0) << fonts[i];
}

TEST_F(Services, TheClipboardKeepsEveryCharacter) {
    kelvor::platform().clipboard.setText("a\r\n\xf0\x9f\x98\x80ü");
    EXPECT_EQ(kelvor::platform().clipboard.text(), "a\r\n\xf0\x9f\x98\x80ü");
}

TEST_F(Services, HelpShowsAPageOrSaysWhichIsMissing) {
    const QTemporaryDir directory;
    const std::string base = fromQt(directory.path());
    std::ofstream(base + "/33.html") << "<title>Keys</title><p>All keys <a href=\"34.html\">next</a></p>";
    std::ofstream(base + "/index.html") << "<p>Welcome</p>";
    const std::string file = base + "/Kelvor HTML Help.chm";
    auto& help = kelvor::platform().help;

    help.show(file + "::/33.html");
    HelpWindow& window = *platform_.help().window();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Keys - Kelvor Help");
    EXPECT_EQ(window.browser().toPlainText(), "All keys next");
    help.show(file);
    EXPECT_EQ(window.browser().toPlainText(), "Welcome");
    help.show(file + "::/99.html");
    EXPECT_TRUE(window.browser().toPlainText().contains("\"99.html\" is not there"));
    const auto actions = window.findChild<QToolBar*>()->actions();
    actions[0]->trigger();
    EXPECT_EQ(window.browser().toPlainText(), "Welcome");
    actions[0]->trigger();
    EXPECT_EQ(window.browser().toPlainText(), "All keys next");
    actions[1]->trigger();
    actions[1]->trigger();
    actions[2]->trigger();
    EXPECT_EQ(window.browser().toPlainText(), "Welcome");
    help.show("/no/such/place/help.chm::/1.html");
    EXPECT_TRUE(window.browser().toPlainText().contains("\"1.html\" is not there"));
}

TEST(HelpPage, StandsBesideTheHelpFileAndNowhereElse) {
    EXPECT_EQ(helpAddress("/a b/h.chm::/33.html"), QUrl::fromLocalFile("/a b/33.html"));
    EXPECT_EQ(helpAddress("/a b/h.chm"), QUrl::fromLocalFile("/a b/index.html"));
    EXPECT_EQ(helpAddress("/a/h.chm::/../../etc/passwd"), QUrl::fromLocalFile("/a/passwd"));
}

}  // namespace
}  // namespace kelvor::qt
