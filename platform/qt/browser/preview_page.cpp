#include "platform/qt/browser/preview_page.h"

#include <QCoreApplication>
#include <QWebEngineClientCertificateSelection>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineProfile>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineSettings>
#include <QWidget>

#include "platform/qt/browser/page_dialog.h"
#include "platform/qt/browser/request_guard.h"

namespace kelvor::qt {

PreviewPage::PreviewPage(const QUrl& document, QWidget& view)
    // A profile that is the view's would go before the page, and the engine's threads use it until the page has gone.
    : PreviewPage(new QWebEngineProfile(QCoreApplication::instance()), document, view) {
}

PreviewPage::PreviewPage(QWebEngineProfile* profile, const QUrl& document, QWidget& view)
    : QWebEnginePage(profile, &view), view_(view), guard_(std::make_unique<RequestGuard>(document)) {
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setUrlRequestInterceptor(guard_.get());
    connect(profile, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });
    chooseSettings();
    denyRequests();
}

PreviewPage::~PreviewPage() {
    profile()->setUrlRequestInterceptor(nullptr);
    profile()->deleteLater();
}

void PreviewPage::chooseSettings() {
    using enum QWebEngineSettings::WebAttribute;
    // A page on the disk could not show its own pictures without the first two; the request rules hold it instead.
    for (const auto on : {LocalContentCanAccessFileUrls, LocalContentCanAccessRemoteUrls, ErrorPageEnabled})
        settings()->setAttribute(on, true);
    // The pdf viewer is an extension with requests of its own.
    for (const auto off :
         {JavascriptCanOpenWindows, JavascriptCanAccessClipboard, JavascriptCanPaste, NavigateOnDropEnabled,
          PluginsEnabled, PdfViewerEnabled, FullScreenSupportEnabled, ScreenCaptureEnabled, HyperlinkAuditingEnabled,
          DnsPrefetchEnabled, AutoLoadIconsForPage, AllowWindowActivationFromJavaScript, FocusOnNavigationEnabled})
        settings()->setAttribute(off, false);
    settings()->setAttribute(WebRTCPublicInterfacesOnly, true);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
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

bool PreviewPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (!isMainFrame || guard_->allowsPage(url, type)) return true;
    emit refused(url);
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

bool PreviewPage::showDialog(const QString& text, bool canRefuse, QString* entry) {
    // Behind the source nobody would know where the question comes from.
    if (silenced_ || !view_.isVisible()) return false;
    const PageAnswer answer = askForPage(view_, text, canRefuse, entry);
    silenced_ = answer.silence;
    return answer.accepted;
}

}  // namespace kelvor::qt
