// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frame.h"

#include <QEvent>
#include <QGroupBox>

#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// Shows the caption, of which a frame that has a least width of its own leaves out the middle where it has no room: it
/// does not make the window wider, as the widget would.
void showCaption(const Frame& frame, QGroupBox& widget) {
    constexpr int border = 20;  // pixels beside the caption, both sides together
    const QString caption = rowText(frame.caption());
    const int room = widget.width() - border;
    const bool givesWay = widget.minimumWidth() > 0;
    widget.setTitle(menuText(givesWay ? widget.fontMetrics().elidedText(caption, Qt::ElideMiddle, room) : caption));
    widget.setAccessibleName(caption);
}

class CaptionRoom : public QObject {
public:
    CaptionRoom(const Frame& frame, QGroupBox& widget, FormLink& link)
        : QObject(&link), frame_(frame), widget_(widget) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Resize) showCaption(frame_, widget_);
        return false;
    }

private:
    const Frame& frame_;
    QGroupBox& widget_;
};

}  // namespace

void bindFrame(Frame& frame, QGroupBox& widget, FormLink& link) {
    widget.installEventFilter(new CaptionRoom(frame, widget, link));
    link.follow(frame, widget, [&frame, &widget](Aspect) { showCaption(frame, widget); });
}

}  // namespace kelvor::qt
