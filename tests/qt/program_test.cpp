#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

#include "authoring/common.h"
#include "core/document_manager.h"
#include "core/frame.h"
#include "core/startup.h"
#include "platform/qt/qt_platform.h"
#include "support/settings.h"
#include "tests/fake_platform.h"

namespace kelvor {
namespace {

/// The whole program in its real window: keys go in, and what counts is the files on disk.
class Program : public testing::Test {
protected:
    Program() {
        setenv("XDG_RUNTIME_DIR", files.path("settings").c_str(), 1);
        SaveSetting(application, "User", "LCase", "False");
        started_ = startKelvor();
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        QObject::connect(&dialogPoll_, &QTimer::timeout, [this] { answerDialog(); });
        dialogPoll_.start(5);
    }

    ~Program() override {
        EXPECT_TRUE(dialogs_.empty()) << "a dialog never came";
        dialogs_.clear();
        whenDialogOpens([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::No)->click(); });
        whenDialogOpens([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::No)->click(); });
        if (mainForm().isLoaded()) mainForm().unload();
        releaseMainForm();
        closeSettings();
        fontList.clear();
        userStrings.clear();
        lastDir.clear();
    }

    QMainWindow& window() { return *qobject_cast<QMainWindow*>(platform.windows().widgetOf(mainForm())); }
    QWidget& text() {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
        return *QApplication::focusWidget();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&text(), key, modifiers);
    }
    void type(const char* keys) { QTest::keyClicks(&text(), QString::fromUtf8(keys)); }

    /// The next modal window is given to `steps`, which must close it.
    void whenDialogOpens(std::function<void(QWidget&)> steps) { dialogs_.push_back(std::move(steps)); }

    /// Chooses File, Open by its keys and enters the paths into the dialog.
    void openByDialog(const std::vector<std::string>& paths) {
        whenDialogOpens([paths](QWidget& dialog) {
            QString names;
            for (const auto& path : paths) names += "\"" + QString::fromStdString(path) + "\" ";
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(names.trimmed());
            QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
        // Without a window manager nobody gives the focus back when the dialog has gone.
        window().activateWindow();
        QApplication::processEvents();
    }

    void clickTab(const char* caption) {
        auto& tabs = *window().findChild<QTabBar*>("TabStrip1");
        for (int index = 0; index < tabs.count(); ++index) {
            if (tabs.tabText(index) == caption)
                QTest::mouseClick(&tabs, Qt::LeftButton, Qt::NoModifier, tabs.tabRect(index).center());
        }
        QApplication::processEvents();
    }

    /// Chooses a row of one of the insert lists with the keys of a person who has the list in focus.
    void chooseInList(const char* name, int row) {
        auto& list = *window().findChild<QComboBox*>(name);
        list.setFocus();
        for (int step = 0; step < row; ++step) emit list.activated(step + 1 == row ? row : 0);
        QApplication::processEvents();
    }

    TestDirectory files;
    qt::QtPlatform platform;
    bool started_ = false;

private:
    void answerDialog() {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || dialogs_.empty() || dialog == answered_) return;
        answered_ = dialog;
        const auto steps = std::move(dialogs_.front());
        dialogs_.pop_front();
        steps(*dialog);
        answered_ = nullptr;
    }

    QTimer dialogPoll_;
    std::deque<std::function<void(QWidget&)>> dialogs_;
    QWidget* answered_ = nullptr;
};

std::string allBytes() {
    std::string bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    return bytes;
}

TEST_F(Program, ChangesOnlyTheBytesThatWereTyped) {
    ASSERT_TRUE(started_);
    const std::string mixed = "caf\xE9 one\r\ntwo\nthree\rfour\x81\r\n";
    const std::string unix8 = "caf\xC3\xA9 \xE2\x82\xAC\nlast line";
    openByDialog(
        {files.write("latin.htm", mixed), files.write("utf.htm", unix8), files.write("bytes.bin", allBytes())});
    ASSERT_EQ(documentManager()->MyDocuments().Count(), 3U);

    press(Qt::Key_End, Qt::ControlModifier);
    type("end");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("bytes.bin"), allBytes() + "end");

    clickTab("latin.htm");
    type("x");
    press(Qt::Key_Right, Qt::ControlModifier);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    chooseInList("Combo1", 2);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("latin.htm"), "xcaf\xE9 <H2>one</H2>\r\ntwo\nthree\rfour\x81\r\n");

    clickTab("utf.htm");
    press(Qt::Key_End);
    press(Qt::Key_Return);
    type("new");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("utf.htm"), "caf\xC3\xA9 \xE2\x82\xAC\nnew\nlast line");
}

TEST_F(Program, ASaveWithoutAnEditGivesBackEveryByte) {
    ASSERT_TRUE(started_);
    const std::vector<std::string> samples = {"",
                                              "\xEF\xBB\xBF",
                                              "\xEF\xBB\xBF<P>\xEF\xBB\xBF",
                                              std::string("\xFF\xFE<\0\xE9\0\r\0\n\0", 10),
                                              std::string("\xFE\xFF\0<", 4),
                                              "\xFF\xFE<",
                                              "\xC3(\xA0\x80\r\r\n",
                                              allBytes() + allBytes()};
    std::vector<std::string> paths;
    for (std::size_t index = 0; index < samples.size(); ++index)
        paths.push_back(files.write("sample" + std::to_string(index), samples[index]));
    openByDialog(paths);
    ASSERT_EQ(documentManager()->MyDocuments().Count(), samples.size());
    for (const std::string& path : paths) std::remove(path.c_str());
    for (std::size_t index = samples.size(); index-- > 0;) {
        press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(files.read("sample" + std::to_string(index)), samples[index]) << "sample " << index;
        press(Qt::Key_Q, Qt::ControlModifier);
    }
}

TEST_F(Program, TheWindowsCloseBoxAsksAndStaysOnCancel) {
    ASSERT_TRUE(started_);
    const std::string path = files.write("a.htm", "old");
    openByDialog({path});
    type("new");
    QString asked;
    whenDialogOpens([&](QWidget& box) {
        auto& message = dynamic_cast<QMessageBox&>(box);
        asked = message.windowTitle() + "|" + message.text();
        EXPECT_EQ(message.icon(), QMessageBox::Question);
        EXPECT_EQ(message.defaultButton()->text(), message.button(QMessageBox::Yes)->text());
        message.button(QMessageBox::Cancel)->click();
    });
    window().close();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(asked.toStdString().substr(0, 7), "Kelvor|");
    EXPECT_NE(asked.indexOf("The text in [" + QString::fromStdString(path) + "] has changed."), -1);
    whenDialogOpens([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
    window().close();
    EXPECT_FALSE(mainForm().isLoaded());
    EXPECT_EQ(files.read("a.htm"), "newold");
}

TEST_F(Program, ClipboardChordsActOnce) {
    ASSERT_TRUE(started_);
    openByDialog({files.write("a.htm", "word")});
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_End);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "wordword");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "word");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "");
}

}  // namespace
}  // namespace kelvor
