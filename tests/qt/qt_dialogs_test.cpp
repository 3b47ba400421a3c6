// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>

#include "qt/application.h"
#include "tests/kit/scratch_directory.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

using Services = QtForms;

TEST_F(Services, AMessageShowsAndSpeaksItsTextsPlainWithoutTheHourglassAndGivesTheButton) {
    const std::string name = "/web/<I>a\nb\x1B" + std::string(250, 'n');
    const Message message{.text = "<B>Not</B> saved: " + name + "\r\n" + std::string(3 << 20, 'v'),
                          .cause = "Full\r\n" + name,
                          .icon = MessageIcon::question,
                          .buttons = MessageButtons::yesNo,
                          .standard = Answer::no};
    const Hourglass hourglass;
    onDialog<QMessageBox>([](QMessageBox& box) {
        const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
        const auto* cause = box.findChild<QLabel*>("qt_msgbox_informativelabel");
        const QString shown = "/web/<I>a\\nb\\x1B" + QString(250, 'n');
        EXPECT_EQ(cause->accessibleName(), "Full\n" + shown);
        EXPECT_TRUE(text->accessibleName().startsWith("<B>Not</B> saved: " + shown + "\nvvv"));
        for (const QLabel* label : {text, cause}) {
            EXPECT_EQ(label->text().remove(QChar(0x200B)), label->accessibleName());
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
        EXPECT_LT(cause->fontInfo().pointSizeF(), text->fontInfo().pointSizeF());
        EXPECT_GT(cause->y(), text->y());
        EXPECT_LT(box.width(), 700);
        EXPECT_LT(box.height(), 600);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(platform().dialogs.message(message), Answer::no);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
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
    onDialog<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.textValue(), "standard");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
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
    platform().shell.start({"cp", "file", "a copy; touch x"}, directory.path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(toQt(copy)); }));

    const struct {
        std::vector<std::string> words;
        std::string place;
        int number = 0;
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

TEST_F(Services, DaysAndTimesAreToldInTheLanguageOfTheDesktopAndWithoutTheZone) {
    Clock& clock = platform().clock;
    const Date day{2026, 11, 5};
    const std::string month = fromQt(QLocale::system().toString(QDate(2026, 11, 5), "MMM"));
    EXPECT_EQ(clock.mediumDate(day), "05-" + month + "-26");
    EXPECT_EQ(clock.monthName(day).rfind(month.substr(0, 2), 0), 0U);
    EXPECT_NE(clock.longDate(day).find(clock.monthName(day)), std::string::npos);
    const QString time = toQt(clock.time({day, 9, 5, 7}));
    EXPECT_TRUE(time.contains("05") && time.contains("07")) << fromQt(time);
    EXPECT_FALSE(time.contains(QDateTime::currentDateTime().timeZoneAbbreviation())) << fromQt(time);
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
