// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/scintilla_edit.h"

#include <Qsci/qsciscintillabase.h>

#include <QTest>
#include <QtWidgets>
#include <utility>

#include "qt/convert.h"
#include "qt/popup_place.h"
#include "tests/kit/edit_control_contract.h"

namespace kelvor::qt {
namespace {

class ScintillaEditTest : public testing::Test {
protected:
    ScintillaEditTest() {
        edit->widget()->resize(400, 300);
        edit->widget()->show();
        edit->changed.connect([this] { ++changes; });
    }

    QsciScintillaBase& scintilla() const { return static_cast<QsciScintillaBase&>(*edit->widget()); }
    QWidget* viewport() const { return scintilla().viewport(); }
    long ask(unsigned message) const { return scintilla().SendScintilla(message, 0UL); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(edit->widget(), key, modifiers); }
    /// A key as a keyboard sends it, its place on the board and its text included.
    void press(int key, Qt::KeyboardModifiers modifiers, const QString& text, quint32 scanCode = 0) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, scanCode, 0, 0, text);
            QApplication::sendEvent(edit->widget(), &event);
        }
    }

    FakePlatform platform;
    TestDirectory directory;
    Form form{"window", "Window", Form::Kind::child};
    std::unique_ptr<ScintillaEdit> edit = std::make_unique<ScintillaEdit>(form, "Text1");
    int changes = 0;
};

/// What a screen reader has heard, its changes of the text and of the caret alone; + in, - out, > caret, [ ) selection.
QString heard;

void hear(QAccessibleEvent& event) {
    QTextStream line(&heard);
    if (const auto* in = dynamic_cast<QAccessibleTextInsertEvent*>(&event)) {
        line << '+' << in->changePosition() << in->textInserted() << ' ';
    } else if (const auto* out = dynamic_cast<QAccessibleTextRemoveEvent*>(&event)) {
        line << '-' << out->changePosition() << out->textRemoved() << ' ';
    } else if (const auto* both = dynamic_cast<QAccessibleTextUpdateEvent*>(&event)) {
        line << "-+" << both->changePosition() << both->textRemoved() << '/' << both->textInserted() << ' ';
    } else if (const auto* caret = dynamic_cast<QAccessibleTextCursorEvent*>(&event)) {
        const auto* chosen = dynamic_cast<QAccessibleTextSelectionEvent*>(&event);
        if (chosen) line << '[' << chosen->selectionStart() << ',' << chosen->selectionEnd() << ')';
        line << (chosen ? "" : ">") << caret->cursorPosition() << ' ';
    }
}

using Sci = QsciScintillaBase;
constexpr auto controlShift = Qt::ControlModifier | Qt::ShiftModifier;

TEST_F(ScintillaEditTest, TypingChangesTheTextAndTellsIt) {
    QTest::keyClicks(edit->widget(), "a<B");
    EXPECT_EQ((std::vector{edit->characterCount(), changes}), (std::vector{3, 3}));
    for (const auto each : {Qt::Key_Backspace, Qt::Key_Tab, Qt::Key_Return}) key(each);
    EXPECT_EQ(edit->text(), "a<\t\r\n");
    edit->LoadFile(directory.write("old", "a\rb\rc"));
    edit->setSelLength(3);
    key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_EQ(edit->text(), "\t\r\rc") << "Tab replaces lines, Enter follows the loaded text";
}

TEST_F(ScintillaEditTest, NoActOfTheUserChangesATextToLookAt) {
    edit->setReadOnly(true);
    edit->startText("one two");
    edit->setSelLength(3);
    platform.clipboardText = "pasted";
    changes = 0;
    QTest::keyClicks(edit->widget(), "x ");
    for (const auto each : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Tab}) key(each);
    for (const auto each : {Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Y}) key(each, Qt::ControlModifier);
    QMimeData dropped;
    dropped.setText("dropped");
    QDropEvent drop({5, 5}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(viewport(), &drop);
    QInputMethodEvent composed;
    composed.setCommitString("composed");
    QApplication::sendEvent(edit->widget(), &composed);
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(edit->widget());
    spoken.editableTextInterface()->insertText(0, "spoken");
    EXPECT_EQ(edit->text() + std::to_string(changes), "one two0");
    EXPECT_TRUE(spoken.state().readOnly && !spoken.state().editable);
}

TEST_F(ScintillaEditTest, DownGoesOnFromWhereACommandHasPutTheCaret) {
    edit->setText("four\nfour");
    key(Qt::Key_End);
    edit->setSelStart(1);
    key(Qt::Key_Down);
    EXPECT_EQ(edit->selStart(), 6);
}

