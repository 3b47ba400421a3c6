// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>

#include "qt/application.h"
#include "tests/kit/faults.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(QtForms, AMessageShowsAndSpeaksItsTextsPlainWithoutTheHourglassAndGivesTheButton) {
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
        EXPECT_TRUE(box.width() < 700 && box.height() < 600);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(platform().dialogs.message(message), Answer::no);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(QtForms, EscapeAnswersAsTheButtonsAllow) {
    for (const auto& [buttons, answer] : {std::pair{MessageButtons::ok, Answer::ok},
                                          {MessageButtons::yesNo, Answer::no},
                                          {MessageButtons::yesNoCancel, Answer::cancel}}) {
        onDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(platform().dialogs.message({.text = "?", .buttons = buttons}), answer);
    }
    onDialog<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.textValue(), "standard");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(platform().dialogs.input({.standard = "standard"}), "");
}

TEST_F(QtForms, ASignalToEndClosesWhatIsOpenAndAsksThenOnce) {
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

TEST_F(QtForms, AProgramStartsFromItsWordsAlone) {
    const ScratchDirectory directory;
    const std::string file = directory.write("file", "text");
    const std::string copy = directory / "a copy; touch x";
    platform().shell.start({"cp", "file", "a copy; touch x"}, directory.path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(toQt(copy)); }));

    const auto failure = [&](const std::vector<std::string>& words, const std::string& place = {}) {
        return errorOf([&] { platform().shell.start(words, place); }).substr(0, 3);
    };
    EXPECT_EQ(failure({"no-such-program-anywhere"}), "53 ");
    EXPECT_EQ(failure({}), "53 ");
    EXPECT_EQ(failure({file}), "75 ");
    EXPECT_EQ(failure({"cp"}, directory / "missing"), "76 ");
    for (const char* target : {"", "/no/such/file.html"}) EXPECT_FALSE(platform().shell.open(target)) << target;
}

TEST_F(QtForms, DaysAndTimesAreToldInTheLanguageOfTheDesktopAndWithoutTheZone) {
    const Date day{2026, 11, 5};
    const std::string month = fromQt(QLocale::system().toString(QDate(2026, 11, 5), "MMM"));
    EXPECT_EQ(platform().clock.mediumDate(day), "05-" + month + "-26");
    EXPECT_NE(platform().clock.longDate(day).find(platform().clock.monthName(day)), std::string::npos);
    const std::string time = platform().clock.time({day, 9, 5, 7});
    EXPECT_NE(time.find("05"), std::string::npos) << time;
    EXPECT_FALSE(toQt(time).contains(QDateTime::currentDateTime().timeZoneAbbreviation())) << time;
}

TEST_F(QtForms, HelpShowsAPageOrSaysWhichIsMissing) {
    const ScratchDirectory directory;
    directory.write("33.html", "<p>All keys");
    directory.write("index.html", "<p>Welcome</p>");
    const std::string file = directory / "Kelvor HTML Help.chm";
    const auto show = [this](const std::string& address) {
        platform().help.show(address);
        return platform_.help().window()->browser().toPlainText().toStdString();
    };
    EXPECT_EQ(show(file + "::/33.html"), "All keys");
    EXPECT_EQ(show(file), "Welcome");
    EXPECT_NE(show(file + "::/../../etc/passwd").find("\"passwd\" is not there"), std::string::npos);
    HelpWindow& window = *platform_.help().window();
    window.findChild<QToolBar*>()->actions().front()->trigger();
    EXPECT_EQ(window.browser().toPlainText(), "Welcome") << "back";
}

}  // namespace
}  // namespace kelvor::qt
