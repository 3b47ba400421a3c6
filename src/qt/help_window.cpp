// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help_window.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QLineEdit>
#include <QSplitter>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "files/paths.h"
#include "qt/convert.h"
#include "qt/help_contents.h"
#include "qt/modal.h"

namespace kelvor::qt {

namespace {

/// In pixels of the desktop's scale.
constexpr QSize helpSize(900, 600);
constexpr int contentsWidth = 250;
constexpr int pageMargin = 12;
constexpr int searchWidth = 220;

const QUrl homePage(QStringLiteral("index.html"));

/// Reads pages from disk, and nothing that they name beside their texts; what is missing becomes a page that says so,
/// and takes its place in the way back.
class HelpBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl address = source().isEmpty() ? name : source().resolved(name);
        const QFileInfo file(address.toLocalFile());
        const bool isPage = type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource;
        if (!isPage) return {};
        if (file.isFile() && file.isReadable()) return QTextBrowser::loadResource(type, name);
        return QStringLiteral("<h3>The page \"%1\" is not there.</h3><p>It was looked for in %2.</p>")
            .arg(file.fileName().toHtmlEscaped(), file.absolutePath().toHtmlEscaped());
    }
};

}  // namespace

HelpWindow::HelpWindow()
    : contents_(new HelpContents(this)), browser_(new HelpBrowser(this)), searched_(new QLineEdit(this)) {
    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addMoves(*bar);
    addSearch(*bar);
    addKeys();
    contents_->onChosen = [this](const QUrl& page) { showPage(page); };
    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::showState);
    connect(browser_, &QTextBrowser::anchorClicked, this, &HelpWindow::follow);
    browser_->setOpenLinks(false);
    browser_->document()->setDocumentMargin(pageMargin);
    browser_->setAccessibleName(QStringLiteral("Help page"));

    auto* panes = new QSplitter(this);
    panes->addWidget(contents_);
    panes->addWidget(browser_);
    panes->setStretchFactor(1, 1);
    panes->setSizes({contentsWidth, helpSize.width() - contentsWidth});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(panes);
    resize(helpSize);
    browser_->setFocus();
}

void HelpWindow::addMoves(QToolBar& bar) {
    QAction* back = bar.addAction(style()->standardIcon(QStyle::SP_ArrowBack), QStringLiteral("Back"));
    QAction* forward = bar.addAction(style()->standardIcon(QStyle::SP_ArrowForward), QStringLiteral("Forward"));
    QAction* home = bar.addAction(style()->standardIcon(QStyle::SP_DirHomeIcon), QStringLiteral("Home"));
    back->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    forward->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    home->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, browser_, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, &HelpWindow::goHome);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::addSearch(QToolBar& bar) {
    auto* space = new QWidget(&bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(space);
    searched_->setPlaceholderText(QStringLiteral("Find in this page"));
    searched_->setAccessibleName(QStringLiteral("Find in this page"));
    searched_->setClearButtonEnabled(true);
    searched_->setMaximumWidth(searchWidth);
    bar.addWidget(searched_);
    connect(searched_, &QLineEdit::returnPressed, this, [this] { search({}); });
}

void HelpWindow::addKeys() {
    const auto add = [this](const QKeySequence& key, std::function<void()> act) {
        auto* action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, std::move(act));
        addAction(action);
    };
    add(Qt::Key_Escape, [this] { close(); });
    // A page keeps Tab for its links.
    add(Qt::Key_F6, [this] { (contents_->hasFocus() ? static_cast<QWidget*>(browser_) : contents_)->setFocus(); });
    add(QKeySequence::Find, [this] {
        searched_->setFocus();
        searched_->selectAll();
    });
    add(Qt::Key_F3, [this] { search({}); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { search(QTextDocument::FindBackward); });
}

void HelpWindow::showPage(const QUrl& page) {
    contents_->read(page.resolved(homePage));
    browser_->setSource(page, QTextDocument::HtmlResource);
    showState();
}

void HelpWindow::follow(const QUrl& link) {
    const QUrl here = browser_->source();
    const QUrl target = here.resolved(link);
    const auto folder = QUrl::RemoveFilename | QUrl::RemoveFragment;
    if (target.adjusted(folder) == here.adjusted(folder)) return showPage(target);
    const bool isOnNet = target.scheme() == QLatin1String("http") || target.scheme() == QLatin1String("https");
    if (!isOnNet || !QDesktopServices::openUrl(target)) QApplication::beep();
}

void HelpWindow::goHome() {
    showPage(browser_->source().resolved(homePage));
}

void HelpWindow::showState() {
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? QStringLiteral("Kelvor Help") : QStringLiteral("%1 - Kelvor Help").arg(title));
    contents_->mark(browser_->source());
}

/// Goes on from what was found last, and at the end of the page from its other end.
void HelpWindow::search(QTextDocument::FindFlags flags) {
    const QString text = searched_->text();
    if (text.isEmpty() || browser_->find(text, flags)) return;
    const QTextCursor before = browser_->textCursor();
    browser_->moveCursor(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    if (browser_->find(text, flags)) return;
    browser_->setTextCursor(before);
    QApplication::beep();
}

/// The colours of links are those of the moment at which a page is read.
void HelpWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) browser_->reload();
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
