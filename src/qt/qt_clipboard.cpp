// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "qt/convert.h"

namespace kelvor::qt {

std::string QtClipboard::text() {
    return fromQt(QGuiApplication::clipboard()->text());
}

void QtClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQt(text));
}

}  // namespace kelvor::qt
