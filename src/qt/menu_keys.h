// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace kelvor::qt {

/// Lets Shift+F10 do what the menu key does, which not every keyboard has. To be an event filter of the application.
class MenuKeys : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kelvor::qt
