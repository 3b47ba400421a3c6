// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser/request_guard.h"

namespace kelvor::qt {

namespace {

/// A name on the disk need not be text, so it is taken by its bytes.
PageAddress addressOf(const QUrl& url) {
    const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return {.scheme = url.scheme().toStdString(), .host = url.host().toStdString(), .path = path.toStdString()};
}

ResourceKind kindOf(QWebEngineUrlRequestInfo::ResourceType type) {
    using Info = QWebEngineUrlRequestInfo;
    switch (type) {
        case Info::ResourceTypeMainFrame:
        case Info::ResourceTypeNavigationPreloadMainFrame:
            return ResourceKind::page;
        case Info::ResourceTypeStylesheet:
        case Info::ResourceTypeScript:
        case Info::ResourceTypeImage:
        case Info::ResourceTypeFontResource:
        case Info::ResourceTypeMedia:
        case Info::ResourceTypeFavicon:
            return ResourceKind::part;
        case Info::ResourceTypeXhr:
        case Info::ResourceTypePing:
        case Info::ResourceTypeCspReport:
        case Info::ResourceTypeWebSocket:
            return ResourceKind::exchange;
        default:
            return ResourceKind::readable;
    }
}

std::string homeDirectory() {
    return qgetenv("HOME").toStdString();
}

}  // namespace

RequestGuard::RequestGuard(const QUrl& document, bool remoteContent)
    : rules_(addressOf(document), homeDirectory(), remoteContent) {
}

bool RequestGuard::allowsPage(const QUrl& url, QWebEnginePage::NavigationType type) {
    return rules_.allows(addressOf(url), ResourceKind::page, type == QWebEnginePage::NavigationTypeRedirect);
}

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& request) {
    const bool redirected = request.navigationType() == QWebEngineUrlRequestInfo::NavigationTypeRedirect;
    const PageAddress target = addressOf(request.requestUrl());
    const ResourceKind kind = kindOf(request.resourceType());
    request.block(!rules_.allows(target, kind, redirected));
    if (onHeldBack && rules_.waitsForUser(target, kind)) onHeldBack();
}

}  // namespace kelvor::qt
