#include "platform/qt/mdi_view.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QStyle>
#include <utility>

#include "platform/form.h"
#include "platform/qt/convert.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/mdi_arrangement.h"

namespace kelvor::qt {

namespace {

/// In characters; what of a path the list of windows shows.
constexpr int longestRow = 70;

/// What the icon and the buttons of a title bar take, in heights of the bar.
constexpr int titleBarParts = 5;

/// A child's window. Its close box asks the form, which alone takes the window away.
class ChildWindow : public QMdiSubWindow {
public:
    explicit ChildWindow(Form& form) : form_(&form) {
        // Ctrl+W, the library's choice for its Close, belongs to the frame's own menu.
        for (QAction* action : systemMenu()->actions())
            if (!action->shortcuts().isEmpty()) action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4));
    }

    Form* form() const { return form_; }
    void release() { form_ = nullptr; }

    /// The end of a path is what has to be read. A maximised window's title stands in the frame's.
    void showTitle() {
        if (!widget()) return;
        const QString title = widget()->windowTitle();
        const int room = width() - titleBarParts * style()->pixelMetric(QStyle::PM_TitleBarHeight);
        setWindowTitle(isMaximized() ? title : fontMetrics().elidedText(title, Qt::ElideLeft, room));
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        // Behind the event: the button that was pressed may stand in the menu bar and goes with the window.
        const auto ask = [this] {
            Form* form = form_;
            if (form) guarded([&] { form->unload(); });
        };
        QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
    }

    void changeEvent(QEvent* event) override {
        QMdiSubWindow::changeEvent(event);
        if (event->type() == QEvent::WindowStateChange) showTitle();
    }

    void resizeEvent(QResizeEvent* event) override {
        QMdiSubWindow::resizeEvent(event);
        showTitle();
    }

private:
    Form* form_;
};

Form* formOf(QMdiSubWindow* window) {
    const auto* child = dynamic_cast<ChildWindow*>(window);
    return child ? child->form() : nullptr;
}

}  // namespace

MdiView::MdiView(MdiArea& model, Form& frame, QMdiArea& area, WidgetOf widgetOf)
    : model_(model), frame_(frame), area_(area), widgetOf_(std::move(widgetOf)) {
    area_.installEventFilter(this);
    area_.viewport()->installEventFilter(this);
    area_.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(&area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        Form* form = formOf(window);
        if (!form || following_) return;
        following_ = true;
        guarded([&] { model_.activate(*form); });
        following_ = false;
    });
    model_.follow([this](MdiArea::Change change, Form* child) { follow(change, child); });
}

MdiView::~MdiView() {
    model_.follow({});
}

void MdiView::follow(MdiArea::Change change, Form* child) {
    const bool before = std::exchange(following_, true);
    switch (change) {
        case MdiArea::Change::shown:
            show(*child);
            break;
        case MdiArea::Change::removed:
            remove(*child);
            break;
        case MdiArea::Change::activated:
            // A window that the user has just turned into an icon is in front too, and stays one.
            if (!before) restore(child);
            activate(child);
            break;
        case MdiArea::Change::arranged:
            arrange();
            break;
    }
    following_ = before;
}

void MdiView::show(Form& child) {
    QWidget* widget = widgetOf_(child);
    if (!widget) return;
    auto* window = new ChildWindow(child);
    window->setWidget(widget);
    connect(widget, &QWidget::windowTitleChanged, window, &ChildWindow::showTitle);
    widget->show();
    windows_.insert(&child, window);
    area_.addSubWindow(window);
    // The size that it takes when it is no longer maximised.
    window->resize(area_.viewport()->size() * 3 / 4);
    window->showMaximized();
}

void MdiView::remove(Form& child) {
    auto* window = dynamic_cast<ChildWindow*>(windows_.take(&child));
    if (!window) return;
    window->release();
    // The child's own widget ends with its form.
    if (QWidget* widget = window->widget()) {
        window->setWidget(nullptr);
        widget->hide();
    }
    const bool maximised = window->isMaximized();
    if (maximised) window->showNormal();
    area_.removeSubWindow(window);
    window->hide();
    window->deleteLater();
    if (QMdiSubWindow* next = windows_.value(model_.activeForm()); next && maximised) next->showMaximized();
}

