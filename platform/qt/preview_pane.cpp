#include "platform/qt/preview_pane.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "platform/qt/browser/browser_module.h"
#include "platform/qt/browser_loader.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

namespace {

/// A path keeps its every byte: names may hold #, ? and %, and need not be text.
QUrl fileUrl(const std::string& path) {
    QByteArray bytes(path.data(), static_cast<qsizetype>(path.size()));
    if (!bytes.startsWith('/')) bytes.prepend(QDir::currentPath().toUtf8() + '/');
    return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"), QUrl::StrictMode);
}

QUrl pageUrl(const std::string& address) {
    const QString text = toQt(address);
    for (const char* scheme : {"http://", "https://", "file:"})
        if (text.startsWith(QLatin1String(scheme), Qt::CaseInsensitive)) return QUrl(text);
    return fileUrl(address);
}

}  // namespace

PreviewPane::PreviewPane(QWidget& place)
    : QWidget(&place),
      layers_(new QStackedLayout(this)),
      notice_(new QWidget),
      message_(new QLabel),
      reload_(new QPushButton(QStringLiteral("&Reload"))) {
    message_->setTextFormat(Qt::PlainText);
    message_->setAlignment(Qt::AlignCenter);
    message_->setWordWrap(true);
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    connect(reload_, &QPushButton::clicked, this, &PreviewPane::load);
    auto* lines = new QVBoxLayout(notice_);
    lines->addStretch();
    lines->addWidget(message_);
    lines->addWidget(reload_, 0, Qt::AlignHCenter);
    lines->addStretch();
    layers_->addWidget(notice_);
    auto* whole = new QVBoxLayout(&place);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(this);
    place.setFocusProxy(this);
    tell({}, false);
}

void PreviewPane::navigate(const std::string& address) {
    url_ = pageUrl(address);
    load();
}

void PreviewPane::load() {
    if (!browser_) {
        const BrowserFound found = loadBrowser();
        if (!found.module) return tell(found.problem, false);
        browser_ = &found.module->createBrowser(*this);
        browser_->onPageDied = [this] {
            tell(QStringLiteral("The page's process has ended. Kelvor and your documents are not affected."), true);
        };
        layers_->addWidget(&browser_->widget());
    }
    browser_->navigate(url_);
    layers_->setCurrentWidget(&browser_->widget());
    setFocusProxy(&browser_->widget());
}

void PreviewPane::tell(const QString& message, bool canReload) {
    message_->setText(message);
    reload_->setVisible(canReload);
    layers_->setCurrentWidget(notice_);
}

}  // namespace kelvor::qt
