// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/scintilla_widget.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QMimeData>
#include <QPalette>
#include <algorithm>
#include <utility>

#include "controls/form.h"
#include "qt/convert.h"
#include "qt/covering_windows.h"
#include "qt/key_codes.h"
#include "qt/popup_place.h"
#include "text/line_ends.h"

namespace kelvor::qt {

namespace {

/// Scintilla's number for a key: its own code and modifiers in one.
unsigned long chord(int key, int modifiers) {
    return static_cast<unsigned long>(key | modifiers << 16);
}

int lineEndMode(const std::string& lineEnd) {
    if (lineEnd == "\n") return QsciScintillaBase::SC_EOL_LF;
    return lineEnd == "\r" ? QsciScintillaBase::SC_EOL_CR : QsciScintillaBase::SC_EOL_CRLF;
}

/// On every desktop, whichever of the two is its own.
bool isRedo(const KeyPress& press) {
    return (press.keyCode == 'Y' && press.shift == modifier::ctrl) ||
           (press.keyCode == 'Z' && press.shift == modifier::ctrl + modifier::shift);
}

}  // namespace

ScintillaWidget::ScintillaWidget(EditControl& control, Owner& owner)
    : control_(&control), owner_(owner), isField_(control.form().kind() == Form::Kind::tool) {
    // first
    setUpText();
    if (isField_) send(SCI_SETWRAPMODE, SC_WRAP_WORD);
    setUpKeys();
    showFont();
    connect(this, &QsciScintillaBase::SCN_MODIFIED, [this](int start, int kind, const char*, int length) {
        const bool insertion = (kind & SC_MOD_BEFOREINSERT) != 0;
        if (!insertion && (kind & SC_MOD_BEFOREDELETE) == 0) return;
        speech_.changing(insertion, start, length);
        if (control_) owner_.noteChange(insertion, start, length);
    });
    send(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    // What comes from a timer, such as the selection that a held mouse drags on, passes no event of the widget.
    connect(
        this, &QsciScintillaBase::SCN_UPDATEUI, this,
        [this] {
            handled([] { return true; });
            speech_.tell();
        },
        Qt::QueuedConnection);
}

ScintillaWidget::~ScintillaWidget() {
    if (control_) owner_.widgetEnded();
}

void ScintillaWidget::release() {
    control_ = nullptr;
    if (handling_ > 0) {
        deleteLater();
    } else {
        delete this;
    }
}

/// The selection's first line, as far as it is shown.
QRect ScintillaWidget::selectionOnScreen() const {
    const long start = send(SCI_GETSELECTIONSTART);
    const long line = send(SCI_LINEFROMPOSITION, static_cast<unsigned long>(start));
    const long end =
        std::min(send(SCI_GETSELECTIONEND), send(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(line)));
    const auto left = static_cast<int>(send(SCI_POINTXFROMPOSITION, 0, start));
    const auto right = static_cast<int>(send(SCI_POINTXFROMPOSITION, 0, end));
    const auto top = static_cast<int>(send(SCI_POINTYFROMPOSITION, 0, start));
    const auto height = static_cast<int>(send(SCI_TEXTHEIGHT, static_cast<unsigned long>(line)));
    const QRect shown = QRect(left, top, std::max(right - left, 1), height) & viewport()->rect();
    return {viewport()->mapToGlobal(shown.topLeft()), shown.size()};
}

void ScintillaWidget::uncoverSelection() {
    const auto uncover = [this] { moveWindowsAside(selectionOnScreen(), *window()); };
    uncover();
    QMetaObject::invokeMethod(this, uncover, Qt::QueuedConnection);
}

void ScintillaWidget::setUpText() {
    openDocument(0);
    send(SCI_SETPASTECONVERTENDINGS, 0);
    send(SCI_SETWRAPMODE, SC_WRAP_NONE);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETSCROLLWIDTHTRACKING, 1);
    send(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);  // a long line is laid out once for all its paints
    send(SCI_SETMARGINS, 0);
    send(SCI_SETMARGINLEFT, 0, 4);
    send(SCI_USEPOPUP, SC_POPUP_NEVER);
}

void ScintillaWidget::openDocument(std::size_t bytes) {
    const long document = send(SCI_CREATEDOCUMENT, bytes, SC_DOCUMENTOPTION_STYLES_NONE);
    send(SCI_SETDOCPOINTER, 0, document);
    send(SCI_RELEASEDOCUMENT, 0, document);
    send(SCI_SETCODEPAGE, SC_CP_UTF8);
}

void ScintillaWidget::setUpKeys() {
    // Letters belong to the program's own commands.
    for (int letter = 'A'; letter <= 'Z'; ++letter) {
        for (const int modifiers : {int{SCMOD_CTRL}, SCMOD_CTRL | SCMOD_SHIFT})
            send(SCI_CLEARCMDKEY, chord(letter, modifiers));
    }
    // There is one selection, of one piece.
    for (const int key : {SCK_DOWN, SCK_UP, SCK_LEFT, SCK_RIGHT, SCK_HOME, SCK_END, SCK_PRIOR, SCK_NEXT}) {
        send(SCI_CLEARCMDKEY, chord(key, SCMOD_ALT | SCMOD_SHIFT));
    }
    send(SCI_SETRECTANGULARSELECTIONMODIFIER, 0);
}

void ScintillaWidget::showFont() {
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    SendScintilla(SCI_STYLESETFONT, static_cast<uintptr_t>(STYLE_DEFAULT), font.family().toUtf8().constData());
    // Only a size in pixels is worth looking the font up for.
    const double points = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    const auto hundredths = static_cast<long>(points * int{SC_FONT_SIZE_MULTIPLIER});
    send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT, hundredths);
    showColors(textColor_, backColor_);
}

