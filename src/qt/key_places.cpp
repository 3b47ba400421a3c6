// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/key_places.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QWindow>

#include "qt/key_layout.h"

/// Gives a window a key as the platform does, shortcuts first. Qt exports it for its test library, which alone
/// declares it.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool isRepeat, ushort count);

namespace kelvor::qt {

namespace {

bool isOfOtherScript(int key) {
    if (key >= Qt::Key_Escape) return false;  // no character
    switch (QChar::script(static_cast<char32_t>(key))) {
        case QChar::Script_Unknown:
        case QChar::Script_Inherited:
        case QChar::Script_Common:
        case QChar::Script_Latin:
            return false;
        default:
            return true;
    }
}

/// Whether a letter is a command: in a menu, or with Ctrl or Alt. Both together reach a third level, which types.
bool isCommand(const QKeyEvent& key) {
    const bool control = key.modifiers().testFlag(Qt::ControlModifier);
    const bool alternate = key.modifiers().testFlag(Qt::AltModifier);
    return control != alternate || qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// The letter that a key means by its place; 0 when it means what it says.
char meantLetter(const QKeyEvent& key) {
    const char letter = letterAtPlace(key.nativeScanCode());
    if (letter == 0 || !isCommand(key)) return 0;
    // A Hebrew keyboard has Latin capitals, for which Qt's shortcuts disregard Shift.
    const bool isLatin = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
    if (isLatin && !key.modifiers().testFlag(Qt::ShiftModifier)) return 0;
    return lacksLatinLetters().value_or(isOfOtherScript(key.key())) ? letter : 0;
}

}  // namespace

KeyPlaces::KeyPlaces(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyPlaces::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    if ((!isPress && event->type() != QEvent::ShortcutOverride) || !watched->isWindowType()) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const char letter = meantLetter(key);
    if (letter == 0) return false;
    // What it says is no shortcut; the press follows.
    event->accept();
    if (!isPress) return true;
    const QString text = key.modifiers() == Qt::NoModifier ? QString(QLatin1Char(letter)) : QString();
    qt_handleKeyEvent(static_cast<QWindow*>(watched), QEvent::KeyPress, letter, key.modifiers(), text,
                      key.isAutoRepeat(), 1);
    return true;
}

}  // namespace kelvor::qt
