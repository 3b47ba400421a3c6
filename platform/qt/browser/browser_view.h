#pragma once

#include <QWidget>

#include "platform/qt/browser/browser_module.h"

class QLabel;
class QWebEngineView;

namespace kelvor::qt {

class PreviewPage;

/// The browser's widget: the page, and above it a line that tells which link was not followed.
class BrowserView : public QWidget, public Browser {
public:
    explicit BrowserView(QWidget& pane);
    ~BrowserView() override;

    QWidget& widget() override { return *this; }
    void navigate(const QUrl& url) override;

private:
    void tellRefused(const QUrl& url);
    void showMenu(const QPoint& place);

    QLabel* notice_;
    QWebEngineView* view_;
    PreviewPage* page_ = nullptr;
};

}  // namespace kelvor::qt
