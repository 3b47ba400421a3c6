// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/combo_box.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include "qt/binders/binders.h"
#include "qt/binders/combo_parts.h"
#include "qt/binders/string_rows.h"
#include "qt/binders/text_field.h"
#include "qt/convert.h"

namespace kelvor::qt {

void bindComboBox(ComboBox& box, QComboBox& widget, FormLink& link) {
    auto* rows = new StringRows(box.list(), &link);
    nameParts(widget, link);
    widget.setModel(rows);
    widget.setFocusPolicy(Qt::StrongFocus);
    if (box.style() == ComboBox::Style::editable) {
        widget.setEditable(true);
        widget.setInsertPolicy(QComboBox::NoInsert);
        widget.setCompleter(nullptr);
        // Otherwise Enter in the text chooses the row of that text.
        widget.setDuplicatesEnabled(true);
        QObject::connect(widget.lineEdit(), &QLineEdit::textEdited, &link,
                         [&box](const QString& text) { guarded([&] { box.type(fromQt(text)); }); });
        joinField(box, *widget.lineEdit(), link);
    }
    link.follow(box, widget, [&box, &widget, rows](Aspect aspect) {
        const QSignalBlocker blocker(widget);
        if (aspect == Aspect::list) rows->renew();
        // A text that is no row leaves the widget's row as it was; taking it away would take the caret too.
        const bool typed = widget.isEditable() && aspect == Aspect::text && box.listIndex() < 0;
        if (!typed) widget.setCurrentIndex(box.listIndex());
        if (widget.isEditable()) showField(box, *widget.lineEdit(), aspect);
    });
    QObject::connect(&widget, &QComboBox::activated, &link, [&box](int index) { guarded([&] { box.choose(index); }); });
}

}  // namespace kelvor::qt
