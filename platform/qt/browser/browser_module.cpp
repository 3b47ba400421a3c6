#include "platform/qt/browser/browser_module.h"

#include <QObject>
#include <QWebEngineProfile>

#include "platform/qt/browser/browser_view.h"

namespace kelvor::qt {

namespace {

constexpr const char* flagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

/// Shuts the ways to the network that no request interceptor sees. One stays open, for which the engine has no
/// switch: WebRTC reaches a TURN server over TCP.
constexpr const char* closedWays =
    " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
    " --disable-blink-features=WebTransport";

/// Starts the engine with the user's own flags and ours. The environment is as before afterwards, since programs
/// that are started later inherit it.
void startEngine() {
    const bool wasSet = qEnvironmentVariableIsSet(flagsVariable);
    const QByteArray before = qgetenv(flagsVariable);
    qputenv(flagsVariable, before + closedWays);
    const QWebEngineProfile first;
    if (wasSet)
        qputenv(flagsVariable, before);
    else
        qunsetenv(flagsVariable);
}

}  // namespace

class WebEngineModule : public QObject, public BrowserModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KELVOR_BROWSER_MODULE_ID)
    Q_INTERFACES(kelvor::qt::BrowserModule)

public:
    WebEngineModule() { startEngine(); }

    Browser& createBrowser(QWidget& pane) override { return *new BrowserView(pane); }
};

}  // namespace kelvor::qt

#include "browser_module.moc"
