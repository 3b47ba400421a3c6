// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/picture_box.h"

#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include "qt/binders/binders.h"
#include "qt/pictures.h"

namespace kelvor::qt {

namespace {

/// Paints the box's picture into its widget, and tells the box the size that the layout gives it.
class PictureView : public QObject {
public:
    PictureView(PictureBox& box, QWidget& widget, FormLink& link) : QObject(&link), box_(box), widget_(widget) {}

    void show(Aspect aspect) {
        if (!box_.picture()) return;
        if (aspect == Aspect::value) widget_.update();
        widget_.setGeometry(box_.left(), box_.top(), box_.width(), box_.height());
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Resize) guarded([this] { box_.resize(widget_.width(), widget_.height()); });
        if (event->type() == QEvent::Paint && box_.picture())
            paintPicture(*box_.picture(), widget_, static_cast<QPaintEvent*>(event)->rect());
        return false;
    }

private:
    PictureBox& box_;
    QWidget& widget_;
};

}  // namespace

void bindPictureBox(PictureBox& box, QWidget& widget, FormLink& link) {
    auto* view = new PictureView(box, widget, link);
    widget.installEventFilter(view);
    link.follow(box, widget, [view](Aspect aspect) { view->show(aspect); });
}

}  // namespace kelvor::qt
