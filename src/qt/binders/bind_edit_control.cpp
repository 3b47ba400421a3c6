// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/edit_control.h"

#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>
#include <QWidget>

#include "qt/binders/binders.h"
#include "qt/key_states.h"
#include "qt/scintilla_edit.h"

namespace kelvor::qt {

namespace {

/// What an empty edit box is for, in it, when the layout tells it.
void showPlaceholder(EditControl& edit, const QWidget& place, QWidget& widget) {
    const QString text = place.property("placeholderText").toString();
    if (text.isEmpty()) return;
    auto* label = new QLabel(text, &widget);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    constexpr QPoint firstLine(5, 2);  // pixels; where the text's first line stands
    label->move(firstLine);
    const auto show = [&edit, label = QPointer(label)] {
        if (label) label->setVisible(edit.textLength() == 0);
    };
    edit.changed.connect(show);
    show();
}

}  // namespace

void bindEditControl(EditControl& edit, QWidget& place, FormLink& link) {
    link.follow(edit, place, [](Aspect) {});
    auto* surface = dynamic_cast<ScintillaEdit*>(&edit);
    if (!surface || !surface->widget()) return;
    QWidget* widget = surface->widget();
    widget->setAccessibleName(place.accessibleName());
    auto* layout = new QVBoxLayout(&place);
    layout->setContentsMargins({});
    layout->addWidget(widget);
    showPlaceholder(edit, place, *widget);
    if (place.property("wordWrap").isValid()) surface->setWordWrap(place.property("wordWrap").toBool());
    // Tab comes to it where it comes to the place, which it would reach last otherwise.
    place.setFocusPolicy(Qt::StrongFocus);
    QWidget::setTabOrder(&place, widget);
    place.setFocusProxy(widget);
    const auto tellOvertype = [surface] { keyStates().setOvertype(surface->overtype()); };
    surface->overtypeChanged.connect(tellOvertype);
    surface->gotFocus.connect(tellOvertype);
}

}  // namespace kelvor::qt
