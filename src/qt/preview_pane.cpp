// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/preview_pane.h"

#include <QDir>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "preview/request_rules.h"
#include "qt/browser/browser_module.h"
#include "qt/browser_loader.h"
#include "qt/convert.h"
#include "qt/pane_line.h"
#include "qt/pane_obstacle.h"
#include "text/percent_encoding.h"

namespace kelvor::qt {

namespace {

/// A page that loads faster does not flicker, in milliseconds.
constexpr int unnoticed = 500;
constexpr int second = 1000;
/// Seconds without a page after which the server is said not to answer.
constexpr int patience = 10;

bool isUrl(const std::string& address) {
    const QString text = toQt(address);
    for (const char* scheme : {"http://", "https://", "file:"})
        if (text.startsWith(QLatin1String(scheme), Qt::CaseInsensitive)) return true;
    return false;
}

/// A path keeps its every byte: names may hold #, ? and %, and need not be text.
QUrl fileUrl(const std::string& path) {
    const std::string whole = path.starts_with('/') ? path : fromQt(QDir::currentPath()) + "/" + path;
    return QUrl::fromEncoded(QByteArray::fromStdString("file://" + percentEncoded(whole)), QUrl::StrictMode);
}

/// Empty for a URL that is broken, which would keep its scheme otherwise and pass for a server's page.
QUrl pageUrl(const std::string& address) {
    const QUrl url = isUrl(address) ? QUrl(toQt(address)) : fileUrl(address);
    return url.isValid() ? url : QUrl();
}

QString heldBackText(bool scripts, bool network) {
    if (scripts && network) return QStringLiteral("Scripts and content from the network are held back.");
    return scripts ? QStringLiteral("Scripts are held back.")
                   : QStringLiteral("Content from the network is held back.");
}

}  // namespace

PreviewPane::PreviewPane(QWidget& place) : QWidget(&place), layers_(new QStackedLayout), obstacle_(new PaneObstacle) {
    auto* whole = new QVBoxLayout(&place);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(this);
    place.setFocusProxy(this);
    makeLines();
    layers_->addWidget(obstacle_);
    connect(obstacle_, &PaneObstacle::reload, this, &PreviewPane::load);
    connect(obstacle_, &PaneObstacle::leave, this, [this] {
        showPage();
        refused_->tell(QStringLiteral("The server was given no name and no password."));
    });
    connect(obstacle_, &PaneObstacle::goOn, this, [this] {
        browser_->trustSite();
        load();
    });
    connect(obstacle_, &PaneObstacle::logIn, this, [this] {
        if (obstacle_->loginName().isEmpty()) return;
        browser_->keepLogin(obstacle_->loginName(), obstacle_->password());
        load();
    });
    connect(&patience_, &QTimer::timeout, this, &PreviewPane::tellWaiting);
}

PreviewPane::~PreviewPane() {
    // The browser's widget ends after the members, and its page tells them things to its last.
    close();
}

void PreviewPane::makeLines() {
    mapping_ = new PaneLine;
    heldBack_ = new PaneLine(QStringLiteral("Load remote &content"));
    refused_ = new PaneLine;
    loading_ = new PaneLine(QStringLiteral("&Stop"));
    const QString choice = QStringLiteral(
        "Runs the scripts and loads what comes from the network, until this document is closed. "
        "Scripts can then send what they read beside the page.");
    heldBack_->button()->setToolTip(choice);
    heldBack_->button()->setAccessibleDescription(choice);
    connect(heldBack_->button(), &QPushButton::clicked, this, &PreviewPane::loadRemoteContent);
    connect(loading_->button(), &QPushButton::clicked, this, [this] {
        browser_->widget().setFocus();
        browser_->stop();
    });
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    for (PaneLine* line : {mapping_, heldBack_, refused_, loading_}) lines->addWidget(line);
    lines->addLayout(layers_, 1);
}

void PreviewPane::navigate(const std::string& address, const std::string& mapped) {
    const bool lacksScheme = !mapped.empty() && !isUrl(mapped);
    shownAddress_ = elidedInTheMiddle(toQt(address), longestAddress);
    url_ = pageUrl(mapped.empty() || lacksScheme ? address : mapped);
    mapping_->tell(lacksScheme ? QStringLiteral("The mapping gives no address that begins with http:// or https://, "
                                                "so this is taken for a path: %1")
                                     .arg(shownAddress_)
                               : QString());
    load();
}

bool PreviewPane::makeBrowser() {
    if (browser_) return true;
    const BrowserFound found = loadBrowser();
    if (!found.module) {
        obstacle_->show(found.problem);
        layers_->setCurrentWidget(obstacle_);
        return false;
    }
    browser_ = &found.module->createBrowser(*this);
    browser_->onObstacle = [this](const Obstacle& obstacle) { showObstacle(obstacle); };
    browser_->onRefused = [this](const QString& what) { refused_->tell(what); };
    browser_->onHeldBack = [this](HeldBack what) { tellHeldBack(what); };
    browser_->onLoading = [this](bool begins) { tellLoading(begins); };
    browser_->onMoved = [this] { refused_->tell({}); };
    layers_->addWidget(&browser_->widget());
    return true;
}

void PreviewPane::load() {
    close();
    if (!makeBrowser()) return;
    const bool usesNetwork = remoteContent_ || !isLocalPage(fromQt(url_.scheme()));
    if (usesNetwork) nameLookups_.emplace();
    showPage();
    browser_->navigate(url_, remoteContent_);
}

void PreviewPane::loadRemoteContent() {
    remoteContent_ = true;
    load();
    browser_->widget().setFocus();
}

void PreviewPane::close() {
    scriptsWait_ = networkWaits_ = false;
    heldBack_->tell({});
    refused_->tell({});
    tellLoading(false);
    if (browser_) browser_->close();
    nameLookups_.reset();
}

void PreviewPane::showPage() {
    layers_->setCurrentWidget(&browser_->widget());
    setFocusProxy(&browser_->widget());
}

void PreviewPane::showObstacle(const Obstacle& obstacle) {
    tellLoading(false);
    const bool hadFocus = browser_->widget().isAncestorOf(focusWidget());
    obstacle_->show(obstacle);
    layers_->setCurrentWidget(obstacle_);
    setFocusProxy(obstacle_);
    if (hadFocus) obstacle_->setFocus();
}

void PreviewPane::tellHeldBack(HeldBack what) {
    bool& waits = what == HeldBack::scripts ? scriptsWait_ : networkWaits_;
    if (waits) return;
    waits = true;
    heldBack_->tell(heldBackText(scriptsWait_, networkWaits_));
}

void PreviewPane::tellLoading(bool begins) {
    waited_ = 0;
    loading_->tell({});
    if (begins)
        patience_.start(unnoticed);
    else
        patience_.stop();
}

void PreviewPane::tellWaiting() {
    if (waited_ == 0) loading_->tell(QStringLiteral("Loading %1").arg(shownAddress_));
    if (waited_ == patience)
        loading_->tell(QStringLiteral("Not loaded after %1 seconds: %2").arg(QString::number(patience), shownAddress_));
    ++waited_;
    patience_.start(second);
}

}  // namespace kelvor::qt
