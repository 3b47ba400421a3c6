// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser/preview_page.h"

#include <QAuthenticator>
#include <QCoreApplication>
#include <QPointer>
#include <QWebEngineCertificateError>
#include <QWebEngineClientCertificateSelection>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWidget>
#include <utility>

#include "preview/own_network.h"
#include "preview/request_rules.h"
#include "qt/browser/page_dialog.h"
#include "qt/browser/request_guard.h"
#include "qt/browser/site_access.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// The engine's numbers for a page that was given up, for a download say, and for one that the rules refuse.
constexpr int aborted = -3;
constexpr int blocked = -20;

/// What the script says that finds scripts. Nothing else of a page that runs none can say it.
constexpr const char* scriptsFound = "kelvor: scripts";

/// Looks for what would run in a page or a frame of it, once it is there, and says %1. Runs in a world of its own,
/// which pages that run no scripts have as well.
constexpr const char* scriptFinder = R"js(
    const runs = element => element.localName === 'script'
        ? !element.type || /script|module/i.test(element.type)
        : element.getAttributeNames().some(name => name.startsWith('on')) ||
          /^\s*javascript:/i.test(element.getAttribute('href') || element.getAttribute('src') || '');
    if (location.protocol !== 'chrome-error:' && [...document.querySelectorAll('*')].some(runs))
        console.debug('%1');
)js";

/// What the engine's more common numbers mean to a user; its own name of the error for the others.
QString causeOf(const QWebEngineLoadingInfo& info) {
    constexpr std::pair<int, const char*> causes[] = {{-6, "The file does not exist."},
                                                      {-7, "The server does not answer."},
                                                      {-10, "The file may not be read."},
                                                      {-101, "The server has ended the connection."},
                                                      {-102, "No server answers at this address."},
                                                      {-105, "No host has this name."},
                                                      {-106, "This machine has no network."},
                                                      {-109, "The host cannot be reached."},
                                                      {-118, "The server does not answer."},
                                                      {-324, "The server has ended the connection without an answer."}};
    for (const auto& [code, cause] : causes)
        if (info.errorCode() == code) return QString::fromLatin1(cause);
    return info.errorString();
}

bool isLocal(const QUrl& url) {
    return isLocalPage(fromQt(url.scheme()));
}

QString loginQuestion(const QUrl& url, const QString& realm, bool again) {
    QString text =
        QStringLiteral("%1 asks for a name and a password.").arg(url.adjusted(QUrl::RemoveUserInfo).authority());
    if (!realm.isEmpty()) text += QStringLiteral("\nIt says: %1").arg(elidedInTheMiddle(realm, longestAddress));
    if (again) text += QStringLiteral("\n\nThe name and the password given before were not taken.");
    return text;
}

QString shown(const QUrl& url) {
    return elidedInTheMiddle(url.toDisplayString(QUrl::RemoveUserInfo), longestAddress);
}

}  // namespace

PreviewPage::PreviewPage(const QUrl& document, bool remoteContent, QWidget& view)
    // A profile that is the view's would go before the page, and the engine's threads use it until the page has gone.
    : PreviewPage(new QWebEngineProfile(QCoreApplication::instance()), document, remoteContent, view) {
}

PreviewPage::PreviewPage(QWebEngineProfile* profile, const QUrl& document, bool remoteContent, QWidget& view)
    : QWebEnginePage(profile, &view),
      view_(view),
      document_(document),
      guard_(std::make_unique<RequestGuard>(document, remoteContent)) {
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setUrlRequestInterceptor(guard_.get());
    chooseSettings();
    if (isLocal(document) && !remoteContent) holdScripts();
    denyRequests();
    hearOutcome();
}

PreviewPage::~PreviewPage() {
    profile()->setUrlRequestInterceptor(nullptr);
    profile()->deleteLater();
}

void PreviewPage::chooseSettings() {
    using enum QWebEngineSettings::WebAttribute;
    // A page on the disk could not show its own pictures without the first two; the request rules hold it instead.
    for (const auto on : {LocalContentCanAccessFileUrls, LocalContentCanAccessRemoteUrls})
        settings()->setAttribute(on, true);
    // The pdf viewer is an extension with requests of its own; the pane tells errors, and how to go on.
    for (const auto off : {JavascriptCanOpenWindows, JavascriptCanAccessClipboard, JavascriptCanPaste,
                           NavigateOnDropEnabled, PluginsEnabled, PdfViewerEnabled, FullScreenSupportEnabled,
                           ScreenCaptureEnabled, HyperlinkAuditingEnabled, DnsPrefetchEnabled, AutoLoadIconsForPage,
                           AllowWindowActivationFromJavaScript, FocusOnNavigationEnabled, ErrorPageEnabled})
        settings()->setAttribute(off, false);
    settings()->setAttribute(WebRTCPublicInterfacesOnly, true);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

void PreviewPage::holdScripts() {
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    QWebEngineScript finder;
    finder.setSourceCode(QString::fromLatin1(scriptFinder).arg(QLatin1String(scriptsFound)));
    finder.setWorldId(QWebEngineScript::ApplicationWorld);
    finder.setInjectionPoint(QWebEngineScript::DocumentReady);
    finder.setRunsOnSubFrames(true);
    scripts().insert(finder);
    guard_->onHeldBack = [this] { emit heldBack(HeldBack::remoteContent); };
}

void PreviewPage::denyRequests() {
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl& origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::quotaRequested, this, [](QWebEngineQuotaRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::selectClientCertificate, this,
            [](QWebEngineClientCertificateSelection selection) { selection.selectNone(); });
}

void PreviewPage::hearOutcome() {
    connect(this, &QWebEnginePage::loadingChanged, this, &PreviewPage::hearLoading);
    connect(this, &QWebEnginePage::certificateError, this, &PreviewPage::hearCertificate);
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [this](const QUrl& url, QAuthenticator* answer) { hearLoginAsked(url, *answer); });
    connect(profile(), &QWebEngineProfile::downloadRequested, this,
            [this](QWebEngineDownloadRequest* download) { hearDownload(*download); });
    connect(this, &QWebEnginePage::renderProcessTerminated, this, [this] {
        emit obstacle(
            {.message = QStringLiteral("The page's process has ended. Kelvor and your documents are not affected.")});
    });
}

