// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

namespace kelvor::qt {

/// While it lives the window takes no input of the user and looks as before; its focus stays, and
/// windows above it are free. Disabling the widgets instead would repaint them all at each short command.
class InputLock : public QObject {
public:
    explicit InputLock(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
};

}  // namespace kelvor::qt
