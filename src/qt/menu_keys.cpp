// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/menu_keys.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace kelvor::qt {

bool MenuKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_F10 || key.modifiers() != Qt::ShiftModifier) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    const QPoint caret = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, caret, widget.mapToGlobal(caret));
    QCoreApplication::sendEvent(&widget, &menu);
    return true;
}

}  // namespace kelvor::qt