bool PreviewPage::isOfServer(const QUrl& url) const {
    return !isLocal(document_) && (url.host() == document_.host() || url.host() == this->url().host());
}

void PreviewPage::hearLoading(const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        asksForLogin_ = false;
        problem_.clear();
    }
    if (info.status() != QWebEngineLoadingInfo::LoadFailedStatus) return;
    if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain && asksForLogin_) return;
    if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain)
        emit refused(QStringLiteral("The server answered with the error %1.").arg(info.errorCode()));
    else if (info.errorCode() != aborted && info.errorCode() != blocked && problem_.isEmpty())
        emit obstacle({.message = QStringLiteral("%1 cannot be loaded.\n\n%2").arg(shown(info.url()), causeOf(info))});
}

void PreviewPage::hearCertificate(QWebEngineCertificateError error) {
    const QList<QSslCertificate> chain = error.certificateChain();
    const QSslCertificate certificate = chain.isEmpty() ? QSslCertificate() : chain.first();
    if (!certificate.isNull() && isTrusted(error.url(), certificate)) return error.acceptCertificate();
    error.rejectCertificate();
    if (!isOfServer(error.url())) {
        emit refused(
            QStringLiteral("The certificate of %1 cannot be trusted; the page goes without what comes from there.")
                .arg(error.url().host()));
        return;
    }
    obstacleAt_ = error.url();
    certificate_ = certificate;
    problem_ = describe(error);
    const bool canGoOn =
        error.isOverridable() && !certificate.isNull() && isOwnNetwork(error.url().host().toStdString());
    emit obstacle({.message = problem_, .way = Obstacle::Way::goOn, .certificateStays = !canGoOn});
}

void PreviewPage::trustSite() {
    trust(obstacleAt_, certificate_);
}

void PreviewPage::hearLoginAsked(const QUrl& url, QAuthenticator& answer) {
    const QString realm = answer.realm();
    const auto login = isOfServer(url) ? loginFor(url, realm) : std::nullopt;
    const std::pair place(serverOf(url), realm);
    if (login && !triedLogins_.contains(place)) {
        triedLogins_.insert(place);
        answer.setUser(login->name);
        answer.setPassword(login->password);
        return;
    }
    // Left as it is, it would be sent as an empty name and password.
    answer = QAuthenticator();
    if (!isOfServer(url)) return;
    obstacleAt_ = url;
    realm_ = realm;
    asksForLogin_ = true;
    emit obstacle({.message = loginQuestion(url, realm, login.has_value()), .way = Obstacle::Way::logIn});
}

void PreviewPage::keepLogin(const QString& name, const QString& password) {
    rememberLogin(obstacleAt_, realm_, {.name = name, .password = password});
}

void PreviewPage::stop() {
    triggerAction(QWebEnginePage::Stop);
    if (history()->count() == 0)
        emit obstacle({.message = QStringLiteral("%1 was not loaded.").arg(shown(requestedUrl()))});
}

void PreviewPage::hearDownload(QWebEngineDownloadRequest& download) {
    download.cancel();
    emit refused(QStringLiteral("The preview takes no downloads: %1").arg(shown(download.url())));
}

bool PreviewPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (!isMainFrame || guard_->allowsPage(url, type)) return true;
    emit refused(QStringLiteral("The preview does not follow this address: %1").arg(shown(url)));
    return false;
}

QWebEnginePage* PreviewPage::createWindow(WebWindowType /*type*/) {
    return nullptr;
}

void PreviewPage::javaScriptAlert(const QUrl& /*origin*/, const QString& text) {
    showDialog(text, false, nullptr);
}

bool PreviewPage::javaScriptConfirm(const QUrl& /*origin*/, const QString& text) {
    return showDialog(text, true, nullptr);
}

bool PreviewPage::javaScriptPrompt(const QUrl& /*origin*/, const QString& text, const QString& standard,
                                   QString* result) {
    *result = standard;
    return showDialog(text, true, result);
}

void PreviewPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/, const QString& text, int /*line*/,
                                           const QString& /*source*/) {
    // Nobody reads a page's console here; the toolkit would write it to the standard error stream.
    const bool runs = settings()->testAttribute(QWebEngineSettings::JavascriptEnabled);
    if (!runs && text == QLatin1String(scriptsFound)) emit heldBack(HeldBack::scripts);
}

bool PreviewPage::showDialog(const QString& text, bool canRefuse, QString* entry) {
    // Behind the source nobody would know where the question comes from.
    if (silenced_ || !view_.isVisible()) return false;
    const QPointer<PreviewPage> lives = this;
    const PageAnswer answer = askForPage(view_, text, canRefuse, entry);
    if (lives) silenced_ = answer.silence;
    return answer.accepted;
}

}  // namespace kelvor::qt
