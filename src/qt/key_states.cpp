// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/key_states.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <utility>

#include "qt/lock_keys.h"

namespace kelvor::qt {

namespace {

/// Bits of a native event's modifiers, the same under X11 and Wayland.
constexpr quint32 lockModifier = 0x2;
constexpr quint32 numModifier = 0x10;

}  // namespace

KeyStates::KeyStates(QObject* parent) : QObject(parent) {
    askServer();
    QCoreApplication::instance()->installEventFilter(this);
}

void KeyStates::setOvertype(bool overtype) {
    if (std::exchange(overtype_, overtype) != overtype) emit changed();
}

bool KeyStates::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            // A key passes here once for its window and again for each widget that it is offered to.
            if (watched->isWindowType()) note(*static_cast<QKeyEvent*>(event));
            break;
        case QEvent::ApplicationActivate:
            askServer();
            break;
        default:
            break;
    }
    return false;
}

void KeyStates::note(const QKeyEvent& event) {
    const bool isLockKey = event.key() == Qt::Key_CapsLock || event.key() == Qt::Key_NumLock;
    if (!isLockKey) {
        // Only a key of a real keyboard tells what was in force when it was pressed.
        if (event.nativeScanCode() != 0)
            setLocks((event.nativeModifiers() & lockModifier) != 0, (event.nativeModifiers() & numModifier) != 0);
        return;
    }
    if (const auto locks = lockKeys()) {
        setLocks(locks->caps, locks->num);
    } else if (event.type() == QEvent::KeyPress && !event.isAutoRepeat()) {
        const bool isCaps = event.key() == Qt::Key_CapsLock;
        setLocks(capsLock_ != isCaps, numLock_ == isCaps);
    }
}

void KeyStates::askServer() {
    if (const auto locks = lockKeys()) setLocks(locks->caps, locks->num);
}

void KeyStates::setLocks(bool capsLock, bool numLock) {
    const bool same = capsLock == capsLock_ && numLock == numLock_;
    capsLock_ = capsLock;
    numLock_ = numLock;
    if (!same) emit changed();
}

KeyStates& keyStates() {
    static QPointer<KeyStates> states;
    if (!states) states = new KeyStates(QCoreApplication::instance());
    return *states;
}

}  // namespace kelvor::qt
