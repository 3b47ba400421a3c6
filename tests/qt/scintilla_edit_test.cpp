#include "platform/qt/scintilla_edit.h"

#include <Qsci/qsciscintillabase.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <fstream>

#include "platform/qt/key_codes.h"
#include "tests/edit_control_contract.h"

namespace kelvor::qt {
namespace {

class ScintillaEditTest : public testing::Test {
protected:
    ScintillaEditTest() {
        edit->widget()->resize(400, 300);
        edit->widget()->show();
        edit->changed.connect([this] { ++changes; });
        edit->selectionChanged.connect([this] { ++moves; });
    }

    QAbstractScrollArea* area() const { return static_cast<QAbstractScrollArea*>(edit->widget()); }
    QsciScintillaBase* scintilla() const { return static_cast<QsciScintillaBase*>(edit->widget()); }

    /// A key as a keyboard sends it, its place on the board and its text included.
    void press(int key, Qt::KeyboardModifiers modifiers, const QString& text, quint32 scanCode = 0) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, scanCode, 0, 0, text);
            QApplication::sendEvent(edit->widget(), &event);
        }
    }

    FakePlatform platform;
    Form form{"window", "Window", Form::Kind::child};
    std::unique_ptr<ScintillaEdit> edit = std::make_unique<ScintillaEdit>(form, "Text1");
    int changes = 0;
    int moves = 0;
};

