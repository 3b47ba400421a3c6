// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/modal.h"

#include <QApplication>
#include <QDialog>
#include <QWindow>

#include "qt/qt_screen.h"

namespace kelvor::qt {

namespace {

void floatAbove(QWidget& window, const QWidget* above) {
    window.windowHandle()->setTransientParent(above ? above->window()->windowHandle() : nullptr);
}

}  // namespace

void floatAboveModal(QWidget& window) {
    QWidget* above = QApplication::activeModalWidget();
    if (!above || above == &window) {
        above = window.parentWidget();
    } else {
        // It needs the system's window now. All parts of its parent would get one of their own along with it, and then
        // be left black beside a preview.
        QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
        window.winId();
    }
    // Without a window of the system's yet, it is put above its parent when it gets one.
    if (window.windowHandle()) floatAbove(window, above);
}

int showUntilAnswered(QDialog& dialog) {
    if (dialog.parentWidget()) dialog.setParent(nullptr, dialog.windowFlags());
    dialog.winId();
    floatAbove(dialog, QApplication::activeWindow());
    const PlainPointer pointer;
    return dialog.exec();
}

}  // namespace kelvor::qt
