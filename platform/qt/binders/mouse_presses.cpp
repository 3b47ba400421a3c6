#include "platform/qt/binders/mouse_presses.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWidget>
#include <utility>

#include "platform/qt/form_link.h"
#include "platform/qt/key_codes.h"

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

/// Tells the menu key as a right press on the row in focus.
class MenuKey : public QObject {
public:
    MenuKey(const QAbstractItemView& list, FormLink& link, std::function<void(const MousePress&)> tell)
        : QObject(&link), list_(list), tell_(std::move(tell)) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::ContextMenu) return false;
        if (static_cast<const QContextMenuEvent&>(*event).reason() != QContextMenuEvent::Keyboard) return false;
        const QPoint place = list_.visualRect(list_.currentIndex()).center();
        const MousePress press = {.button = MousePress::right, .shift = 0, .x = place.x(), .y = place.y()};
        QMetaObject::invokeMethod(
            this, [this, press] { tell_(press); }, Qt::QueuedConnection);
        return true;
    }

private:
    const QAbstractItemView& list_;
    std::function<void(const MousePress&)> tell_;
};

}  // namespace

void tellMousePresses(QWidget& widget, const QWidget& origin, FormLink& link,
                      std::function<void(const MousePress&)> tell) {
    widget.installEventFilter(new PressFilter(origin, link, std::move(tell)));
}

void tellRowPresses(QAbstractItemView& list, FormLink& link, std::function<void(const MousePress&)> tell) {
    // The filter that comes last is asked first.
    list.viewport()->installEventFilter(new ChoiceKeeper(list, link));
    list.installEventFilter(new MenuKey(list, link, tell));
    tellMousePresses(*list.viewport(), *list.viewport(), link, std::move(tell));
}

}  // namespace kelvor::qt
