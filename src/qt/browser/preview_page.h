// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QSslCertificate>
#include <QUrl>
#include <QWebEnginePage>
#include <memory>
#include <utility>

#include "qt/browser/browser_module.h"

class QAuthenticator;
class QWebEngineCertificateError;
class QWebEngineDownloadRequest;
class QWebEngineLoadingInfo;

namespace kelvor::qt {

class RequestGuard;

/// One page in preview, in a profile of its own that leaves nothing behind. What is in it may come from anywhere: it
/// is shown, and is refused whatever reaches beyond its pane. A page from the disk runs no scripts until the user
/// lets it use the network, because no switch of the engine shuts all of their ways there: any empty frame hands a
/// script what speaks WebRTC over TCP, and a link in it has its host looked up.
class PreviewPage : public QWebEnginePage {
    Q_OBJECT
public:
    /// @param document       what will be loaded; the rules for all that follows depend on it
    /// @param remoteContent  whether a page from the disk runs its scripts and gets at the network
    PreviewPage(const QUrl& document, bool remoteContent, QWidget& view);
    ~PreviewPage() override;

    /// Loads no more; an obstacle unless something of a page is there.
    void stop();
    /// Takes the certificate of the last obstacle from now on.
    void trustSite();
    /// Keeps what opens the last obstacle.
    void keepLogin(const QString& name, const QString& password);

signals:
    /// The page is not there.
    void obstacle(const kelvor::qt::Obstacle& obstacle);
    /// The page, or a click in it, wanted what the preview does not do.
    void refused(const QString& what);
    void heldBack(kelvor::qt::HeldBack what);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& standard, QString* result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text, int line,
                                  const QString& source) override;

private:
    PreviewPage(QWebEngineProfile* profile, const QUrl& document, bool remoteContent, QWidget& view);
    void chooseSettings();
    void holdScripts();
    void denyRequests();
    void hearOutcome();
    bool isOfServer(const QUrl& url) const;
    void hearLoading(const QWebEngineLoadingInfo& info);
    void hearCertificate(QWebEngineCertificateError error);
    void hearLoginAsked(const QUrl& url, QAuthenticator& answer);
    void hearDownload(QWebEngineDownloadRequest& download);
    bool showDialog(const QString& text, bool canRefuse, QString* entry);

    QWidget& view_;
    const QUrl document_;
    std::unique_ptr<RequestGuard> guard_;
    bool silenced_ = false;                          ///< the user wants no more of this page's messages
    QSet<std::pair<QString, QString>> triedLogins_;  ///< server and realm that were sent what was kept for them
    QUrl obstacleAt_;
    QSslCertificate certificate_;  ///< of the last obstacle, as is the realm
    QString realm_;
    bool asksForLogin_ = false;
    QString problem_;  ///< told already; what the engine says about it afterwards adds nothing
};

}  // namespace kelvor::qt