void ScintillaWidget::showColors(int textColor, int backColor) {
    textColor_ = textColor;
    backColor_ = backColor;
    QPalette colors = palette();
    colors.setCurrentColorGroup(isEnabled() ? QPalette::Active : QPalette::Disabled);
    const int text = textColor >= 0 ? textColor : fromQt(colors.color(QPalette::Text));
    send(SCI_STYLESETFORE, STYLE_DEFAULT, text);
    send(SCI_STYLESETBACK, STYLE_DEFAULT, backColor >= 0 ? backColor : fromQt(colors.color(QPalette::Base)));
    send(SCI_STYLECLEARALL);
    send(SCI_SETCARETFORE, static_cast<unsigned long>(text));
    send(SCI_SETSELFORE, 1, fromQt(colors.color(QPalette::HighlightedText)));
    send(SCI_SETSELBACK, 1, fromQt(colors.color(QPalette::Highlight)));
}

/// Runs an event's handling. What the user has changed by it is told when it is over, and an error of it is told
/// and not thrown through the toolkit.
template <typename Handle>
bool ScintillaWidget::handled(Handle handle) {
    if (!control_) return handle();
    bool result = false;
    ++handling_;
    {
        const EventScope scope;
        guarded([&] { result = handle(); });
        guarded([&] {
            if (control_) owner_.reportActs();
        });
    }
    --handling_;
    return result;
}

bool ScintillaWidget::event(QEvent* event) {
    return handled([&] { return QsciScintillaBase::event(event); });
}

bool ScintillaWidget::viewportEvent(QEvent* event) {
    // While a window is being painted no handler may run.
    if (event->type() == QEvent::Paint) return QsciScintillaBase::viewportEvent(event);
    // What a Batch leaves unpainted is lost when the window gets another size.
    if (event->type() == QEvent::Resize) setUpdatesEnabled(true);
    return handled([&] { return QsciScintillaBase::viewportEvent(event); });
}

void ScintillaWidget::keyPressEvent(QKeyEvent* event) {
    if (control_) {
        KeyPress press{keyCodeOf(*event), shiftBits(event->modifiers())};
        if (press.keyCode != 0) {
            control_->keyDown.raise(press);
            if (press.keyCode == 0 || !control_) return;
        }
        if (runClipboardKey(*event)) return;
        if (isRedo(press)) return control_->redo();
        takeLineEnd();
        if (std::exchange(leavesColumn_, false)) send(SCI_CHOOSECARETX);
    }
    type(event);
}

bool ScintillaWidget::runClipboardKey(const QKeyEvent& event) {
    static constexpr std::pair<QKeySequence::StandardKey, void (EditControl::*)()> commands[] = {
        {QKeySequence::Cut, &EditControl::cut},
        {QKeySequence::Copy, &EditControl::copy},
        {QKeySequence::Paste, &EditControl::paste},
        {QKeySequence::Undo, &EditControl::undo},
        {QKeySequence::SelectAll, &EditControl::selectAll},
    };
    for (const auto& [key, command] : commands) {
        if (!event.matches(key)) continue;
        (control_->*command)();
        return true;
    }
    return false;
}

