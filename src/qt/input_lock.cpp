// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/input_lock.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace kelvor::qt {

InputLock::InputLock(QWidget& window) : window_(window) {
    qApp->installEventFilter(this);
}

bool InputLock::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close:
            // All of these arrive at the native window first.
            if (watched != window_.windowHandle()) return false;
            break;
        case QEvent::Shortcut:
        case QEvent::InputMethod:
            if (QApplication::activeWindow() != &window_) return false;
            break;
        default:
            return false;
    }
    event->ignore();
    return true;
}

}  // namespace kelvor::qt