TEST_F(ScintillaEditTest, HandlersGetKeyCodesAndMaySwallowAKey) {
    std::vector<int> told;
    edit->keyDown.connect([&](KeyPress& key) {
        told = {key.keyCode, key.shift};
        key.keyCode = 0;
    });
    edit->keyUp.connect([&](KeyPress& key) { told.push_back(key.keyCode); });
    const struct {
        int key = 0;
        Qt::KeyboardModifiers modifiers;
        quint32 scanCode = 0;
        std::vector<int> told;
    } rows[] = {
        {Qt::Key_X, Qt::NoModifier, 53, {'X', 0, 'X'}},
        // A German keyboard has these signs above its digits, a French one below.
        {Qt::Key_QuoteDbl, controlShift, 11, {'2', 3, '2'}},
        {Qt::Key_Ampersand, Qt::ControlModifier, 10, {'1', 2, '1'}},
        {Qt::Key_AsciiCircum, controlShift, 0, {'6', 3, '6'}},
        {Qt::Key_Equal, controlShift, 21, {}},  // beside the digits
        {Qt::Key_Delete, Qt::AltModifier, 119, {key_code::deleteKey, 4, key_code::deleteKey}},
        {Qt::Key_Backtab, Qt::ShiftModifier, 23, {key_code::tab, 1, key_code::tab}},
        {Qt::Key_F5, Qt::NoModifier, 71, {116, 0, 116}},
    };
    for (const auto& row : rows) {
        told.clear();
        press(row.key, row.modifiers, row.key == Qt::Key_X ? "x" : "", row.scanCode);
        EXPECT_EQ(told, row.told) << row.key;
    }
    EXPECT_EQ(edit->text(), "");
}

