// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser/browser_view.h"

#include <QMenu>
#include <QVBoxLayout>
#include <QWebEngineView>
#include <utility>

#include "qt/browser/preview_page.h"

namespace kelvor::qt {

BrowserView::BrowserView(QWidget& pane) : QWidget(&pane), view_(new QWebEngineView) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    setFocusProxy(view_);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this, &BrowserView::showMenu);
}

BrowserView::~BrowserView() {
    // A page goes before the profile that it lives in.
    delete page_;
}

void BrowserView::setPage(PreviewPage* page) {
    PreviewPage* before = std::exchange(page_, page);
    view_->setPage(page);
    delete before;
}

void BrowserView::navigate(const QUrl& url, bool remoteContent) {
    setPage(new PreviewPage(url, remoteContent, *view_));
    connectPage();
    page_->load(url);
}

void BrowserView::connectPage() {
    connect(page_, &PreviewPage::obstacle, this, [this](const Obstacle& obstacle) { onObstacle(obstacle); });
    connect(page_, &PreviewPage::refused, this, [this](const QString& what) { onRefused(what); });
    connect(page_, &PreviewPage::heldBack, this, [this](HeldBack what) { onHeldBack(what); });
    connect(page_, &QWebEnginePage::urlChanged, this, [this] { onMoved(); });
    connect(page_, &QWebEnginePage::loadStarted, this, [this] { onLoading(true); });
    connect(page_, &QWebEnginePage::loadFinished, this, [this] { onLoading(false); });
}

void BrowserView::close() {
    setPage(nullptr);
}

void BrowserView::stop() {
    if (page_) page_->stop();
}

void BrowserView::trustSite() {
    if (page_) page_->trustSite();
}

void BrowserView::keepLogin(const QString& name, const QString& password) {
    if (page_) page_->keepLogin(name, password);
}

void BrowserView::showMenu(const QPoint& place) {
    QMenu menu(this);
    using enum QWebEnginePage::WebAction;
    for (const auto action : {Back, Forward, Reload, Copy, SelectAll}) menu.addAction(page_->action(action));
    menu.exec(view_->mapToGlobal(place));
}

}  // namespace kelvor::qt
