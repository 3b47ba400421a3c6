// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binders/mouse_presses.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWidget>
#include <utility>

#include "qt/form_link.h"
#include "qt/key_codes.h"
#include "qt/popup_place.h"

namespace kelvor::qt {

namespace {

class PressFilter : public QObject {
public:
    PressFilter(const QWidget& origin, FormLink& link, std::function<void(const MousePress&)> tell)
        : QObject(&link), origin_(origin), tell_(std::move(tell)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonPress) return false;
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        if (mouse.button() != Qt::LeftButton && mouse.button() != Qt::RightButton) return false;
        const QPoint place = static_cast<QWidget*>(watched)->mapTo(&origin_, mouse.position().toPoint());
        const MousePress press = {.button = mouse.button() == Qt::LeftButton ? MousePress::left : MousePress::right,
                                  .shift = shiftBits(mouse.modifiers()),
                                  .x = place.x(),
                                  .y = place.y()};
        QMetaObject::invokeMethod(
            this, [this, press] { tell_(press); }, Qt::QueuedConnection);
        // A part of the origin that has no use for it would pass it on, to be told once more.
        return watched != &origin_ && press.button == MousePress::right;
    }

private:
    const QWidget& origin_;
    std::function<void(const MousePress&)> tell_;
};

/// Keeps presses beside the rows from the list.
class ChoiceKeeper : public QObject {
public:
    ChoiceKeeper(const QAbstractItemView& list, FormLink& link) : QObject(&link), list_(list) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonPress) return false;
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        return mouse.button() == Qt::RightButton && !list_.indexAt(mouse.position().toPoint()).isValid();
    }

private:
    const QAbstractItemView& list_;
};

/// Tells the menu key as a right press on what the popup is about, below which it then opens.
class MenuKey : public QObject {
public:
    MenuKey(const QWidget& origin, FormLink& link, std::function<QRect()> subject,
            std::function<void(const MousePress&)> tell)
        : QObject(&link), origin_(origin), subject_(std::move(subject)), tell_(std::move(tell)) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::ContextMenu) return false;
        if (static_cast<const QContextMenuEvent&>(*event).reason() != QContextMenuEvent::Keyboard) return false;
        const QRect subject = subject_();
        const QPoint middle = subject.center();
        const MousePress press = {.button = MousePress::right, .shift = 0, .x = middle.x(), .y = middle.y()};
        const auto tell = [this, press, below = origin_.mapToGlobal(subject.bottomLeft())] {
            const PopupPlace place(below);
            tell_(press);
        };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
        return true;
    }

private:
    const QWidget& origin_;
    std::function<QRect()> subject_;
    std::function<void(const MousePress&)> tell_;
};

}  // namespace

void tellMousePresses(QWidget& widget, const QWidget& origin, FormLink& link,
                      std::function<void(const MousePress&)> tell) {
    widget.installEventFilter(new PressFilter(origin, link, std::move(tell)));
}

void tellMenuKey(QWidget& widget, const QWidget& origin, FormLink& link, std::function<void(const MousePress&)> tell) {
    const auto subject = [&widget, &origin] { return QRect(widget.mapTo(&origin, QPoint()), widget.size()); };
    widget.installEventFilter(new MenuKey(origin, link, subject, std::move(tell)));
}

void tellRowPresses(QAbstractItemView& list, FormLink& link, std::function<void(const MousePress&)> tell) {
    // The filter that comes last is asked first.
    list.viewport()->installEventFilter(new ChoiceKeeper(list, link));
    const auto row = [&list] {
        list.scrollTo(list.currentIndex());
        return list.visualRect(list.currentIndex());
    };
    list.installEventFilter(new MenuKey(*list.viewport(), link, row, tell));
    tellMousePresses(*list.viewport(), *list.viewport(), link, std::move(tell));
}

}  // namespace kelvor::qt