TEST_F(ScintillaEditTest, ChordsDoNotType) {
    edit->setText("ab\nCD");
    edit->setSelLength(1);
    for (int letter = Qt::Key_A; letter <= Qt::Key_Z; ++letter) {
        const QString control{QChar(letter - Qt::Key_A + 1)};
        if (!QStringLiteral("ACVXZ").contains(QChar(letter))) press(letter, Qt::ControlModifier, control);
        press(letter, controlShift, control);
        press(letter, Qt::AltModifier, QChar(letter));
    }
    press(Qt::Key_Exclam, controlShift, "!", 10);
    EXPECT_EQ(edit->text(), "ab\nCD");
    EXPECT_EQ(edit->selText(), "a");
    press(Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    EXPECT_EQ(edit->text(), "@b\nCD") << "a third-level key does type";
}

TEST_F(ScintillaEditTest, TheUsualKeysReachTheClipboardAndOvertype) {
    int told = 0;
    edit->overtypeChanged.connect([&] { ++told; });
    QTest::keyClicks(edit->widget(), "one");
    for (const auto each : {Qt::Key_A, Qt::Key_X, Qt::Key_V, Qt::Key_V, Qt::Key_A, Qt::Key_C, Qt::Key_Z})
        key(each, Qt::ControlModifier);
    EXPECT_EQ(platform.clipboardText, "oneone");
    key(Qt::Key_Home);
    for (const auto each : {Qt::Key_Insert, Qt::Key_X, Qt::Key_Insert, Qt::Key_Y}) key(each);
    EXPECT_EQ(edit->text() + std::to_string(told), "xyne2");
    for (const auto each : {Qt::Key_Z, Qt::Key_Z, Qt::Key_Y}) key(each, Qt::ControlModifier);
    key(Qt::Key_Z, controlShift);
    EXPECT_EQ(edit->text(), "xyne");
}

TEST_F(ScintillaEditTest, ADroppedTextArrivesPlain) {
    QMimeData data;
    data.setHtml("<b>x\ny</b>");
    data.setText("x\ny");
    QDragEnterEvent enter({390, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop({390, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport(), &enter);
    QApplication::sendEvent(viewport(), &drop);
    EXPECT_EQ(edit->text() + std::to_string(changes), "x\r\ny1");
}

TEST_F(ScintillaEditTest, TheMouseIsToldAndSelectsInOnePiece) {
    edit->setText("some text\nmore text");
    std::vector<int> told;
    edit->mouseDown.connect([&](MousePress press) { told.insert(told.end(), {press.button, press.shift, press.x}); });
    edit->clicked.connect([&] { told.push_back(0); });
    QTest::mouseClick(viewport(), Qt::LeftButton, Qt::ControlModifier, {30, 5});
    edit->selectAll();
    QTest::mouseClick(viewport(), Qt::RightButton, Qt::ShiftModifier, {40, 6});
    EXPECT_EQ(told, (std::vector{MousePress::left, 2, 30, 0, MousePress::right, 1, 40}));
    EXPECT_EQ(edit->selLength(), 19) << "the right button leaves the selection";
    QTest::mousePress(viewport(), Qt::LeftButton, Qt::AltModifier, {2, 2});
    QTest::mouseMove(viewport(), {25, 40});
    QTest::mouseRelease(viewport(), Qt::LeftButton, Qt::AltModifier, {25, 40});
    key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(ask(Sci::SCI_SELECTIONISRECTANGLE), 0);
    EXPECT_EQ(ask(Sci::SCI_GETSELECTIONS), 1);
}

TEST_F(ScintillaEditTest, TheKeysOfThePopupOpenItBelowTheCaret) {
    edit->setText("some text\nmore");
    edit->setSelStart(14);
    const QPoint below(static_cast<int>(scintilla().SendScintilla(Sci::SCI_POINTXFROMPOSITION, 0UL, 14L)),
                       static_cast<int>(ask(Sci::SCI_TEXTHEIGHT) * 2));
    int told = 0;
    edit->mouseDown.connect([&](const MousePress& press) {
        ++told;
        EXPECT_EQ(press.button, MousePress::right);
        EXPECT_EQ(QPoint(press.x, press.y), below);
        EXPECT_EQ(PopupPlace::take(), viewport()->mapToGlobal(below));
    });
    key(Qt::Key_F10, Qt::ShiftModifier);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {1, 1}, viewport()->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(edit->widget(), &menuKey);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(PopupPlace::take(), QCursor::pos());
}

TEST_F(ScintillaEditTest, WindowsOverTheSelectionMoveAside) {
    QWidget& window = *edit->widget();
    edit->setText(std::string(40, 'x') + "\n\nmatch");
    edit->setSelLength(40);
    const QRect line(viewport()->mapToGlobal(QPoint(4, 0)), QSize(200, static_cast<int>(ask(Sci::SCI_TEXTHEIGHT))));
    const QRect screen = window.screen()->availableGeometry();
    const QSize small(200, 100);
    QDialog first(&window);
    const struct {
        QWidget* parent = nullptr;
        QPoint place;
        QSize size;
        bool isMoved = false;
    } rows[] = {
        {&first, line.topLeft() - QPoint(190, 90), small, true},     // at the edge of the screen
        {&window, line.topLeft(), screen.size(), false},             // larger than any room beside the line
        {&window, line.bottomLeft() + QPoint(0, 60), small, false},  // beside it
    };
    for (const auto& [parent, place, size, isMoved] : rows) {
        QDialog dialog(parent);
        dialog.setGeometry(QRect(place, size));
        dialog.show();
        edit->uncoverSelection();
        EXPECT_EQ(dialog.geometry().topLeft() != place, isMoved);
        EXPECT_EQ(dialog.frameGeometry().intersects(line), size == screen.size());
        EXPECT_TRUE(screen.contains(dialog.frameGeometry()) || !isMoved);
    }
    QDialog late(&first);
    late.setGeometry(QRect(line.topLeft(), small));
    edit->uncoverSelection();
    late.show();
    QApplication::processEvents();
    EXPECT_FALSE(late.frameGeometry().intersects(line));
}

TEST_F(ScintillaEditTest, ABatchLeavesTheVisibleSelectionToItsEndAndScrollsThen) {
    edit->setText(std::string(500, '\n') + "cat");
    {
        const EditControl::Batch batch(*edit);
        EXPECT_EQ(edit->Find("cat"), 500);
        edit->setSelText("bird");
        EXPECT_EQ(edit->selStart(), 504);
        EXPECT_EQ(ask(Sci::SCI_GETSELECTIONSTART), 0);
        EXPECT_FALSE(edit->widget()->updatesEnabled());
    }
    EXPECT_EQ(ask(Sci::SCI_GETSELECTIONSTART), 504);
    EXPECT_TRUE(edit->widget()->updatesEnabled());
    EXPECT_GE(ask(Sci::SCI_GETFIRSTVISIBLELINE) + ask(Sci::SCI_LINESONSCREEN), 500);
}

TEST_F(ScintillaEditTest, ColoursFollowThePaletteUnlessChosen) {
    const auto colors = [&] { return std::vector{ask(Sci::SCI_STYLEGETBACK), ask(Sci::SCI_STYLEGETFORE)}; };
    edit->setSelColor(0x0000FF);
    edit->setBackColor(0xFF0000);
    EXPECT_EQ(colors(), (std::vector{0xFF0000L, 0x0000FFL}));
    edit->setSelColor(-1);
    QPalette dark;
    dark.setColor(QPalette::Text, QColor(0xF0, 0xE0, 0xD0));
    edit->widget()->setPalette(dark);
    EXPECT_EQ(colors(), (std::vector{0xFF0000L, 0xD0E0F0L}));
}

TEST_F(ScintillaEditTest, AScreenReaderReadsCharactersWordsAndLines) {
    edit->setText("one ä€ two\r\n" + std::string(5000, 'x') + "ä\n");
    auto* const accessible = QAccessible::queryAccessibleInterface(edit->widget());
    using Reader = QAccessibleTextInterface;
    Reader& read = *accessible->textInterface();
    EXPECT_EQ(read.characterCount(), 12 + 5001 + 1);
    EXPECT_EQ(read.text(4, 7), "ä€ ");
    EXPECT_EQ(read.text(5010, -1), "xxä\n");
    int start = 0;
    int end = 0;
    const auto pieceAt = [&](auto get, int offset, QAccessible::TextBoundaryType boundary) {
        const QString piece = (read.*get)(offset, boundary, &start, &end);
        EXPECT_EQ(end - start, piece.size()) << offset;
        return QString::number(start) + " " + piece;
    };
    EXPECT_EQ(pieceAt(&Reader::textAtOffset, 5, QAccessible::CharBoundary), "5 €");
    EXPECT_EQ(pieceAt(&Reader::textAtOffset, 8, QAccessible::WordBoundary), "7 two");
    EXPECT_EQ(pieceAt(&Reader::textBeforeOffset, 12, QAccessible::LineBoundary), "0 one ä€ two\r\n");
    EXPECT_EQ(pieceAt(&Reader::textAfterOffset, 5013, QAccessible::LineBoundary), "-1 ");
    EXPECT_EQ(pieceAt(&Reader::textAtOffset, 5014, QAccessible::LineBoundary), "5014 ");
    read.setSelection(0, 4, 6);
    EXPECT_EQ(edit->selText(), "ä€");
    read.selection(0, &start, &end);
    EXPECT_EQ((std::vector{start, end, read.selectionCount(), read.cursorPosition()}), (std::vector{4, 6, 1, 6}));
    EXPECT_EQ(read.offsetAtPoint(read.characterRect(5).center()), 5);
    changes = 0;
    accessible->editableTextInterface()->replaceText(4, 6, "ü");
    EXPECT_EQ(edit->text().substr(0, 9), "one ü tw");
    EXPECT_EQ(changes, 1);
}

TEST_F(ScintillaEditTest, AScreenReaderHearsEachChangeInCharacters) {
    edit->setText("ä€ two");
    QApplication::processEvents();
    setSpeechSink(hear);
    const struct {
        std::function<void()> act;
        const char* heard = nullptr;
    } rows[] = {
        {[&] { key(Qt::Key_End); }, ">6 "},
        {[&] { press(Qt::Key_X, {}, "ü"); }, "+6ü >7 "},
        {[&] { key(Qt::Key_Backspace); }, "-6ü >6 "},
        {[&] { key(Qt::Key_Left, Qt::ShiftModifier); }, "[5,6)5 >5 "},
        {[&] { key(Qt::Key_Right); }, "[6,6)6 >6 "},
        {[&] { edit->setText("one two"); }, "-0ä€ two +0one two >0 "},
        {[&] { edit->setSelText("ü"); }, "+0ü >1 "},
        {[&] { edit->undo(); }, "-+0ü/ >0 "},
        {[&] {
             const EditControl::Batch batch(*edit);
             for (const int start : {4, 0}) {
                 edit->setSelStart(start);
                 edit->setSelLength(1);
                 edit->setSelText("ä");
             }
         },
         "-+0one t/äne ä >1 "},
    };
    for (const auto& row : rows) {
        heard.clear();
        row.act();
        QApplication::processEvents();
        EXPECT_EQ(heard, row.heard);
    }
    setSpeechSink({});
}

TEST_F(ScintillaEditTest, AHandlerMayEndTheControl) {
    const QPointer<QWidget> widget = edit->widget();
    edit->keyDown.connect([&](KeyPress&) { retire(std::shared_ptr(std::move(edit))); });
    QTest::keyPress(widget, Qt::Key_A);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(widget.isNull());
}

}  // namespace
}  // namespace kelvor::qt

namespace kelvor {
INSTANTIATE_TEST_SUITE_P(ScintillaEdit, EditControlContract,
                         testing::Values(EditControlKind{"ScintillaEdit", makeControl<qt::ScintillaEdit>}));
}
