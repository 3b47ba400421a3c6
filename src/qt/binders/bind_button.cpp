// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/button.h"

#include <QKeyEvent>
#include <QPushButton>

#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// Presses the button in focus by Enter. The toolkit does that too, but only for buttons of which it then picks one as
/// the default where no control is.
class EnterKey : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        static_cast<QPushButton*>(watched)->click();
        return true;
    }
};

}  // namespace

void bindButton(Button& button, QPushButton& widget, FormLink& link) {
    widget.setAutoDefault(false);
    widget.installEventFilter(new EnterKey(&link));
    link.follow(button, widget, [&button, &widget](Aspect aspect) {
        widget.setText(toQt(button.caption()));
        // At first the default is the one that the layout names.
        if (aspect == Aspect::value) widget.setDefault(button.isDefault());
    });
    QObject::connect(&widget, &QPushButton::clicked, &link, [&button] { guarded([&] { button.click(); }); });
}

}  // namespace kelvor::qt
