// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QKeyEvent;

namespace kelvor::qt {

/// The states that the status bar shows of the keyboard: the two lock keys, and whether the editor
/// in use overwrites. Learnt from the keys as they go by; an X server is asked as well.
class KeyStates : public QObject {
    Q_OBJECT

public:
    explicit KeyStates(QObject* parent);

    bool capsLock() const { return capsLock_; }
    bool numLock() const { return numLock_; }
    bool overtype() const { return overtype_; }
    void setOvertype(bool overtype);

signals:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void note(const QKeyEvent& event);
    void askServer();
    void setLocks(bool capsLock, bool numLock);

    bool capsLock_ = false;
    bool numLock_ = false;
    bool overtype_ = false;
};

/// The application's one instance, which begins to watch with its first use.
KeyStates& keyStates();

}  // namespace kelvor::qt
