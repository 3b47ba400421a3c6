// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_box.h"

#include <QLineEdit>

#include "qt/binders/binders.h"
#include "qt/binders/text_field.h"
#include "qt/convert.h"

namespace kelvor::qt {

void bindTextBox(TextBox& box, QLineEdit& widget, FormLink& link) {
    link.follow(box, widget, [&box, &widget](Aspect aspect) {
        showField(box, widget, aspect);
        showBackColor(widget, QPalette::Base, box.backColor());
    });
    QObject::connect(&widget, &QLineEdit::textEdited, &link, [&box, &widget, &link](const QString& text) {
        link.perform([&] { box.type(fromQt(text)); }, [&] { showField(box, widget, Aspect::text); });
    });
    followSelection(box, widget, link);
}

}  // namespace kelvor::qt
