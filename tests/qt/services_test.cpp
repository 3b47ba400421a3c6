#include <csignal>

#include "qt/application.h"
#include "tests/kit/scratch_directory.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

using Services = QtForms;

TEST_F(Services, AMessageShowsItsTextPlainWithoutTheHourglassAndGivesTheButton) {
    const Message message{.text = "<B>one</B>\r\ntwo", .buttons = MessageButtons::yesNo, .standard = Answer::no};
    const Hourglass hourglass;
    onDialog<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<B>one</B>\ntwo");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(platform().dialogs.message(message), Answer::no);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(Services, AMessageShowsAndSpeaksItsCauseAndAnyNameOnTheScreen) {
    const std::string name = "/web/<I>a\nb\x1B" + std::string(250, 'n');
    const Message message{.text = "Not saved: " + name + "\r\n" + std::string(3 << 20, 'v'),
                          .cause = "Full\r\n" + name};
    onDialog<QMessageBox>([](QMessageBox& box) {
        const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
        const auto* cause = box.findChild<QLabel*>("qt_msgbox_informativelabel");
        const QString shown = "/web/<I>a\\nb\\x1B" + QString(250, 'n');
        EXPECT_EQ(cause->accessibleName(), "Full\n" + shown);
        EXPECT_EQ(cause->text().remove(QChar(0x200B)), cause->accessibleName());
        EXPECT_EQ(cause->textFormat(), Qt::PlainText);
        EXPECT_LT(cause->fontInfo().pointSizeF(), text->fontInfo().pointSizeF());
        EXPECT_GT(cause->y(), text->y());
        EXPECT_TRUE(text->accessibleName().startsWith("Not saved: " + shown + "\nvvv"));
        EXPECT_EQ(text->text().remove(QChar(0x200B)), text->accessibleName());
        EXPECT_LT(box.width(), 700);
        EXPECT_LT(box.height(), 600);
        box.reject();
    });
    platform().dialogs.message(message);
}

TEST_F(Services, EscapeAnswersAsTheButtonsAllow) {
    const struct {
        MessageButtons buttons;
        Answer answer;
    } rows[] = {{MessageButtons::ok, Answer::ok},
                {MessageButtons::yesNo, Answer::no},
                {MessageButtons::yesNoCancel, Answer::cancel}};
    for (const auto& [buttons, answer] : rows) {
        onDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(platform().dialogs.message({.text = "?", .buttons = buttons}), answer);
    }
    onDialog<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(platform().dialogs.input({.standard = "standard"}), "");
}

TEST_F(Services, ASignalToEndClosesWhatIsOpenAndAsksThenOnce) {
    auto& program = static_cast<Application&>(*qApp);
    for (const int signal : {SIGTERM, SIGHUP}) {
        std::string order;
        program.onExitWanted = [&] {
            order += QApplication::activeModalWidget() ? "early" : "asked";
            QCoreApplication::exit();
            return true;
        };
        QTimer::singleShot(0, [&] {
            QMenu menu;
            menu.addAction("row");
            QTimer::singleShot(0, [&] { raise(signal); });
            menu.exec();
            order += "menu ";
            for (const char* text : {"a", "b"}) {
                const Answer answer = platform().dialogs.message({.text = text, .buttons = MessageButtons::yesNo});
                order += answer == Answer::no ? "no " : "? ";
            }
            platform().dialogs.openFiles({});
            order += "file ";
        });
        EXPECT_EQ(program.run(), 0);
        EXPECT_EQ(order, "menu no no file asked");
    }
    program.onExitWanted = nullptr;
}

TEST_F(Services, AProgramStartsFromItsWordsAlone) {
    const ScratchDirectory directory;
    const std::string file = directory.write("file", "text");
    const std::string copy = directory / "a copy; touch x";
    platform().shell.start({"cp", file, copy}, "/");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(toQt(copy)); }));

    const struct {
        std::vector<std::string> words;
        std::string place;
        int number;
    } failing[] = {
        {{"no-such-program-anywhere"}, "", error_number::fileNotFound},
        {{directory / "missing"}, "", error_number::fileNotFound},
        {{file}, "", error_number::pathAccess},
        {{directory.path()}, "", error_number::pathAccess},
        {{"cp"}, directory / "missing", error_number::pathNotFound},
        {{}, "", error_number::fileNotFound},
    };
    for (const auto& [words, place, number] : failing) {
        try {
            platform().shell.start(words, place);
            ADD_FAILURE() << "started";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), number) << error.description();
        }
    }
    for (const char* target : {"", "/no/such/file.html", "C:\\web\\index.html"})
        EXPECT_FALSE(platform().shell.open(target)) << target;
}

TEST_F(Services, HelpShowsAPageOrSaysWhichIsMissing) {
    const ScratchDirectory directory;
    directory.write("33.html", "<title>Keys</title><p>All keys");
    directory.write("index.html", "<p>Welcome</p>");
    const std::string file = directory / "Kelvor HTML Help.chm";
    const auto show = [this](const std::string& address) {
        platform().help.show(address);
        return platform_.help().window()->browser().toPlainText().toStdString();
    };
    EXPECT_EQ(show(file + "::/33.html"), "All keys");
    HelpWindow& window = *platform_.help().window();
    EXPECT_EQ(window.windowTitle(), "Keys - Kelvor Help");
    EXPECT_EQ(show(file), "Welcome");
    EXPECT_NE(show(file + "::/../../etc/passwd").find("\"passwd\" is not there"), std::string::npos);
    window.findChild<QToolBar*>()->actions().front()->trigger();
    EXPECT_EQ(window.browser().toPlainText(), "Welcome") << "back";
}

}  // namespace
}  // namespace kelvor::qt