TEST_F(ScintillaEditTest, TypingChangesTheTextAndTellsIt) {
    QTest::keyClicks(edit->widget(), "a<B");
    EXPECT_EQ(edit->text(), "a<B");
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(moves, 3);
    EXPECT_EQ(edit->characterCount(), 3);
    QTest::keyClick(edit->widget(), Qt::Key_Backspace);
    QTest::keyClick(edit->widget(), Qt::Key_Tab);
    QTest::keyClick(edit->widget(), Qt::Key_Return);
    EXPECT_EQ(edit->text(), "a<\t\r\n");
    EXPECT_EQ(changes, 6);
    QTest::keyClick(edit->widget(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(edit->selText(), "\r\n");
    EXPECT_EQ(changes, 6);
    edit->undo();
    EXPECT_EQ(static_cast<std::size_t>(edit->characterCount()), characterCount(edit->text()));
}

TEST_F(ScintillaEditTest, EnterFollowsTheLoadedText) {
    const TestDirectory directory;
    edit->LoadFile(directory.write("old", "a\rb"));
    QTest::keyClick(edit->widget(), Qt::Key_Return);
    EXPECT_EQ(edit->text(), "\ra\rb");
}

TEST_F(ScintillaEditTest, ATabReplacesSelectedLines) {
    edit->setText("a\nb\nc");
    edit->setSelLength(3);
    QTest::keyClick(edit->widget(), Qt::Key_Tab);
    EXPECT_EQ(edit->text(), "\t\nc");
}

struct KeyCodeRow {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    quint32 scanCode = 0;
    int code = 0;
    int shift = 0;
};

TEST_F(ScintillaEditTest, HandlersGetKeyCodes) {
    KeyPress down;
    KeyPress up;
    edit->keyDown.connect([&](KeyPress& key) { down = key; });
    edit->keyUp.connect([&](KeyPress& key) { up = key; });
    const auto controlShift = Qt::ControlModifier | Qt::ShiftModifier;
    const KeyCodeRow rows[] = {
        {Qt::Key_B, Qt::ControlModifier, 56, 'B', 2},
        {Qt::Key_1, controlShift, 10, '1', 3},
        {Qt::Key_Exclam, controlShift, 10, '1', 3},
        // A German keyboard has these signs above its digits.
        {Qt::Key_QuoteDbl, controlShift, 11, '2', 3},
        {Qt::Key_section, controlShift, 12, '3', 3},
        {Qt::Key_Slash, controlShift, 16, '7', 3},
        {Qt::Key_Equal, controlShift, 19, '0', 3},
        // A French one has them below, and its letters elsewhere.
        {Qt::Key_6, controlShift, 15, '6', 3},
        {Qt::Key_Ampersand, Qt::ControlModifier, 10, '1', 2},
        {Qt::Key_Eacute, Qt::ControlModifier, 11, '2', 2},
        {Qt::Key_Apostrophe, Qt::ControlModifier, 13, '4', 2},
        {Qt::Key_A, Qt::ControlModifier, 24, 'A', 2},
        {Qt::Key_Period, controlShift, 59, 0, 0},
        {Qt::Key_Equal, controlShift, 21, 0, 0},
        {Qt::Key_AsciiCircum, controlShift, 0, '6', 3},
        {Qt::Key_Space, controlShift, 65, key_code::space, 3},
        {Qt::Key_Delete, Qt::AltModifier, 119, key_code::deleteKey, 4},
        {Qt::Key_Backtab, Qt::ShiftModifier, 23, key_code::tab, 1},
        {Qt::Key_Enter, Qt::KeypadModifier, 104, key_code::enter, 0},
        {Qt::Key_F5, Qt::NoModifier, 71, 116, 0},
    };
    for (const auto& row : rows) {
        down = up = {};
        press(row.key, row.modifiers, "", row.scanCode);
        EXPECT_EQ(down.keyCode, row.code) << row.key;
        EXPECT_EQ(down.shift, row.shift) << row.key;
        EXPECT_EQ(up.keyCode, row.code) << row.key;
    }
}

TEST_F(ScintillaEditTest, AHandlerSwallowsAKey) {
    edit->keyDown.connect([](KeyPress& key) {
        if (key.keyCode == 'X' || key.keyCode == key_code::backspace) key.keyCode = 0;
    });
    QTest::keyClicks(edit->widget(), "axXb");
    QTest::keyClick(edit->widget(), Qt::Key_Backspace);
    EXPECT_EQ(edit->text(), "ab");
    EXPECT_EQ(changes, 2);
}

TEST_F(ScintillaEditTest, ChordsDoNotType) {
    edit->setText("ab\nCD");
    edit->setSelLength(1);
    changes = 0;
    for (int letter = Qt::Key_A; letter <= Qt::Key_Z; ++letter) {
        const QString control{QChar(letter - Qt::Key_A + 1)};
        const bool isCommand = QStringLiteral("ACVXZ").contains(QChar(letter));
        if (!isCommand) press(letter, Qt::ControlModifier, control);
        press(letter, Qt::ControlModifier | Qt::ShiftModifier, control);
        press(letter, Qt::AltModifier, QChar(letter));
    }
    press(Qt::Key_Exclam, Qt::ControlModifier | Qt::ShiftModifier, "!", 10);
    press(Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier, " ");
    EXPECT_EQ(edit->text(), "ab\nCD");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(edit->selText(), "a");
    press(Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    EXPECT_EQ(edit->text(), "@b\nCD") << "a third-level key does type";
    press(Qt::Key_End, Qt::ControlModifier, "");
    EXPECT_EQ(edit->selStart(), 5) << "caret keys stay";
}

TEST_F(ScintillaEditTest, TheUsualKeysReachTheClipboardAsPlainText) {
    edit->setText("one two");
    edit->setSelLength(3);
    QTest::keyClick(edit->widget(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(edit->text(), " two");
    EXPECT_EQ(platform.clipboardText, "one");
    QTest::keyClick(edit->widget(), Qt::Key_Insert, Qt::ShiftModifier);
    QTest::keyClick(edit->widget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit->text(), "oneone two");
    QTest::keyClick(edit->widget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit->text(), "one two");
    QTest::keyClick(edit->widget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit->widget(), Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(platform.clipboardText, "one two");
}

TEST_F(ScintillaEditTest, InsertSwitchesOvertype) {
    int told = 0;
    edit->overtypeChanged.connect([&] { ++told; });
    edit->setText("abc");
    QTest::keyClick(edit->widget(), Qt::Key_Insert);
    EXPECT_TRUE(edit->overtype());
    QTest::keyClick(edit->widget(), Qt::Key_X);
    EXPECT_EQ(edit->text(), "xbc");
    EXPECT_EQ(edit->characterCount(), 3);
    QTest::keyClick(edit->widget(), Qt::Key_Insert);
    EXPECT_FALSE(edit->overtype());
    EXPECT_EQ(told, 2);
}

TEST_F(ScintillaEditTest, ComposedAndDroppedTextArrives) {
    QInputMethodEvent composed;
    composed.setCommitString("é€");
    QApplication::sendEvent(edit->widget(), &composed);
    EXPECT_EQ(edit->text(), "é€");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(edit->characterCount(), 2);

    QMimeData data;
    data.setHtml("<b>x\ny</b>");
    data.setText("x\ny");
    QDragEnterEvent enter({390, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area()->viewport(), &enter);
    QDropEvent drop({390, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area()->viewport(), &drop);
    EXPECT_EQ(edit->text(), "é€x\ny");
    EXPECT_EQ(changes, 2);
}

TEST_F(ScintillaEditTest, TheMouseIsTold) {
    edit->setText("some text\nmore text");
    std::vector<MousePress> presses;
    int clicks = 0;
    edit->mouseDown.connect([&](MousePress press) { presses.push_back(press); });
    edit->clicked.connect([&] { ++clicks; });
    moves = 0;
    QTest::mouseClick(area()->viewport(), Qt::LeftButton, Qt::ControlModifier, {30, 5});
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(moves, 1);
    edit->selectAll();
    QTest::mouseClick(area()->viewport(), Qt::RightButton, Qt::ShiftModifier, {40, 6});
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(edit->selLength(), 19) << "the right button leaves the selection";
    ASSERT_EQ(presses.size(), 2u);
    EXPECT_EQ(presses[0].button, 1);
    EXPECT_EQ(presses[0].shift, 2);
    EXPECT_EQ(presses[1].button, 2);
    EXPECT_EQ(presses[1].shift, 1);
    EXPECT_EQ(presses[1].x, 40);
    EXPECT_EQ(presses[1].y, 6);
}

TEST_F(ScintillaEditTest, ThereIsOneSelectionOfOnePiece) {
    edit->setText("aaaa\nbbbb\ncccc");
    QTest::mousePress(area()->viewport(), Qt::LeftButton, Qt::AltModifier, {2, 2});
    QTest::mouseMove(area()->viewport(), {25, 40});
    QTest::mouseRelease(area()->viewport(), Qt::LeftButton, Qt::AltModifier, {25, 40});
    QTest::keyClick(edit->widget(), Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(scintilla()->SendScintilla(QsciScintillaBase::SCI_SELECTIONISRECTANGLE), 0);
    EXPECT_EQ(scintilla()->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONS), 1);
}

TEST_F(ScintillaEditTest, ABatchLeavesTheVisibleSelectionToItsEnd) {
    edit->setText("cat dog cat");
    edit->setSelStart(4);
    edit->setSelLength(3);
    {
        const EditControl::Batch batch(*edit);
        EXPECT_EQ(edit->Find("cat", 5), 8);
        edit->setSelText("bird");
        EXPECT_EQ(edit->selStart(), 12);
        EXPECT_EQ(scintilla()->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART), 4);
        EXPECT_EQ(scintilla()->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND), 7);
        EXPECT_FALSE(edit->widget()->updatesEnabled());
    }
    EXPECT_EQ(scintilla()->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART), 12);
    EXPECT_TRUE(edit->widget()->updatesEnabled());
}

TEST_F(ScintillaEditTest, AMatchIsScrolledIntoView) {
    edit->setText(std::string(500, '\n') + "match");
    EXPECT_EQ(edit->Find("match"), 500);
    const auto firstShown = scintilla()->SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE);
    const auto linesShown = scintilla()->SendScintilla(QsciScintillaBase::SCI_LINESONSCREEN);
    EXPECT_LE(firstShown, 500);
    EXPECT_GE(firstShown + linesShown, 500);
}

TEST_F(ScintillaEditTest, ColoursFollowThePaletteUnlessChosen) {
    const auto back = [&] { return scintilla()->SendScintilla(QsciScintillaBase::SCI_STYLEGETBACK, 0); };
    const auto fore = [&] { return scintilla()->SendScintilla(QsciScintillaBase::SCI_STYLEGETFORE, 0); };
    QPalette dark = edit->widget()->palette();
    dark.setColor(QPalette::Base, QColor(0x10, 0x20, 0x30));
    dark.setColor(QPalette::Text, QColor(0xF0, 0xE0, 0xD0));
    edit->widget()->setPalette(dark);
    EXPECT_EQ(back(), 0x302010);
    EXPECT_EQ(fore(), 0xD0E0F0);
    edit->setSelColor(0x0000FF);
    edit->setBackColor(0xFF0000);
    EXPECT_EQ(back(), 0xFF0000);
    EXPECT_EQ(fore(), 0x0000FF);
    edit->setSelColor(-1);
    EXPECT_EQ(fore(), 0xD0E0F0);
}

TEST_F(ScintillaEditTest, FocusIsTold) {
    QWidget other;
    other.show();
    other.activateWindow();
    QApplication::processEvents();
    EXPECT_FALSE(edit->widget()->hasFocus());
    int told = 0;
    edit->gotFocus.connect([&] { ++told; });
    edit->widget()->activateWindow();
    edit->SetFocus();
    QApplication::processEvents();
    EXPECT_TRUE(edit->widget()->hasFocus());
    EXPECT_EQ(told, 1);
}

TEST_F(ScintillaEditTest, OnlyAScreenReaderIsPaidFor) {
    const auto textInterface = [&] { return QAccessible::queryAccessibleInterface(edit->widget())->textInterface(); };
    QApplication::processEvents();
    EXPECT_EQ(textInterface(), nullptr) << "Scintilla's costs a pass over the text at each key";
    QAccessible::setActive(true);
    QTest::keyClicks(edit->widget(), "abc");
    ASSERT_NE(textInterface(), nullptr);
    EXPECT_EQ(textInterface()->characterCount(), 3);
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(edit->characterCount(), 3);
    QAccessible::setActive(false);
    EXPECT_EQ(textInterface(), nullptr);
}

TEST_F(ScintillaEditTest, AnErrorInAHandlerStaysInTheProgram) {
    int number = 0;
    setErrorSink([&](const Error& error) { number = error.number(); });
    edit->changed.connect([] { throw std::bad_alloc(); });
    QTest::keyClick(edit->widget(), Qt::Key_A);
    EXPECT_EQ(number, error_number::outOfMemory);
    EXPECT_EQ(edit->text(), "a");
}

TEST(ScintillaEditLife, EitherMayEndFirst) {
    const FakePlatform platform;
    Form form("window", "Window");
    auto window = std::make_unique<QWidget>();
    auto first = std::make_unique<ScintillaEdit>(form, "Text1");
    auto second = std::make_unique<ScintillaEdit>(form, "Text2");
    first->widget()->setParent(window.get());
    second->widget()->setParent(window.get());
    first->setText("abc");
    second.reset();
    EXPECT_EQ(window->children().size(), 1);
    window.reset();
    EXPECT_EQ(first->widget(), nullptr);
    EXPECT_EQ(first->text(), "");
    first->setSelText("abc");
    first->setText("abc");
    first->undo();
    { const EditControl::Batch batch(*first); }
    first->SetFocus();
    EXPECT_EQ(first->Find("a"), -1);
    EXPECT_EQ(first->lineCount(), 1);
    EXPECT_EQ(first->lineIndex(-1), 0);
    EXPECT_EQ(first->characterCount(), 0);
}

TEST(ScintillaEditLife, AHandlerMayEndTheControl) {
    const FakePlatform platform;
    Form form("window", "Window");
    auto edit = std::make_shared<ScintillaEdit>(form, "Text1");
    QPointer<QWidget> widget = edit->widget();
    edit->keyDown.connect([&](KeyPress&) { retire(std::exchange(edit, nullptr)); });
    QTest::keyPress(widget, Qt::Key_A);
    EXPECT_FALSE(edit);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(widget.isNull());
}

#ifndef __SANITIZE_ADDRESS__
/// Bytes of address space in use.
rlim_t addressSpace() {
    std::ifstream pages("/proc/self/statm");
    rlim_t count = 0;
    pages >> count;
    return count * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

TEST_F(ScintillaEditTest, AFullMemoryIsAnErrorAndTheTextStays) {
    const TestDirectory directory;
    const std::string large(48 << 20, 'x');
    const std::string path = directory.write("large", large);
    edit->setText("kept");
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    for (const rlim_t room : {16, 60, 100, 130}) {
        const rlimit tight{addressSpace() + (room << 20), before.rlim_max};
        std::vector<int> numbers;
        setrlimit(RLIMIT_AS, &tight);
        const auto attempt = [&](auto act) {
            try {
                act();
                numbers.push_back(0);
            } catch (const Error& error) {
                numbers.push_back(error.number());
            }
        };
        attempt([&] { edit->setText(large); });
        attempt([&] { edit->LoadFile(path); });
        setrlimit(RLIMIT_AS, &before);
        for (const int number : numbers) EXPECT_TRUE(number == 0 || number == error_number::outOfMemory) << number;
        const std::vector<int> bothFailed(2, error_number::outOfMemory);
        if (numbers == bothFailed) {
            EXPECT_EQ(edit->text(), "kept");
        }
        if (room == 16) {
            EXPECT_EQ(numbers, bothFailed);
        }
        edit->setText("kept");
        EXPECT_EQ(edit->text(), "kept");
        edit->setSelText("still ");
        edit->undo();
        EXPECT_EQ(edit->text(), "kept");
    }
}
#endif

}  // namespace
}  // namespace kelvor::qt

namespace kelvor {
INSTANTIATE_TYPED_TEST_SUITE_P(ScintillaEdit, EditControlContract, qt::ScintillaEdit);
}
