// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/application.h"

#include <fcntl.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QIcon>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QThread>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "base/event.h"
#include "qt/key_places.h"
#include "qt/menu_keys.h"
#include "qt/style.h"

/// A static library's resources are there only when asked for, and only outside a namespace.
static void loadIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace kelvor::qt {

namespace {

/// Wakes the event loop from a signal handler: read end, write end.
int signalPipe[2] = {-1, -1};

void passOn(int) {
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
    errno = error;
}

void ignore(int) {
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

/// The toolkit ends the process by itself when the display has gone, in the midst of its own work. Nothing of the
/// program can be taken down in order then: this, which goes before all statics, ends the process on the spot.
class DisplayLoss {
public:
    ~DisplayLoss() {
        if (applicationLives) std::_Exit(EXIT_FAILURE);
    }
    bool applicationLives = false;
};

thread_local DisplayLoss displayLoss;

void endOnFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type < QtWarningMsg) return;
    std::fprintf(stderr, "Kelvor: %s\n", qPrintable(message));
    if (type != QtFatalMsg) return;
    std::fputs("Kelvor: no window can be opened on this display.\n", stderr);
    std::_Exit(1);
}

}  // namespace

Application::Application(int& argumentCount, char** arguments) : QApplication(argumentCount = 1, arguments) {
    displayLoss.applicationLives = true;
    setApplicationName(QStringLiteral("kelvor"));
    setDesktopFileName(QStringLiteral("kelvor"));
    loadIcons();
    setStyle(new Style);
    installEventFilter(new MenuKeys(this));
    setWindowIcon(QIcon(QStringLiteral(":/kelvor.svg")));
    // The frame's end is the program's; a tool window left over must not keep it, and none's end may be it.
    setQuitOnLastWindowClosed(false);
    new KeyPlaces(this);
    listenToSignals();
    connect(this, &QGuiApplication::commitDataRequest, this, &Application::endSession, Qt::DirectConnection);
}

Application::~Application() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal, SIG_DFL);
    for (int& end : signalPipe) close(std::exchange(end, -1));
    displayLoss.applicationLives = false;
}

int Application::run() {
    running_ = true;
    return exec();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        guarded([] { throw; });
        return true;
    }
}

void Application::listenToSignals() {
    // Handlers, not SIG_IGN: the programs that are started do not inherit these.
    handle(SIGPIPE, ignore);
    handle(SIGXFSZ, ignore);
    if (pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (read(signalPipe[0], bytes, sizeof bytes) > 0) continue;
        wantExit();
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) handle(signal, passOn);
}

bool Application::isIdle() const {
    return running_ && QThread::currentThread()->loopLevel() == 1;
}

void Application::wantExit() {
    closing_ = nullptr;
    if (std::exchange(exitWanted_, true)) return;
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &Application::goTowardsExit);
}

void Application::goTowardsExit() {
    QWidget* open = activePopupWidget() ? activePopupWidget() : activeModalWidget();
    // The callers of what is open are not ready to lose their windows; they come back when it has closed.
    if (open) {
        if (closing_ != open) QMetaObject::invokeMethod(open, &QWidget::close, Qt::QueuedConnection);
        closing_ = open;
    } else if (isIdle()) {
        disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
        QMetaObject::invokeMethod(this, &Application::askForExit, Qt::QueuedConnection);
    }
}

void Application::askForExit() {
    const bool idle = isIdle();
    if (idle && onExitWanted) onExitWanted();
    exitWanted_ = false;
    // An event that came before this one may have opened something.
    if (!idle) wantExit();
}

void Application::endSession(QSessionManager& manager) {
    if (!running_ || !onExitWanted || !manager.allowsInteraction()) return;
    const bool ready = onExitWanted();
    manager.release();
    if (ready) return;
    manager.cancel();
    if (activeModalWidget()) wantExit();
}

bool hasDisplay() {
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

StartFailureGuard::StartFailureGuard() : before_(qInstallMessageHandler(endOnFatal)) {
}

StartFailureGuard::~StartFailureGuard() {
    qInstallMessageHandler(before_);
}

}  // namespace kelvor::qt
