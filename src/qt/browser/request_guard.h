// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>
#include <functional>

#include "preview/request_rules.h"

namespace kelvor::qt {

/// Puts the rules between one page and what it asks for.
class RequestGuard : public QWebEngineUrlRequestInterceptor {
public:
    /// @param remoteContent  whether a page from the disk gets at the network
    RequestGuard(const QUrl& document, bool remoteContent);

    /// Whether the pane may go to another page.
    bool allowsPage(const QUrl& url, QWebEnginePage::NavigationType type);

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;

    /// A request waits until the user lets the page use the network.
    std::function<void()> onHeldBack;

private:
    RequestRules rules_;
};

}  // namespace kelvor::qt
