#pragma once

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>

#include "preview/request_rules.h"

namespace kelvor::qt {

/// Puts the rules between one page and what it asks for.
class RequestGuard : public QWebEngineUrlRequestInterceptor {
public:
    explicit RequestGuard(const QUrl& document);

    /// Whether the pane may go to another page.
    bool allowsPage(const QUrl& url, QWebEnginePage::NavigationType type);

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;

private:
    RequestRules rules_;
};

}  // namespace kelvor::qt
