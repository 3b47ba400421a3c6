#include "platform/button.h"

#include <QPushButton>

#include "platform/qt/binders/binders.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

void bindButton(Button& button, QPushButton& widget, FormLink& link) {
    link.follow(button, widget, [&button, &widget](Aspect) { widget.setText(toQt(button.caption())); });
    QObject::connect(&widget, &QPushButton::clicked, &link, [&button] { guarded([&] { button.click(); }); });
}

}  // namespace kelvor::qt
