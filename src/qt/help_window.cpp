// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help_window.h"

#include <QFile>
#include <QFileInfo>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

#include "files/paths.h"
#include "qt/convert.h"
#include "qt/modal.h"

namespace kelvor::qt {

namespace {

/// In pixels of the desktop's scale.
constexpr QSize helpSize(760, 620);

/// Reads pages from disk; what is missing becomes a page that says so, and takes its place in the way back.
class HelpBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl address = source().isEmpty() ? name : source().resolved(name);
        const QFileInfo file(address.toLocalFile());
        const bool isPage = type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource;
        if (!isPage || (file.isFile() && file.isReadable())) return QTextBrowser::loadResource(type, name);
        return QStringLiteral("<h3>The page \"%1\" is not there.</h3><p>It was looked for in %2.</p>")
            .arg(file.fileName().toHtmlEscaped(), file.absolutePath().toHtmlEscaped());
    }
};

}  // namespace

HelpWindow::HelpWindow() : browser_(new HelpBrowser(this)) {
    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction* back = bar->addAction(style()->standardIcon(QStyle::SP_ArrowBack), QStringLiteral("Back"));
    QAction* forward = bar->addAction(style()->standardIcon(QStyle::SP_ArrowForward), QStringLiteral("Forward"));
    QAction* home = bar->addAction(style()->standardIcon(QStyle::SP_DirHomeIcon), QStringLiteral("Home"));
    back->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    forward->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    home->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, browser_, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this,
            [this] { showPage(browser_->source().resolved(QUrl(QStringLiteral("index.html")))); });
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::showTitle);
    browser_->setOpenExternalLinks(true);
    browser_->setAccessibleName(QStringLiteral("Help page"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(browser_);
    auto* close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
    resize(helpSize);
    browser_->setFocus();
}

void HelpWindow::showPage(const QUrl& page) {
    browser_->setSource(page, QTextDocument::HtmlResource);
    showTitle();
}

void HelpWindow::showTitle() {
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? QStringLiteral("Kelvor Help") : QStringLiteral("%1 - Kelvor Help").arg(title));
}

QUrl helpAddress(const std::string& address) {
    const auto parting = address.find("::/");
    const std::string directory = directoryPart(address.substr(0, parting));
    const std::string page = parting == std::string::npos ? "" : fileNamePart(address.substr(parting + 3));
    return QUrl::fromLocalFile(toQt(joinPath(directory, page.empty() ? "index.html" : page)));
}

QtHelpViewer::QtHelpViewer() = default;
QtHelpViewer::~QtHelpViewer() = default;

void QtHelpViewer::show(const std::string& address) {
    if (!window_) window_ = std::make_unique<HelpWindow>();
    window_->showPage(helpAddress(address));
    floatAboveModal(*window_);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

}  // namespace kelvor::qt