void MdiView::restore(Form* child) {
    QMdiSubWindow* window = windows_.value(child);
    if (window && window->isMinimized()) window->showNormal();
}

void MdiView::activate(Form* child) {
    QMdiSubWindow* window = windows_.value(child);
    if (!window) return;
    area_.setActiveSubWindow(window);
    window->raise();
}

std::vector<QMdiSubWindow*> MdiView::windowsInOrder(bool minimised) const {
    std::vector<QMdiSubWindow*> windows;
    for (Form* child : model_.children()) {
        QMdiSubWindow* window = windows_.value(child);
        if (window && window->isMinimized() == minimised) windows.push_back(window);
    }
    return windows;
}

void MdiView::arrange() {
    const auto icons = windowsInOrder(true);
    const auto iconCount = static_cast<int>(icons.size());
    QSize area = area_.viewport()->size();
    const QSize icon = icons.empty() ? QSize() : icons.front()->size();
    const auto iconRects = iconPlaces(area, iconCount, icon);
    for (std::size_t i = 0; i < icons.size(); ++i) icons[i]->move(iconRects[i].topLeft());
    if (model_.arrangement() == MdiArea::Arrangement::icons) return;

    const auto windows = windowsInOrder(false);
    const auto count = static_cast<int>(windows.size());
    area.rheight() -= iconHeight(area, iconCount, icon);
    std::vector<QRect> places;
    switch (model_.arrangement()) {
        case MdiArea::Arrangement::tileHorizontally:
            places = tiles(area, count, Qt::Horizontal);
            break;
        case MdiArea::Arrangement::tileVertically:
            places = tiles(area, count, Qt::Vertical);
            break;
        default:
            places = cascade(area, count, area_.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 4);
            break;
    }
    for (std::size_t i = 0; i < windows.size(); ++i) {
        windows[i]->showNormal();
        windows[i]->setGeometry(places[i]);
        windows[i]->raise();
    }
    activate(model_.activeForm());
}

void MdiView::listWindows(QMenu& menu) {
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { fillList(menu); });
}

void MdiView::fillList(QMenu& menu) {
    static const QString listed = QStringLiteral("windowListRow");
    for (QAction* action : menu.actions())
        if (action->objectName() == listed) delete action;
    if (model_.children().empty()) return;
    menu.addSeparator()->setObjectName(listed);
    int number = 1;
    for (Form* child : model_.children()) {
        const QString title = menuText(elidedInTheMiddle(toQt(child->caption()), longestRow));
        const QString key = number < 10 ? QStringLiteral("&%1 ") : QStringLiteral("%1 ");
        QAction* action = menu.addAction(key.arg(number++) + title);
        action->setObjectName(listed);
        action->setCheckable(true);
        action->setChecked(child == model_.activeForm());
        connect(action, &QAction::triggered, this, [this, child] {
            // The list may be older than its windows.
            if (windows_.contains(child)) guarded([&] { model_.activate(*child); });
        });
    }
}

bool MdiView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &area_ && event->type() == QEvent::Show) {
        // Windows that came before the frame was seen could not be activated then.
        follow(MdiArea::Change::activated, model_.activeForm());
    }
    if (watched != area_.viewport() || event->type() != QEvent::MouseButtonPress) return false;
    const auto& press = static_cast<QMouseEvent&>(*event);
    const QPoint place = press.position().toPoint();
    // A press that a child window has no use for arrives here too.
    if (press.button() != Qt::RightButton || area_.viewport()->childAt(place)) return false;
    frame_.mouseDown.raise({.button = 2, .shift = shiftBits(press.modifiers()), .x = place.x(), .y = place.y()});
    return true;
}

}  // namespace kelvor::qt
