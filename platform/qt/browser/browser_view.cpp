#include "platform/qt/browser/browser_view.h"

#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>
#include <QWebEngineView>

#include "platform/qt/browser/preview_page.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

namespace {

constexpr int longestAddress = 200;

}  // namespace

BrowserView::BrowserView(QWidget& pane) : QWidget(&pane), notice_(new QLabel), view_(new QWebEngineView) {
    notice_->setTextFormat(Qt::PlainText);
    notice_->setWordWrap(true);
    notice_->setMargin(notice_->fontMetrics().height() / 4);
    notice_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice_);
    layout->addWidget(view_, 1);
    setFocusProxy(view_);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this, &BrowserView::showMenu);
}

BrowserView::~BrowserView() {
    // A page goes before the profile that it lives in.
    delete page_;
}

void BrowserView::navigate(const QUrl& url) {
    notice_->hide();
    PreviewPage* before = page_;
    page_ = new PreviewPage(url, *view_);
    connect(page_, &PreviewPage::refused, this, &BrowserView::tellRefused);
    connect(page_, &QWebEnginePage::urlChanged, notice_, &QWidget::hide);
    connect(page_, &QWebEnginePage::renderProcessTerminated, this, [this] {
        if (onPageDied) onPageDied();
    });
    view_->setPage(page_);
    delete before;
    page_->load(url);
}

void BrowserView::tellRefused(const QUrl& url) {
    const QString address = elidedInTheMiddle(url.toDisplayString(), longestAddress);
    notice_->setText(QStringLiteral("The preview does not follow this address: %1").arg(address));
    notice_->show();
}

void BrowserView::showMenu(const QPoint& place) {
    QMenu menu(this);
    using enum QWebEnginePage::WebAction;
    for (const auto action : {Back, Forward, Reload, Copy, SelectAll}) menu.addAction(page_->action(action));
    menu.exec(view_->mapToGlobal(place));
}

}  // namespace kelvor::qt
