// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "qt/browser/browser_module.h"

class QWebEngineView;

namespace kelvor::qt {

class PreviewPage;

/// The browser's widget, and in it one page after the other.
class BrowserView : public QWidget, public Browser {
public:
    explicit BrowserView(QWidget& pane);
    ~BrowserView() override;

    QWidget& widget() override { return *this; }
    void navigate(const QUrl& url, bool remoteContent) override;
    void close() override;
    void stop() override;
    void trustSite() override;
    void keepLogin(const QString& name, const QString& password) override;

private:
    void setPage(PreviewPage* page);
    void connectPage();
    void showMenu(const QPoint& place);

    QWebEngineView* view_;
    PreviewPage* page_ = nullptr;
};

}  // namespace kelvor::qt
