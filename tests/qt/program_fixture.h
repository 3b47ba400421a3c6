#pragma once

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

#include "core/document_manager.h"
#include "core/frame.h"
#include "core/startup.h"
#include "platform/qt/qt_platform.h"
#include "support/settings.h"
#include "tests/fake_platform.h"
#include "tests/fresh_state.h"

namespace kelvor {

/// The whole program in its real window: keys go in, and what counts is the files on disk.
class Program : public testing::Test {
protected:
    Program() {
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
    FreshState state{files.path("settings")};
    qt::QtPlatform platform;
    bool started_ = false;

private:
    void answerDialog() {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || dialogs_.empty() || dialog == answered_) return;
        answered_ = dialog;
        const auto steps = std::move(dialogs_.front());
        dialogs_.pop_front();
        // Not in the timer's own event, which would not come again for a dialog above this one.
        QTimer::singleShot(0, dialog, [this, steps, dialog] {
            steps(*dialog);
            if (answered_ == dialog) answered_ = nullptr;
        });
    }

    QTimer dialogPoll_;
    std::deque<std::function<void(QWidget&)>> dialogs_;
    QWidget* answered_ = nullptr;
};

}  // namespace kelvor
