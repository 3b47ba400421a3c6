// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser/browser_module.h"

#include <QtWebEngineCore/qtwebenginecoreglobal.h>
#include <QCoreApplication>
#include <QObject>
#include <QOpenGLContext>
#include <QWebEngineProfile>

#include "qt/browser/browser_view.h"

QT_BEGIN_NAMESPACE
/// Exported by the toolkit for those who come late, and declared in none of its headers.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace kelvor::qt {

namespace {

constexpr const char* flagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

/// Shuts the ways to the network that no request interceptor sees, as far as the engine has switches for them. WebRTC
/// still goes over TCP, which is one more reason why scripts of pages from the disk wait for the user.
constexpr const char* closedWays =
    " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
    " --disable-blink-features=WebTransport";

/// Makes the context with which the engine's processes share their pictures. The toolkit would make it at the start
/// of the program, if asked before; but then every start pays for it, with 60 MB where the graphics are software.
void shareContexts() {
    if (QOpenGLContext::globalShareContext()) return;
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    auto* context = new QOpenGLContext(QCoreApplication::instance());
    context->create();
    qt_gl_set_global_share_context(context);
}

/// What the engine has to say about a page's server, or a page about itself, is nothing for the standard error stream.
constexpr const char* quiet = "--log-level=3 ";

/// Starts the engine with the user's own flags and ours. The environment is as before afterwards, since programs
/// that are started later inherit it.
void startEngine() {
    const bool wasSet = qEnvironmentVariableIsSet(flagsVariable);
    const QByteArray before = qgetenv(flagsVariable);
    qputenv(flagsVariable, quiet + before + closedWays);
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
    WebEngineModule() {
        shareContexts();
        startEngine();
    }

    Browser& createBrowser(QWidget& pane) override { return *new BrowserView(pane); }
    QString engineVersion() const override { return QString::fromLatin1(qWebEngineVersion()); }
};

}  // namespace kelvor::qt

#include "web_engine_module.moc"
