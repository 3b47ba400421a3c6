#include "platform/label.h"

#include <QLabel>

#include "platform/qt/binders/binders.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

void bindLabel(Label& label, QLabel& widget, FormLink& link) {
    widget.setTextFormat(Qt::PlainText);
    link.follow(label, widget, [&label, &widget](Aspect) {
        widget.setText(plainLines(label.caption()));
        widget.setAutoFillBackground(label.backColor() >= 0);
        showBackColor(widget, QPalette::Window, label.backColor());
    });
}

}  // namespace kelvor::qt