void ScintillaWidget::takeLineEnd() const {
    send(SCI_SETEOLMODE, static_cast<unsigned long>(lineEndMode(control_->lineEnd())));
}

void ScintillaWidget::type(QKeyEvent* event) {
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    // What the text does not take moves the focus in the widget around it.
    if (isField_ && isTab && !event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    if (event->key() == Qt::Key_Tab && event->modifiers() == (isField_ ? Qt::ControlModifier : Qt::NoModifier)) {
        SendScintilla(SCI_REPLACESEL, "\t");
        return;
    }
    // Escape is the dialog's, and so is Enter where it ends no line.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isDialogs = event->key() == Qt::Key_Escape || (isEnter && send(SCI_GETREADONLY) != 0);
    if (isField_ && isDialogs) return event->ignore();
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool alternate = event->modifiers().testFlag(Qt::AltModifier);
    if (control == alternate) return QsciScintillaBase::keyPressEvent(event);
    // A chord is never text; with no text Scintilla still finds its caret keys.
    QKeyEvent chordEvent(event->type(), event->key(), event->modifiers(), QString(), event->isAutoRepeat());
    QsciScintillaBase::keyPressEvent(&chordEvent);
    event->setAccepted(chordEvent.isAccepted());
}

void ScintillaWidget::keyReleaseEvent(QKeyEvent* event) {
    KeyPress release{keyCodeOf(*event), shiftBits(event->modifiers())};
    if (control_ && release.keyCode != 0 && !event->isAutoRepeat()) control_->keyUp.raise(release);
    QsciScintillaBase::keyReleaseEvent(event);
}

void ScintillaWidget::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (control_)
        control_->mouseDown.raise({static_cast<int>(event->button()), shiftBits(event->modifiers()), at.x(), at.y()});
    if (control_ && event->button() != Qt::RightButton) QsciScintillaBase::mousePressEvent(event);
}

void ScintillaWidget::mouseReleaseEvent(QMouseEvent* event) {
    QsciScintillaBase::mouseReleaseEvent(event);
    const bool inside = viewport()->rect().contains(event->position().toPoint());
    if (control_ && inside && event->button() == Qt::LeftButton) control_->clicked.raise();
}

void ScintillaWidget::contextMenuEvent(QContextMenuEvent* event) {
    // A press of the right button has come through already.
    if (control_ && event->reason() == QContextMenuEvent::Keyboard) openPopupAtCaret();
    event->accept();
}

/// As a press of the right button below the caret.
void ScintillaWidget::openPopupAtCaret() {
    send(SCI_SCROLLCARET);
    const auto caret = static_cast<unsigned long>(send(SCI_GETCURRENTPOS));
    const long line = send(SCI_LINEFROMPOSITION, caret);
    const QPoint below(static_cast<int>(send(SCI_POINTXFROMPOSITION, 0, static_cast<long>(caret))),
                       static_cast<int>(send(SCI_POINTYFROMPOSITION, 0, static_cast<long>(caret)) +
                                        send(SCI_TEXTHEIGHT, static_cast<unsigned long>(line))));
    const PopupPlace place(viewport()->mapToGlobal(below));
    control_->mouseDown.raise({Qt::RightButton, 0, below.x(), below.y()});
}

void ScintillaWidget::focusInEvent(QFocusEvent* event) {
    QsciScintillaBase::focusInEvent(event);
    // A popup menu that closes gives back what it had not taken.
    if (control_ && event->reason() != Qt::PopupFocusReason) control_->gotFocus.raise();
}

void ScintillaWidget::changeEvent(QEvent* event) {
    QsciScintillaBase::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        showColors(textColor_, backColor_);
}

QByteArray ScintillaWidget::fromMimeData(const QMimeData* source, bool& rectangular) const {
    rectangular = false;
    QByteArray text = source->text().toUtf8();
    if (!control_) return text;
    takeLineEnd();  // what is dropped is converted once more, to this one
    return QByteArray::fromStdString(
        withLineEnd({text.constData(), static_cast<std::size_t>(text.size())}, control_->lineEnd()));
}

}  // namespace kelvor::qt
