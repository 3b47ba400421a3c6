// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_windows.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "base/error.h"
#include "controls/form.h"
#include "controls/menu_item.h"
#include "frame/main_frame.h"
#include "qt/binding.h"
#include "qt/convert.h"
#include "qt/empty_frame_hint.h"
#include "qt/folding_bar.h"
#include "qt/form_link.h"
#include "qt/layouts.h"
#include "qt/modal.h"
#include "qt/popup_place.h"
#include "qt/scintilla_edit.h"
#include "qt/window_list.h"

namespace kelvor::qt {

namespace {

/// In pixels of the desktop's scale; what a small screen leaves is taken instead.
constexpr QSize frameSize(1100, 750);
/// Kept free around the frame for its border and title.
constexpr QSize screenMargin(40, 80);

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\r\n") + line;
    return text;
}

/// A dialog for reading, as its layout says by `fillsScreen`, is larger than what it must hold.
void makeRoom(QWidget& window) {
    if (!window.property("fillsScreen").toBool()) return;
    constexpr double part = 0.85;
    window.resize(window.size().expandedTo(window.screen()->availableSize() * part));
    window.setWindowFlag(Qt::WindowMaximizeButtonHint);
}

/// A window that is shown already takes on another modality only when it is shown anew; its place stays.
void setModality(QWidget& window, Qt::WindowModality modality) {
    if (window.windowModality() == modality) return;
    const QPoint place = window.pos();
    const bool wasShown = window.isVisible();
    window.hide();
    window.setWindowModality(modality);
    if (wasShown) window.move(place);
}

}  // namespace

QtWindows::~QtWindows() = default;

QWidget* QtWindows::widgetOf(const Form& form) const {
    const auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : found->second.widget.data();
}

QWidget* QtWindows::frameWidget() const {
    const auto frame = std::find_if(windows_.begin(), windows_.end(),
                                    [](const auto& row) { return row.first->kind() == Form::Kind::frame; });
    return frame == windows_.end() ? nullptr : frame->second.widget.data();
}

void QtWindows::create(Form& form) {
    std::unique_ptr<QWidget> window;
    switch (form.kind()) {
        case Form::Kind::frame:
            window = std::make_unique<QMainWindow>();
            break;
        case Form::Kind::child:
            window = std::make_unique<QWidget>();
            break;
        case Form::Kind::tool:
            window = std::make_unique<QDialog>(frameWidget());
            break;
    }
    if (!setUpLayout(form.name(), *window))
        throw Error(error_number::elementNotFound, form.name() + " has no layout for its kind of window");
    const auto problems = bindForm(form, *window);
    if (!problems.empty()) {
        unbindForm(form, *window);
        throw Error(error_number::elementNotFound, joined(problems));
    }
    if (auto* main = qobject_cast<QMainWindow*>(window.get())) setUpFrame(form, *main);
    makeRoom(*window);
    windows_[&form] = {.widget = window.release(), .above = QApplication::activeModalWidget()};
}

void QtWindows::setUpFrame(Form& form, QMainWindow& window) {
    const QSize screen = window.screen()->availableSize() - screenMargin;
    window.resize(frameSize.boundedTo(screen));
    auto* frame = dynamic_cast<MDIForm1*>(&form);
    auto* area = window.findChild<QMdiArea*>(QStringLiteral("MdiArea1"));
    if (!frame || !area) return;
    new EmptyFrameHint(*area);
    if (auto* bar = window.findChild<QWidget*>(QStringLiteral("picDisk"))) new FoldingBar(*bar);
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, FormLink::of(window), [&form](QWindow* now) {
        if (now) form.keyboardCame.raise();
    });
    mdi_ = std::make_unique<MdiView>(frame->mdi, form, *area, [this](Form& child) { return widgetOf(child); });
    if (auto* menu = window.findChild<QMenu*>(QStringLiteral("mnuWindow"))) listWindows(frame->mdi, *menu);
}

void QtWindows::destroy(Form& form) {
    auto node = windows_.extract(&form);
    if (node.empty()) return;
    Window& window = node.mapped();
    endModal(window);
    if (form.kind() == Form::Kind::frame) mdi_.reset();
    if (window.widget) {
        unbindForm(form, *window.widget);
        window.widget->hide();
        window.widget->deleteLater();
    }
    if (form.kind() == Form::Kind::frame && onFrameGone) onFrameGone();
}

void QtWindows::endModal(Window& window) {
    if (window.modalLoop) window.modalLoop->quit();
    window.modalLoop = nullptr;
}

void QtWindows::showModal(Form& form) {
    const auto found = windows_.find(&form);
    if (found == windows_.end() || !found->second.widget || found->second.modalLoop) return;
    QWidget& widget = *found->second.widget;
    setModality(widget, Qt::ApplicationModal);
    floatAboveModal(widget);
    QEventLoop loop;
    found->second.modalLoop = &loop;
    widget.show();
    loop.exec();
    // An exit in the meantime ends all loops and leaves the form as it is.
    const auto still = windows_.find(&form);
    if (still != windows_.end() && still->second.modalLoop == &loop) hide(form);
    // A window manager may give the keyboard to a window that is just going.
    QWidget* below = QApplication::activeModalWidget();
    if (!below) below = frameWidget();
    if (below) below->activateWindow();
}

void QtWindows::showModeless(Form& form, bool owned) {
    QWidget* widget = widgetOf(form);
    if (!widget) return;
    endModal(windows_[&form]);
    setModality(*widget, Qt::NonModal);
    windows_[&form].above = QApplication::activeModalWidget();
    QWidget* above = owned && form.kind() == Form::Kind::tool ? frameWidget() : nullptr;
    if (widget->parentWidget() != above) widget->setParent(above, widget->windowFlags());
    floatAboveModal(*widget);
    widget->show();
    widget->raise();
    widget->activateWindow();
}

void QtWindows::hide(Form& form) {
    const auto found = windows_.find(&form);
    if (found == windows_.end()) return;
    endModal(found->second);
    if (found->second.widget) found->second.widget->hide();
}

bool QtWindows::isBlocked(const Form& form) const {
    const QWidget* modal = QApplication::activeModalWidget();
    const auto found = windows_.find(&form);
    if (!modal || found == windows_.end()) return false;
    return modal != found->second.widget && modal != found->second.above;
}

void QtWindows::popupMenu(MenuItem& menu, const Control* below) {
    const QWidget* window = widgetOf(menu.form());
    auto* popup = window ? window->findChild<QMenu*>(toQt(menu.name())) : nullptr;
    if (!popup) return;
    const auto* place = below ? window->findChild<QWidget*>(toQt(below->name())) : nullptr;
    popup->exec(place ? place->mapToGlobal(QPoint(0, place->height())) : PopupPlace::take());
}

std::unique_ptr<EditControl> QtWindows::createEditControl(Form& form, const std::string& name) {
    return std::make_unique<ScintillaEdit>(form, name);
}

}  // namespace kelvor::qt
