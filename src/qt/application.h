// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <functional>

class QSessionManager;

namespace kelvor::qt {

/// The application object: lets no exception of a handler end the program, and hears of the wish to end
/// it from outside.
class Application : public QApplication {
public:
    /// The arguments beyond the first are not looked at.
    Application(int& argumentCount, char** arguments);
    ~Application() override;

    /// Asks to end the program, as its Exit does; false when the user refused. Runs between two events of the main
    /// loop. A signal that comes while menus, dialogs or modal forms are open closes them first, as their close
    /// boxes do; one that comes during the start or a long run waits for the end of it. While this asks,
    /// about unsaved texts for example, another signal does nothing: the answer is the user's.
    std::function<bool()> onExitWanted;

    /// Runs the main loop until the program is to end.
    /// @return the program's exit code
    int run();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void listenToSignals();
    /// Whether no command is on its way.
    bool isIdle() const;
    void wantExit();
    void goTowardsExit();
    void askForExit();
    void endSession(QSessionManager& manager);

    bool running_ = false;
    bool exitWanted_ = false;
    QPointer<QWidget> closing_;  ///< asked to close for an exit; it may have refused
};

/// Whether there is a display to open windows on, as far as the environment tells.
bool hasDisplay();

/// Lets a display that cannot be opened end the program with a message and exit code 1, and no crash,
/// while it lives.
class StartFailureGuard {
public:
    StartFailureGuard();
    ~StartFailureGuard();
    StartFailureGuard(const StartFailureGuard&) = delete;
    StartFailureGuard& operator=(const StartFailureGuard&) = delete;

private:
    QtMessageHandler before_;
};

}  // namespace kelvor::qt
