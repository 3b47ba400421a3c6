// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/mdi_view.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QStyle>
#include <utility>

#include "controls/form.h"
#include "qt/convert.h"
#include "qt/key_codes.h"
#include "qt/mdi_arrangement.h"
#include "qt/window_list.h"

namespace kelvor::qt {

namespace {

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

    /// Back from its icon, as large as it was.
    void bringBack() {
        if (!isMinimized()) return;
        if (wasMaximised_) {
            showMaximized();
        } else {
            showNormal();
        }
    }

    /// A maximised window's title stands in the frame's, where there is room for the path. A small one begins with what
    /// tells it from the others.
    void showTitle() {
        if (!widget() || !form_) return;
        const int room = width() - titleBarParts * style()->pixelMetric(QStyle::PM_TitleBarHeight);
        const QString name = fontMetrics().elidedText(nameFirst(form_->caption()), Qt::ElideRight, room);
        setWindowTitle(isMaximized() ? widget()->windowTitle() : qt::windowTitle(fromQt(name)));
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
        if (event->type() != QEvent::WindowStateChange) return;
        const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
        if (isMinimized() && !before.testFlag(Qt::WindowMinimized))
            wasMaximised_ = before.testFlag(Qt::WindowMaximized);
        showTitle();
    }

    void resizeEvent(QResizeEvent* event) override {
        QMdiSubWindow::resizeEvent(event);
        showTitle();
    }

private:
    Form* form_;
    bool wasMaximised_ = false;  ///< before it became an icon
};

Form* formOf(QMdiSubWindow* window) {
    const auto* child = dynamic_cast<ChildWindow*>(window);
    return child ? child->form() : nullptr;
}

/// The child window that a widget stands in.
ChildWindow* windowAround(QWidget* widget) {
    QWidget* parent = widget ? widget->parentWidget() : nullptr;
    while (parent && !dynamic_cast<ChildWindow*>(parent)) parent = parent->parentWidget();
    return dynamic_cast<ChildWindow*>(parent);
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
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepKeysSeen(now); });
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
    windows_.insert(&child, window);
    // Before either is shown: the display would make a window of its own for what stands in no other.
    area_.addSubWindow(window);
    // The size that it takes when it is no longer maximised.
    window->resize(area_.viewport()->size() * 3 / 4);
    widget->show();
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
    if (auto* window = dynamic_cast<ChildWindow*>(windows_.value(child))) window->bringBack();
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

/// Keys must not reach a text that nobody sees. A command that gives a text the keyboard brings its window back from
/// the icon; when it is the user who comes to the icon, perhaps to move it, the icon stays one and has the keyboard.
void MdiView::keepKeysSeen(QWidget* focus) {
    ChildWindow* window = windowAround(focus);
    if (!window || !window->isMinimized()) return;
    if (following_) {
        window->setFocus();
    } else {
        window->bringBack();
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
    frame_.mouseDown.raise(
        {.button = MousePress::right, .shift = shiftBits(press.modifiers()), .x = place.x(), .y = place.y()});
    return true;
}

}  // namespace kelvor::qt
