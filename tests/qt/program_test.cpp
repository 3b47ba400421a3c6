// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <QtWidgets>
#include <deque>
#include <functional>

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

TEST_F(Program, ChangesOnlyTheBytesThatWereTyped) {
    std::string bytes = "caf\xE9 one\r\ntwo\nthree\rfour\x81\r\n";
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    openByDialog({files.write("all.bin", bytes), files.write("utf.htm", "caf\xC3\xA9 \xE2\x82\xAC\nlast line")});
    press(Qt::Key_End);
    press(Qt::Key_Return);
    type("new");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("utf.htm"), "caf\xC3\xA9 \xE2\x82\xAC\nnew\nlast line");

    auto& tabs = *window().findChild<QTabBar*>("TabStrip1");
    QTest::mouseClick(&tabs, Qt::LeftButton, Qt::NoModifier, tabs.tabRect(0).center());
    press(Qt::Key_Right, Qt::ControlModifier);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    auto& headings = *window().findChild<QComboBox*>("Combo1");
    headings.setFocus();
    emit headings.activated(2);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("all.bin"), bytes.replace(5, 3, "<H2>one</H2>"));
}

TEST_F(Program, ClipboardChordsActOnceAndADialogThatFindsStandsBesideTheMatch) {
    openByDialog({files.write("a.htm", "word")});
    const QWidget& page = *dynamic_cast<QAbstractScrollArea&>(text()).viewport();
    for (const auto key : {Qt::Key_A, Qt::Key_C, Qt::Key_End, Qt::Key_V, Qt::Key_V, Qt::Key_Z, Qt::Key_F})
        press(key, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "wordword");
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
    EXPECT_FALSE(window().findChild<QWidget*>("Text1")->isVisible());
}

TEST_F(Program, TheTextHasTheKeyboardAfterASaveOverAFileAndAfterAnInsertFromTheTagsWindow) {
    files.write("program/tags.txt", "<B>,</B>,Bold\r\n");
    openByDialog({files.write("page.htm", "one two")});
    enterIntoNextDialog(QString::fromStdString(files.write("there.htm", "old")));
    answerNextBox(QMessageBox::Yes);
    mainForm().menu("mnuFile_SaveAs").click();
    EXPECT_EQ(files.read("there.htm"), "one two");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    mainForm().menu("mnuInsert_Tags").click();
    QWidget& tags = *platform.windows().widgetOf(toolForm<Tags>());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tags));
    const auto& list = *tags.findChild<QTreeView*>("ListView1");
    const QPoint first = list.visualRect(list.model()->index(0, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, first);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    type("x");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("there.htm"), "<B></B>xone two");
}

TEST_F(Program, TheBarOfAChangedFileTakesItsRoomFromTheDocumentsAndIsReachedByItsKeys) {
    openByDialog({files.write("a.htm", "one"), files.write("b.htm", "two")});
    auto& area = *window().findChild<QMdiArea*>("MdiArea1");
    auto& bar = *window().findChild<QWidget*>("picDisk");
    QApplication::processEvents();
    const QSize whole = area.size();
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    files.write("b.htm", "another");
    window().activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }));
    QApplication::processEvents();
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(bar.findChild<QLabel*>("lblDisk"));
    EXPECT_EQ(spoken.role(), QAccessible::Notification);
    EXPECT_EQ(spoken.text(QAccessible::Name), "b.htm has changed on the disk.");
    EXPECT_EQ(area.height() + bar.height(), whole.height());
    EXPECT_EQ(area.geometry().top(), bar.geometry().bottom() + 1);
    const QSize wide = window().size();
    window().resize(620, 420);
    const QWidget& words = *bar.findChild<QLabel*>("lblDisk");
    EXPECT_TRUE(QTest::qWaitFor([&] { return words.width() > 100 && bar.height() < area.height(); }))
        << "in little room";
    window().resize(wide);
    QTest::keyClick(window().windowHandle(), Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "another");
    EXPECT_TRUE(QTest::qWaitFor([&] { return area.size() == whole; }));
}

}  // namespace
}  // namespace kelvor
